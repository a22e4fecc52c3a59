-- The venue's tables. Money columns hold 1/10000 yuan as integers; times are
-- "yyyy-MM-dd HH:mm" text. Foreign keys only where a delete must be refused.

CREATE TABLE pSetup (
  setupname TEXT NOT NULL,
  setupvalue TEXT
);
CREATE UNIQUE INDEX ux_psetup_name ON pSetup (lower(setupname));

CREATE TABLE CompanyInfo (
  CompanyName TEXT,
  companyaddress TEXT,
  phone TEXT
);

CREATE TABLE PayLevel (
  PayLevelID TEXT PRIMARY KEY,
  PayLevelName TEXT,
  Description TEXT,
  payType INTEGER DEFAULT 1,
  AfterTime INTEGER DEFAULT 0,
  Unit INTEGER DEFAULT 10 CHECK (Unit > 0),
  NotOne INTEGER DEFAULT 0,
  PrivilegeTime {REAL} DEFAULT 0,
  start1 {REAL}, start2 {REAL}, start3 {REAL}, start4 {REAL},
  end1 {REAL}, end2 {REAL}, end3 {REAL}, end4 {REAL},
  Price1 {REAL}, Price2 {REAL}, Price3 {REAL}, Price4 {REAL},
  MinMoney1 {REAL}, MinMoney2 {REAL}, MinMoney3 {REAL}, MinMoney4 {REAL},
  PriceA1 {REAL}, PriceA2 {REAL}, PriceA3 {REAL}, PriceA4 {REAL},
  MinMoneyA1 {REAL}, MinMoneyA2 {REAL}, MinMoneyA3 {REAL}, MinMoneyA4 {REAL},
  MinMoney {MONEY} DEFAULT 0
);

CREATE TABLE TheAssort (
  AssortID TEXT PRIMARY KEY,
  AssortName TEXT,
  PayLevelID TEXT REFERENCES PayLevel (PayLevelID)
);

CREATE TABLE The (
  TheID TEXT PRIMARY KEY,
  TheCode TEXT NOT NULL,
  AssortID TEXT REFERENCES TheAssort (AssortID),
  theDesc TEXT,
  State INTEGER NOT NULL DEFAULT 0 CHECK (State BETWEEN 0 AND 4),
  ExpenseID TEXT DEFAULT '',
  Other1 TEXT DEFAULT ''
);
CREATE UNIQUE INDEX ux_the_code ON The (TheCode);
CREATE INDEX ix_the_assort ON The (AssortID, TheCode);

CREATE TABLE Expense (
  ExpenseID TEXT PRIMARY KEY,
  TheID TEXT REFERENCES The (TheID),
  PayLevelID TEXT,
  payLevelType INTEGER DEFAULT 1,
  IsUseMinMoney INTEGER DEFAULT 0,
  oldMoney {MONEY} DEFAULT 0,
  OpenTime TEXT,
  CloseTime TEXT,
  State INTEGER NOT NULL DEFAULT 1 CHECK (State IN (0, 1)),
  VoucherState INTEGER DEFAULT 0 CHECK (VoucherState IN (0, 1, 2)),
  Description TEXT,
  CloseDesc TEXT,
  openOperator TEXT,
  CloseOperator TEXT,
  CustomerNum INTEGER DEFAULT 0,
  CustomerCode TEXT,
  markerCode TEXT,
  StartMoney {MONEY} DEFAULT 0,
  jzr TEXT,
  theMoney {MONEY},
  ExpenseMoney {MONEY},
  oughtMoney {MONEY},
  NoMoney {MONEY},
  freepay {MONEY},
  factpay {MONEY},
  CashPay {MONEY},
  chongzhipay {MONEY},
  chongzhiIDCare TEXT,
  Income {MONEY},
  CheckForm TEXT,
  Other2 TEXT
);
-- At most one open bill per room.
CREATE UNIQUE INDEX ux_expense_open_room ON Expense (TheID) WHERE State = 1;
CREATE INDEX ix_expense_close ON Expense (State, CloseTime);
CREATE INDEX ix_expense_open ON Expense (OpenTime);
CREATE INDEX ix_expense_jzr ON Expense (VoucherState, jzr);
CREATE INDEX ix_expense_customer ON Expense (CustomerCode);

CREATE TABLE ExpenseDetail (
  DetailID TEXT PRIMARY KEY,
  ExpenseID TEXT NOT NULL,
  WareID TEXT,
  num {REAL} DEFAULT 0,
  Price {MONEY} DEFAULT 0,
  thePrice {MONEY} DEFAULT 0,
  ExpenseMoney {MONEY} DEFAULT 0,
  oughtMoney {MONEY} DEFAULT 0,
  Income {MONEY} DEFAULT 0,
  TiChengMoney {MONEY} DEFAULT 0,
  Other1 TEXT,
  isFree INTEGER DEFAULT 0,
  isdel INTEGER DEFAULT 0,
  operatorname TEXT,
  ExpenseTime TEXT,
  ThisCode TEXT,
  Description TEXT
);
CREATE INDEX ix_detail_expense ON ExpenseDetail (ExpenseID, isdel);
CREATE INDEX ix_detail_ware ON ExpenseDetail (WareID);
CREATE INDEX ix_detail_thiscode ON ExpenseDetail (ThisCode);

CREATE TABLE Outsale (
  ExpenseID TEXT PRIMARY KEY,
  OpenTime TEXT,
  CloseTime TEXT,
  Description TEXT,
  openOperator TEXT,
  CloseOperator TEXT,
  State INTEGER DEFAULT 0,
  VoucherState INTEGER DEFAULT 0,
  ExpenseMoney {MONEY},
  oughtMoney {MONEY},
  NoMoney {MONEY},
  factpay {MONEY},
  CashPay {MONEY},
  Income {MONEY},
  CheckForm TEXT
);
CREATE INDEX ix_outsale_close ON Outsale (CloseTime);

CREATE TABLE OutsaleDetail (
  DetailID TEXT PRIMARY KEY,
  ExpenseID TEXT NOT NULL,
  WareID TEXT,
  num {REAL} DEFAULT 0,
  Price {MONEY} DEFAULT 0,
  thePrice {MONEY} DEFAULT 0,
  oughtMoney {MONEY} DEFAULT 0,
  ExpenseMoney {MONEY} DEFAULT 0,
  Income {MONEY} DEFAULT 0,
  isFree INTEGER DEFAULT 0,
  isdel INTEGER DEFAULT 0
);
CREATE INDEX ix_outsaledetail_expense ON OutsaleDetail (ExpenseID);
CREATE INDEX ix_outsaledetail_ware ON OutsaleDetail (WareID);

CREATE TABLE WareType (
  WareTypeID TEXT PRIMARY KEY,
  wareTypeName TEXT,
  isDoDiscount INTEGER DEFAULT 0,
  isNomember INTEGER DEFAULT 0,
  isHC INTEGER DEFAULT 0,
  isBT INTEGER DEFAULT 0
);

CREATE TABLE Ware (
  WareID TEXT PRIMARY KEY,
  WareTypeID TEXT REFERENCES WareType (WareTypeID),
  WareCode TEXT,
  WareName TEXT,
  Mnemonics TEXT,
  wareUnit TEXT,
  Price {MONEY} DEFAULT 0,
  ProcurePrice {MONEY} DEFAULT 0,
  nownum {REAL} DEFAULT 0,
  minnum {REAL} DEFAULT 0,
  tiCheng {MONEY} DEFAULT 0
);
CREATE INDEX ix_ware_type ON Ware (WareTypeID, WareCode);
CREATE INDEX ix_ware_mnemonics ON Ware (Mnemonics);

CREATE TABLE WareLevel (
  WareLevelID TEXT PRIMARY KEY,
  WareLevelName TEXT,
  Description TEXT,
  start1 {REAL}, start2 {REAL}, start3 {REAL}, start4 {REAL},
  end1 {REAL}, end2 {REAL}, end3 {REAL}, end4 {REAL},
  Discount1 {REAL} DEFAULT 1, Discount2 {REAL} DEFAULT 1, Discount3 {REAL} DEFAULT 1, Discount4 {REAL} DEFAULT 1
);

CREATE TABLE Supplier (
  SupplierID TEXT PRIMARY KEY,
  SupplierName TEXT, Address TEXT, linkmanname TEXT, phone TEXT, movephone TEXT,
  PrincipalName TEXT, Principalphone TEXT, Principalmovephone TEXT, thememo TEXT,
  tax TEXT, email TEXT, QQ TEXT, msn TEXT, WEb TEXT
);

CREATE TABLE WareIn (
  wareInID TEXT PRIMARY KEY,
  InTime TEXT,
  thejb TEXT,
  createname TEXT,
  theDesc TEXT,
  TheCode TEXT,
  SupplierID TEXT REFERENCES Supplier (SupplierID)
);
CREATE INDEX ix_warein_time ON WareIn (InTime);

CREATE TABLE WareInList (
  WareInListID TEXT PRIMARY KEY,
  wareInID TEXT NOT NULL,
  WareID TEXT,
  SupplierID TEXT REFERENCES Supplier (SupplierID),
  num {REAL} DEFAULT 0,
  Price {MONEY} DEFAULT 0,
  theMoney {MONEY} DEFAULT 0,
  wareDesc TEXT
);
CREATE INDEX ix_wareinlist_in ON WareInList (wareInID);
CREATE INDEX ix_wareinlist_ware ON WareInList (WareID);

CREATE TABLE WareLoss (
  WareLossID TEXT PRIMARY KEY,
  InTime TEXT,
  thejb TEXT,
  createname TEXT,
  theDesc TEXT,
  TheCode TEXT
);
CREATE INDEX ix_wareloss_time ON WareLoss (InTime);

CREATE TABLE WareLossList (
  WareLossListID TEXT PRIMARY KEY,
  WareLossID TEXT NOT NULL,
  WareID TEXT,
  num {REAL} DEFAULT 0,
  Price {MONEY} DEFAULT 0,
  theMoney {MONEY} DEFAULT 0,
  wareDesc TEXT
);
CREATE INDEX ix_warelosslist_loss ON WareLossList (WareLossID);

CREATE TABLE MemberSetup (
  SetupID TEXT PRIMARY KEY,
  SetupName TEXT,
  Description TEXT,
  InitValue {REAL} DEFAULT 0,
  StepValue {REAL} DEFAULT 0,
  discount {REAL} DEFAULT 1
);

CREATE TABLE Member (
  MemberCode TEXT PRIMARY KEY,
  MemberName TEXT, Sex TEXT, Nationality TEXT, IDCard TEXT, Address TEXT, phone TEXT,
  movephone TEXT, Fax TEXT, Postcode TEXT, email TEXT, ComName TEXT, ComAddress TEXT,
  ComPostcode TEXT, TheFunction TEXT, Description TEXT, sms TEXT,
  pw TEXT,
  AddDate TEXT,
  birthday TEXT,
  SetupID TEXT REFERENCES MemberSetup (SetupID),
  State INTEGER DEFAULT 0,
  MemberValue {REAL} DEFAULT 0,
  chongzhi {MONEY} DEFAULT 0,
  sumValue {MONEY} DEFAULT 0,
  ThisPhoto {BLOB}
);
CREATE INDEX ix_member_name ON Member (MemberName);

CREATE TABLE chongzhi (
  chongzhiid TEXT PRIMARY KEY,
  MemberCode TEXT,
  Description TEXT,
  operatorname TEXT,
  thismemoney {MONEY} DEFAULT 0,
  factpay {MONEY} DEFAULT 0,
  OperatorTime TEXT
);
CREATE INDEX ix_chongzhi_member ON chongzhi (MemberCode);
CREATE INDEX ix_chongzhi_time ON chongzhi (OperatorTime);

CREATE TABLE Employee (
  EmployeeID TEXT PRIMARY KEY,
  Employeecode TEXT, EmployeeName TEXT, Sex TEXT, EmployeeBorn TEXT, EmployeePhone TEXT,
  EmployeeDesc TEXT, IDCard TEXT, EmployeeAddress TEXT, email TEXT, Fax TEXT, Postcode TEXT,
  movephone TEXT,
  State INTEGER DEFAULT 0,
  ThisPhoto {BLOB}
);

CREATE TABLE Operator (
  OperatorID TEXT PRIMARY KEY,
  LoginName TEXT,
  operatorname TEXT,
  pw TEXT,
  Description TEXT,
  discount {REAL},
  Closetimeset {REAL},
  State INTEGER DEFAULT 0
);
CREATE INDEX ix_operator_login ON Operator (LoginName);

CREATE TABLE SysPuissance (
  SysPuissanceID TEXT PRIMARY KEY,
  sysPuissanceName TEXT,
  Description TEXT,
  Orderby INTEGER
);

CREATE TABLE Puissance (
  OperatorID TEXT NOT NULL,
  SysPuissanceID TEXT NOT NULL,
  isHave INTEGER DEFAULT 0
);
CREATE UNIQUE INDEX ux_puissance ON Puissance (OperatorID, SysPuissanceID);

CREATE TABLE Reservation (
  ReservationID TEXT PRIMARY KEY,
  CustomerName TEXT, CustomerPhone TEXT, Description TEXT, operatorname TEXT,
  CustomerNum INTEGER DEFAULT 0,
  HouseAssortID TEXT,
  HouseID TEXT,
  startTime TEXT,
  endtime TEXT,
  ReservationTime TEXT,
  state INTEGER DEFAULT 0
);
CREATE INDEX ix_reservation_house ON Reservation (HouseID, state);
CREATE INDEX ix_reservation_start ON Reservation (startTime);

CREATE TABLE Shouyininfo (
  theid TEXT PRIMARY KEY,
  theDate TEXT,
  ShouyinName TEXT,
  theMoney {MONEY} DEFAULT 0
);
CREATE INDEX ix_shouyin_date ON Shouyininfo (theDate);

CREATE TABLE s_log (
  logid TEXT PRIMARY KEY,
  Logdate TEXT,
  theOperator TEXT,
  theModel TEXT,
  theDoName TEXT,
  Dotype TEXT,
  dook TEXT,
  theContent TEXT
);
CREATE INDEX ix_slog_date ON s_log (Logdate);

CREATE TABLE FD_FormControl (
  FormControlName TEXT NOT NULL,
  colname TEXT NOT NULL,
  coltitle TEXT,
  ShowValue TEXT,
  DisplayCase TEXT,
  ColWidth INTEGER DEFAULT 1000,
  ColOrder INTEGER DEFAULT 0,
  IsShow TEXT DEFAULT 'Y'
);
CREATE UNIQUE INDEX ux_fd_formcontrol ON FD_FormControl (FormControlName, colname);

CREATE TABLE sys_AutoInput (
  autoinputID TEXT PRIMARY KEY,
  autoInputType TEXT,
  thisValue TEXT
);
CREATE INDEX ix_autoinput_type ON sys_AutoInput (autoInputType);
