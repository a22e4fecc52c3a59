-- The columns of every configured list, with Chinese titles. Each list is one name:
-- the window's own list name where it has one, else window + "." + list control.
--
--   lvwPayAfter                     frmCloseHouse, deferred bills (挂帐单据)
--   frmMemberList.lvwThis           member list
--   frmMemberList.lvwChongzhi       member records: top-ups
--   frmMemberList.lvwExpense        member records: bills paid by stored value
--   frmChongzhiList.lvwThis         top-up records
--   frmEmployeeList.lvwThis         employees
--   frmSupplierList.lvwThis         suppliers
--   frmWareInList.lvwThis           stock receipts ("warein" tab)
--   frmWareInList.lvwWareinList     receipt lines ("wareinlist" tab)
--   frmWareInList.lvwList           lines of the selected receipt
--   frmWareLossList.lvwThis         stock adjustments ("warein" tab)
--   frmWareLossList.lvwWareinList   adjustment lines ("wareinlist" tab)
--   frmWareLossList.lvwList         lines of the selected adjustment
--   frmFind.lvwExpense              bill query: room bills
--   frmFind.lvwDetail               bill query: lines of the selected bill
--   frmFind.lvwOutSale              bill query: retail sales
--   frmFind.lvwOutSaleDetail        bill query: lines of the selected sale
--   frmFindIncome.lvwExpense        income query: room bills
--   frmFindIncome.lvwOutSale        income query: retail sales
--   frmBusReorder.lvwWare           sales ranking by goods
--   frmBusReorder.lvwWareType       sales ranking by goods type (same control, other fields)
--   frmBusReorder.lvwSteward        sales ranking by employee
--   frmChart.lvwExpense             business chart table
--   frmCheckForm.lvwThis            reconciliation: room bills
--   frmCheckForm.lvwOutSale         reconciliation: retail sales
--   frmShouyinInfo.lvwExpense       reconciliation records
--   frmLog.lvwThis                  operation log
--   frmOption.lvwWare               goods page of the options window
--
-- A keyed list takes its item key from its first shown column, so a list keyed by a row id
-- starts with that column at width 0: there but not seen. Other ids are hidden ("N").
-- Display rules: 1 value list, 2 date letter, 3 money in 1/10000 yuan with a number format.
-- Rows a venue already has are kept.

-- frmCloseHouse 挂帐单据
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('lvwPayAfter', 'ExpenseID', '单据号', 0, 1, 'Y', ''),
  ('lvwPayAfter', 'oughtMoney', '挂帐金额', 1200, 2, 'Y', '3,0.00'),
  ('lvwPayAfter', 'jzr', '结帐人', 1100, 3, 'Y', ''),
  ('lvwPayAfter', 'CloseTime', '挂帐时间', 2300, 4, 'Y', '2,H'),
  ('lvwPayAfter', 'markerCode', '手写单号', 1100, 5, 'Y', ''),
  ('lvwPayAfter', 'CustomerNum', '顾客人数', 1000, 6, 'Y', ''),
  ('lvwPayAfter', 'openOperator', '开单人', 1100, 7, 'Y', ''),
  ('lvwPayAfter', 'OpenTime', '开单时间', 2300, 8, 'Y', '2,H'),
  ('lvwPayAfter', 'CloseOperator', '收银员', 1100, 9, 'Y', ''),
  ('lvwPayAfter', 'CloseDesc', '结帐备注', 2000, 10, 'Y', ''),
  ('lvwPayAfter', 'Description', '开单备注', 2000, 11, 'Y', ''),
  ('lvwPayAfter', 'TheID', '包厢ID', 1500, 12, 'N', ''),
  ('lvwPayAfter', 'PayLevelID', '计费标准ID', 1500, 13, 'N', ''),
  ('lvwPayAfter', 'payLevelType', '开单计费方式', 1300, 14, 'N', '1,0固定费率|1按时计费'),
  ('lvwPayAfter', 'IsUseMinMoney', '启用最低消费', 1300, 15, 'N', '1,0否|1是'),
  ('lvwPayAfter', 'oldMoney', '原包厢费', 1100, 16, 'N', '3,0.00'),
  ('lvwPayAfter', 'State', '单据状态', 1000, 17, 'N', '1,0已结帐|1消费中'),
  ('lvwPayAfter', 'VoucherState', '结帐方式', 1000, 18, 'N', '1,0现结|1免单|2挂帐'),
  ('lvwPayAfter', 'CustomerCode', '会员编号', 1200, 19, 'N', ''),
  ('lvwPayAfter', 'StartMoney', '门票', 1000, 20, 'N', '3,0.00'),
  ('lvwPayAfter', 'theMoney', '包厢费', 1100, 21, 'N', '3,0.00'),
  ('lvwPayAfter', 'ExpenseMoney', '消费金额', 1200, 22, 'N', '3,0.00'),
  ('lvwPayAfter', 'NoMoney', '优惠金额', 1100, 23, 'N', '3,0.00'),
  ('lvwPayAfter', 'freepay', '赠券支付', 1100, 24, 'N', '3,0.00'),
  ('lvwPayAfter', 'factpay', '实收金额', 1200, 25, 'N', '3,0.00'),
  ('lvwPayAfter', 'CashPay', '现金支付', 1100, 26, 'N', '3,0.00'),
  ('lvwPayAfter', 'chongzhipay', '储卡支付', 1100, 27, 'N', '3,0.00'),
  ('lvwPayAfter', 'chongzhiIDCare', '储卡会员', 1200, 28, 'N', ''),
  ('lvwPayAfter', 'Income', '利润', 1100, 29, 'N', '3,0.00'),
  ('lvwPayAfter', 'CheckForm', '已对帐', 900, 30, 'N', ''),
  ('lvwPayAfter', 'Other2', '已打印', 900, 31, 'N', '1,0|1已打印')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmMemberList 会员列表
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmMemberList.lvwThis', 'MemberCode', '会员编号', 1200, 1, 'Y', ''),
  ('frmMemberList.lvwThis', 'MemberName', '会员姓名', 1200, 2, 'Y', ''),
  ('frmMemberList.lvwThis', 'State', '状态', 800, 3, 'Y', '1,0可用|1停用'),
  ('frmMemberList.lvwThis', 'birthday', '生日', 1700, 4, 'Y', '2,A'),
  ('frmMemberList.lvwThis', 'Sex', '性别', 600, 5, 'Y', ''),
  ('frmMemberList.lvwThis', 'chongzhi', '储卡余额', 1200, 6, 'Y', '3,￥#,##0'),
  ('frmMemberList.lvwThis', 'AddDate', '登记日期', 1700, 7, 'Y', '2,A'),
  ('frmMemberList.lvwThis', 'SetupName', '会员等级', 1200, 8, 'Y', ''),
  ('frmMemberList.lvwThis', 'MemberValue', '积分', 900, 9, 'Y', ''),
  ('frmMemberList.lvwThis', 'sumValue', '累计消费', 1200, 10, 'Y', '3,0.00'),
  ('frmMemberList.lvwThis', 'discount', '折扣', 800, 11, 'Y', ''),
  ('frmMemberList.lvwThis', 'Nationality', '国籍', 800, 12, 'N', ''),
  ('frmMemberList.lvwThis', 'IDCard', '身份证号', 2200, 13, 'N', ''),
  ('frmMemberList.lvwThis', 'Address', '地址', 2400, 14, 'N', ''),
  ('frmMemberList.lvwThis', 'phone', '电话', 1300, 15, 'N', ''),
  ('frmMemberList.lvwThis', 'movephone', '手机', 1400, 16, 'N', ''),
  ('frmMemberList.lvwThis', 'Fax', '传真', 1300, 17, 'N', ''),
  ('frmMemberList.lvwThis', 'Postcode', '邮编', 900, 18, 'N', ''),
  ('frmMemberList.lvwThis', 'email', '邮箱', 1800, 19, 'N', ''),
  ('frmMemberList.lvwThis', 'ComName', '工作单位', 1800, 20, 'N', ''),
  ('frmMemberList.lvwThis', 'ComAddress', '单位地址', 2400, 21, 'N', ''),
  ('frmMemberList.lvwThis', 'ComPostcode', '单位邮编', 1000, 22, 'N', ''),
  ('frmMemberList.lvwThis', 'TheFunction', '职务', 1000, 23, 'N', ''),
  ('frmMemberList.lvwThis', 'Description', '备注', 2000, 24, 'N', ''),
  ('frmMemberList.lvwThis', 'sms', '短信号码', 1400, 25, 'N', ''),
  ('frmMemberList.lvwThis', 'pw', '密码', 1000, 26, 'N', ''),
  ('frmMemberList.lvwThis', 'SetupID', '会员等级ID', 1500, 27, 'N', ''),
  ('frmMemberList.lvwThis', 'ThisPhoto', '照片', 1000, 28, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmMemberList 充值记录
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmMemberList.lvwChongzhi', 'OperatorTime', '充值时间', 2300, 1, 'Y', '2,H'),
  ('frmMemberList.lvwChongzhi', 'thismemoney', '充值金额', 1200, 2, 'Y', '3,0.00'),
  ('frmMemberList.lvwChongzhi', 'factpay', '实收金额', 1200, 3, 'Y', '3,0.00'),
  ('frmMemberList.lvwChongzhi', 'operatorname', '操作员', 1100, 4, 'Y', ''),
  ('frmMemberList.lvwChongzhi', 'Description', '备注', 2000, 5, 'Y', ''),
  ('frmMemberList.lvwChongzhi', 'chongzhiid', '充值单号', 1800, 6, 'N', ''),
  ('frmMemberList.lvwChongzhi', 'MemberCode', '会员编号', 1200, 7, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmMemberList 储卡消费记录
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmMemberList.lvwExpense', 'CloseTime', '结帐时间', 2300, 1, 'Y', '2,H'),
  ('frmMemberList.lvwExpense', 'ExpenseID', '单据号', 1800, 2, 'Y', ''),
  ('frmMemberList.lvwExpense', 'markerCode', '手写单号', 1100, 3, 'Y', ''),
  ('frmMemberList.lvwExpense', 'chongzhipay', '储卡支付', 1100, 4, 'Y', '3,0.00'),
  ('frmMemberList.lvwExpense', 'factpay', '实收金额', 1200, 5, 'Y', '3,0.00'),
  ('frmMemberList.lvwExpense', 'oughtMoney', '应收金额', 1200, 6, 'Y', '3,0.00'),
  ('frmMemberList.lvwExpense', 'CloseOperator', '收银员', 1100, 7, 'Y', ''),
  ('frmMemberList.lvwExpense', 'CloseDesc', '结帐备注', 2000, 8, 'Y', ''),
  ('frmMemberList.lvwExpense', 'TheID', '包厢ID', 1500, 9, 'N', ''),
  ('frmMemberList.lvwExpense', 'PayLevelID', '计费标准ID', 1500, 10, 'N', ''),
  ('frmMemberList.lvwExpense', 'payLevelType', '开单计费方式', 1300, 11, 'N', '1,0固定费率|1按时计费'),
  ('frmMemberList.lvwExpense', 'IsUseMinMoney', '启用最低消费', 1300, 12, 'N', '1,0否|1是'),
  ('frmMemberList.lvwExpense', 'oldMoney', '原包厢费', 1100, 13, 'N', '3,0.00'),
  ('frmMemberList.lvwExpense', 'OpenTime', '开单时间', 2300, 14, 'N', '2,H'),
  ('frmMemberList.lvwExpense', 'State', '单据状态', 1000, 15, 'N', '1,0已结帐|1消费中'),
  ('frmMemberList.lvwExpense', 'VoucherState', '结帐方式', 1000, 16, 'N', '1,0现结|1免单|2挂帐'),
  ('frmMemberList.lvwExpense', 'Description', '开单备注', 2000, 17, 'N', ''),
  ('frmMemberList.lvwExpense', 'openOperator', '开单人', 1100, 18, 'N', ''),
  ('frmMemberList.lvwExpense', 'CustomerNum', '顾客人数', 1000, 19, 'N', ''),
  ('frmMemberList.lvwExpense', 'CustomerCode', '会员编号', 1200, 20, 'N', ''),
  ('frmMemberList.lvwExpense', 'StartMoney', '门票', 1000, 21, 'N', '3,0.00'),
  ('frmMemberList.lvwExpense', 'jzr', '结帐人', 1100, 22, 'N', ''),
  ('frmMemberList.lvwExpense', 'theMoney', '包厢费', 1100, 23, 'N', '3,0.00'),
  ('frmMemberList.lvwExpense', 'ExpenseMoney', '消费金额', 1200, 24, 'N', '3,0.00'),
  ('frmMemberList.lvwExpense', 'NoMoney', '优惠金额', 1100, 25, 'N', '3,0.00'),
  ('frmMemberList.lvwExpense', 'freepay', '赠券支付', 1100, 26, 'N', '3,0.00'),
  ('frmMemberList.lvwExpense', 'CashPay', '现金支付', 1100, 27, 'N', '3,0.00'),
  ('frmMemberList.lvwExpense', 'chongzhiIDCare', '储卡会员', 1200, 28, 'N', ''),
  ('frmMemberList.lvwExpense', 'Income', '利润', 1100, 29, 'N', '3,0.00'),
  ('frmMemberList.lvwExpense', 'CheckForm', '已对帐', 900, 30, 'N', ''),
  ('frmMemberList.lvwExpense', 'Other2', '已打印', 900, 31, 'N', '1,0|1已打印')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmChongzhiList 充值记录
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmChongzhiList.lvwThis', 'chongzhiid', '充值单号', 0, 1, 'Y', ''),
  ('frmChongzhiList.lvwThis', 'OperatorTime', '充值时间', 2300, 2, 'Y', '2,H'),
  ('frmChongzhiList.lvwThis', 'MemberCode', '会员编号', 1200, 3, 'Y', ''),
  ('frmChongzhiList.lvwThis', 'membername', '会员姓名', 1200, 4, 'Y', ''),
  ('frmChongzhiList.lvwThis', 'factpay', '实收金额', 1200, 5, 'Y', '3,0.00'),
  ('frmChongzhiList.lvwThis', 'thismemoney', '充值金额', 1200, 6, 'Y', '3,0.00'),
  ('frmChongzhiList.lvwThis', 'operatorname', '操作员', 1100, 7, 'Y', ''),
  ('frmChongzhiList.lvwThis', 'Description', '备注', 2000, 8, 'Y', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmEmployeeList 员工
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmEmployeeList.lvwThis', 'EmployeeID', '员工ID', 0, 1, 'Y', ''),
  ('frmEmployeeList.lvwThis', 'Employeecode', '员工编号', 1100, 2, 'Y', ''),
  ('frmEmployeeList.lvwThis', 'EmployeeName', '姓名', 1100, 3, 'Y', ''),
  ('frmEmployeeList.lvwThis', 'Sex', '性别', 600, 4, 'Y', ''),
  ('frmEmployeeList.lvwThis', 'State', '在职状态', 1000, 5, 'Y', '1,0在职|1停职'),
  ('frmEmployeeList.lvwThis', 'EmployeeBorn', '生日', 1700, 6, 'Y', '2,A'),
  ('frmEmployeeList.lvwThis', 'EmployeePhone', '电话', 1300, 7, 'Y', ''),
  ('frmEmployeeList.lvwThis', 'movephone', '手机', 1400, 8, 'Y', ''),
  ('frmEmployeeList.lvwThis', 'IDCard', '身份证号', 2200, 9, 'Y', ''),
  ('frmEmployeeList.lvwThis', 'EmployeeAddress', '地址', 2400, 10, 'Y', ''),
  ('frmEmployeeList.lvwThis', 'EmployeeDesc', '备注说明', 2000, 11, 'Y', ''),
  ('frmEmployeeList.lvwThis', 'email', '邮箱', 1800, 12, 'N', ''),
  ('frmEmployeeList.lvwThis', 'Fax', '传真', 1300, 13, 'N', ''),
  ('frmEmployeeList.lvwThis', 'Postcode', '邮编', 900, 14, 'N', ''),
  ('frmEmployeeList.lvwThis', 'ThisPhoto', '照片', 1000, 15, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmSupplierList 供应商
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmSupplierList.lvwThis', 'SupplierID', '供应商ID', 0, 1, 'Y', ''),
  ('frmSupplierList.lvwThis', 'SupplierName', '供应商名称', 2000, 2, 'Y', ''),
  ('frmSupplierList.lvwThis', 'linkmanname', '联系人', 1100, 3, 'Y', ''),
  ('frmSupplierList.lvwThis', 'phone', '电话', 1300, 4, 'Y', ''),
  ('frmSupplierList.lvwThis', 'movephone', '手机', 1400, 5, 'Y', ''),
  ('frmSupplierList.lvwThis', 'tax', '传真', 1300, 6, 'Y', ''),
  ('frmSupplierList.lvwThis', 'Address', '地址', 2400, 7, 'Y', ''),
  ('frmSupplierList.lvwThis', 'thememo', '说明', 2000, 8, 'Y', ''),
  ('frmSupplierList.lvwThis', 'PrincipalName', '负责人', 1100, 9, 'N', ''),
  ('frmSupplierList.lvwThis', 'Principalphone', '负责人电话', 1300, 10, 'N', ''),
  ('frmSupplierList.lvwThis', 'Principalmovephone', '负责人手机', 1400, 11, 'N', ''),
  ('frmSupplierList.lvwThis', 'email', '邮箱', 1800, 12, 'N', ''),
  ('frmSupplierList.lvwThis', 'QQ', 'QQ号码', 1200, 13, 'N', ''),
  ('frmSupplierList.lvwThis', 'msn', 'MSN账号', 1800, 14, 'N', ''),
  ('frmSupplierList.lvwThis', 'WEb', '网址', 2000, 15, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmWareInList 进货单
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmWareInList.lvwThis', 'wareInID', '进货单ID', 0, 1, 'Y', ''),
  ('frmWareInList.lvwThis', 'InTime', '进货日期', 1700, 2, 'Y', '2,A'),
  ('frmWareInList.lvwThis', 'TheCode', '单据编号', 1300, 3, 'Y', ''),
  ('frmWareInList.lvwThis', 'thejb', '经办人', 1100, 4, 'Y', ''),
  ('frmWareInList.lvwThis', 'createname', '制单人', 1100, 5, 'Y', ''),
  ('frmWareInList.lvwThis', 'theDesc', '备注', 2000, 6, 'Y', ''),
  ('frmWareInList.lvwThis', 'SupplierID', '供应商ID', 1500, 7, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmWareInList 进货明细
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmWareInList.lvwWareinList', 'InTime', '进货日期', 1700, 1, 'Y', '2,A'),
  ('frmWareInList.lvwWareinList', 'TheCode', '单据编号', 1300, 2, 'Y', ''),
  ('frmWareInList.lvwWareinList', 'WareName', '商品名称', 1800, 3, 'Y', ''),
  ('frmWareInList.lvwWareinList', 'wareUnit', '单位', 700, 4, 'Y', ''),
  ('frmWareInList.lvwWareinList', 'num', '数量', 800, 5, 'Y', ''),
  ('frmWareInList.lvwWareinList', 'Price', '进价', 1000, 6, 'Y', '3,0.00'),
  ('frmWareInList.lvwWareinList', 'theMoney', '金额', 1100, 7, 'Y', '3,0.00'),
  ('frmWareInList.lvwWareinList', 'thejb', '经办人', 1100, 8, 'Y', ''),
  ('frmWareInList.lvwWareinList', 'wareDesc', '备注', 1800, 9, 'Y', ''),
  ('frmWareInList.lvwWareinList', 'WareInListID', '进货明细ID', 1500, 10, 'N', ''),
  ('frmWareInList.lvwWareinList', 'wareInID', '进货单ID', 1500, 11, 'N', ''),
  ('frmWareInList.lvwWareinList', 'WareID', '商品ID', 1500, 12, 'N', ''),
  ('frmWareInList.lvwWareinList', 'SupplierID', '供应商ID', 1500, 13, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmWareInList 选定进货单的商品
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmWareInList.lvwList', 'WareName', '商品名称', 1800, 1, 'Y', ''),
  ('frmWareInList.lvwList', 'wareUnit', '单位', 700, 2, 'Y', ''),
  ('frmWareInList.lvwList', 'num', '数量', 800, 3, 'Y', ''),
  ('frmWareInList.lvwList', 'Price', '进价', 1000, 4, 'Y', '3,0.00'),
  ('frmWareInList.lvwList', 'theMoney', '金额', 1100, 5, 'Y', '3,0.00'),
  ('frmWareInList.lvwList', 'wareDesc', '备注', 1800, 6, 'Y', ''),
  ('frmWareInList.lvwList', 'WareInListID', '进货明细ID', 1500, 7, 'N', ''),
  ('frmWareInList.lvwList', 'wareInID', '进货单ID', 1500, 8, 'N', ''),
  ('frmWareInList.lvwList', 'WareID', '商品ID', 1500, 9, 'N', ''),
  ('frmWareInList.lvwList', 'SupplierID', '供应商ID', 1500, 10, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmWareLossList 报溢报损单
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmWareLossList.lvwThis', 'WareLossID', '报溢报损单ID', 0, 1, 'Y', ''),
  ('frmWareLossList.lvwThis', 'InTime', '日期', 1700, 2, 'Y', '2,A'),
  ('frmWareLossList.lvwThis', 'TheCode', '编号', 1300, 3, 'Y', ''),
  ('frmWareLossList.lvwThis', 'thejb', '经办人', 1100, 4, 'Y', ''),
  ('frmWareLossList.lvwThis', 'createname', '制单人', 1100, 5, 'Y', ''),
  ('frmWareLossList.lvwThis', 'theDesc', '备注', 2000, 6, 'Y', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmWareLossList 报溢报损明细
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmWareLossList.lvwWareinList', 'InTime', '日期', 1700, 1, 'Y', '2,A'),
  ('frmWareLossList.lvwWareinList', 'TheCode', '编号', 1300, 2, 'Y', ''),
  ('frmWareLossList.lvwWareinList', 'WareName', '商品名称', 1800, 3, 'Y', ''),
  ('frmWareLossList.lvwWareinList', 'wareUnit', '单位', 700, 4, 'Y', ''),
  ('frmWareLossList.lvwWareinList', 'num', '数量', 800, 5, 'Y', ''),
  ('frmWareLossList.lvwWareinList', 'Price', '单价', 1000, 6, 'Y', '3,0.00'),
  ('frmWareLossList.lvwWareinList', 'theMoney', '金额', 1100, 7, 'Y', '3,0.00'),
  ('frmWareLossList.lvwWareinList', 'thejb', '经办人', 1100, 8, 'Y', ''),
  ('frmWareLossList.lvwWareinList', 'wareDesc', '备注', 1800, 9, 'Y', ''),
  ('frmWareLossList.lvwWareinList', 'WareLossListID', '明细ID', 1500, 10, 'N', ''),
  ('frmWareLossList.lvwWareinList', 'WareLossID', '报溢报损单ID', 1500, 11, 'N', ''),
  ('frmWareLossList.lvwWareinList', 'WareID', '商品ID', 1500, 12, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmWareLossList 选定单据的商品
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmWareLossList.lvwList', 'WareName', '商品名称', 1800, 1, 'Y', ''),
  ('frmWareLossList.lvwList', 'wareUnit', '单位', 700, 2, 'Y', ''),
  ('frmWareLossList.lvwList', 'num', '数量', 800, 3, 'Y', ''),
  ('frmWareLossList.lvwList', 'Price', '单价', 1000, 4, 'Y', '3,0.00'),
  ('frmWareLossList.lvwList', 'theMoney', '金额', 1100, 5, 'Y', '3,0.00'),
  ('frmWareLossList.lvwList', 'wareDesc', '备注', 1800, 6, 'Y', ''),
  ('frmWareLossList.lvwList', 'WareLossListID', '明细ID', 1500, 7, 'N', ''),
  ('frmWareLossList.lvwList', 'WareLossID', '报溢报损单ID', 1500, 8, 'N', ''),
  ('frmWareLossList.lvwList', 'WareID', '商品ID', 1500, 9, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmFind 包厢帐单
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmFind.lvwExpense', 'ExpenseID', '单据号', 0, 1, 'Y', ''),
  ('frmFind.lvwExpense', 'markerCode', '手写单号', 1100, 2, 'Y', ''),
  ('frmFind.lvwExpense', 'TheCode', '包厢号', 1000, 3, 'Y', ''),
  ('frmFind.lvwExpense', 'OpenTime', '开单时间', 2300, 4, 'Y', '2,H'),
  ('frmFind.lvwExpense', 'openOperator', '开单人', 1100, 5, 'Y', ''),
  ('frmFind.lvwExpense', 'CloseTime', '结帐时间', 2300, 6, 'Y', '2,H'),
  ('frmFind.lvwExpense', 'CloseOperator', '收银员', 1100, 7, 'Y', ''),
  ('frmFind.lvwExpense', 'CustomerNum', '顾客人数', 1000, 8, 'Y', ''),
  ('frmFind.lvwExpense', 'StartMoney', '门票', 1000, 9, 'Y', '3,0.00'),
  ('frmFind.lvwExpense', 'VoucherState', '结帐方式', 1000, 10, 'Y', '1,0现结|1免单|2挂帐'),
  ('frmFind.lvwExpense', 'theMoney', '包厢费', 1100, 11, 'Y', '3,0.00'),
  ('frmFind.lvwExpense', 'oughtMoney', '应收金额', 1200, 12, 'Y', '3,0.00'),
  ('frmFind.lvwExpense', 'factpay', '实收金额', 1200, 13, 'Y', '3,0.00'),
  ('frmFind.lvwExpense', 'CashPay', '现金支付', 1100, 14, 'Y', '3,0.00'),
  ('frmFind.lvwExpense', 'chongzhipay', '储卡支付', 1100, 15, 'Y', '3,0.00'),
  ('frmFind.lvwExpense', 'freepay', '赠券支付', 1100, 16, 'Y', '3,0.00'),
  ('frmFind.lvwExpense', 'Description', '开单备注', 2000, 17, 'Y', ''),
  ('frmFind.lvwExpense', 'CloseDesc', '结帐备注', 2000, 18, 'Y', ''),
  ('frmFind.lvwExpense', 'TheID', '包厢ID', 1500, 19, 'N', ''),
  ('frmFind.lvwExpense', 'PayLevelID', '计费标准ID', 1500, 20, 'N', ''),
  ('frmFind.lvwExpense', 'payLevelType', '开单计费方式', 1300, 21, 'N', '1,0固定费率|1按时计费'),
  ('frmFind.lvwExpense', 'IsUseMinMoney', '启用最低消费', 1300, 22, 'N', '1,0否|1是'),
  ('frmFind.lvwExpense', 'oldMoney', '原包厢费', 1100, 23, 'N', '3,0.00'),
  ('frmFind.lvwExpense', 'State', '单据状态', 1000, 24, 'N', '1,0已结帐|1消费中'),
  ('frmFind.lvwExpense', 'CustomerCode', '会员编号', 1200, 25, 'N', ''),
  ('frmFind.lvwExpense', 'jzr', '结帐人', 1100, 26, 'N', ''),
  ('frmFind.lvwExpense', 'ExpenseMoney', '消费金额', 1200, 27, 'N', '3,0.00'),
  ('frmFind.lvwExpense', 'NoMoney', '优惠金额', 1100, 28, 'N', '3,0.00'),
  ('frmFind.lvwExpense', 'chongzhiIDCare', '储卡会员', 1200, 29, 'N', ''),
  ('frmFind.lvwExpense', 'Income', '利润', 1100, 30, 'N', '3,0.00'),
  ('frmFind.lvwExpense', 'CheckForm', '已对帐', 900, 31, 'N', ''),
  ('frmFind.lvwExpense', 'Other2', '已打印', 900, 32, 'N', '1,0|1已打印'),
  ('frmFind.lvwExpense', 'AssortName', '包厢类型', 1200, 33, 'N', ''),
  ('frmFind.lvwExpense', 'PayLevelName', '计费标准', 1400, 34, 'N', ''),
  ('frmFind.lvwExpense', 'PayType', '计费类型', 1100, 35, 'N', '1,0固定费率|1按时计费'),
  ('frmFind.lvwExpense', 'MinMoney', '最低消费', 1100, 36, 'N', '3,0.00')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmFind 帐单明细
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmFind.lvwDetail', 'ExpenseTime', '点单时间', 2300, 1, 'Y', '2,H'),
  ('frmFind.lvwDetail', 'WareCode', '商品编号', 1100, 2, 'Y', ''),
  ('frmFind.lvwDetail', 'WareName', '商品名称', 1800, 3, 'Y', ''),
  ('frmFind.lvwDetail', 'num', '数量', 800, 4, 'Y', ''),
  ('frmFind.lvwDetail', 'Price', '单价', 1000, 5, 'Y', '3,0.00'),
  ('frmFind.lvwDetail', 'ExpenseMoney', '金额', 1100, 6, 'Y', '3,0.00'),
  ('frmFind.lvwDetail', 'oughtMoney', '应收金额', 1100, 7, 'Y', '3,0.00'),
  ('frmFind.lvwDetail', 'isFree', '赠送', 700, 8, 'Y', '1,0|1赠送'),
  ('frmFind.lvwDetail', 'isdel', '已删除', 800, 9, 'Y', '1,0|1已删除'),
  ('frmFind.lvwDetail', 'Other1', '员工', 1100, 10, 'Y', ''),
  ('frmFind.lvwDetail', 'operatorname', '点单人', 1100, 11, 'Y', ''),
  ('frmFind.lvwDetail', 'Description', '备注', 1800, 12, 'Y', ''),
  ('frmFind.lvwDetail', 'DetailID', '明细ID', 1500, 13, 'N', ''),
  ('frmFind.lvwDetail', 'ExpenseID', '单据号', 1800, 14, 'N', ''),
  ('frmFind.lvwDetail', 'WareID', '商品ID', 1500, 15, 'N', ''),
  ('frmFind.lvwDetail', 'thePrice', '原价', 1000, 16, 'N', '3,0.00'),
  ('frmFind.lvwDetail', 'Income', '利润', 1000, 17, 'N', '3,0.00'),
  ('frmFind.lvwDetail', 'TiChengMoney', '提成', 1000, 18, 'N', '3,0.00'),
  ('frmFind.lvwDetail', 'ThisCode', '点单批次', 1500, 19, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmFind 外卖单
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmFind.lvwOutSale', 'ExpenseID', '销售单号', 1600, 1, 'Y', ''),
  ('frmFind.lvwOutSale', 'OpenTime', '开单时间', 2300, 2, 'Y', '2,H'),
  ('frmFind.lvwOutSale', 'openOperator', '开单人', 1100, 3, 'Y', ''),
  ('frmFind.lvwOutSale', 'oughtMoney', '应收金额', 1200, 4, 'Y', '3,0.00'),
  ('frmFind.lvwOutSale', 'factpay', '实收金额', 1200, 5, 'Y', '3,0.00'),
  ('frmFind.lvwOutSale', 'Description', '备注', 2000, 6, 'Y', ''),
  ('frmFind.lvwOutSale', 'CloseTime', '结帐时间', 2300, 7, 'N', '2,H'),
  ('frmFind.lvwOutSale', 'CloseOperator', '收银员', 1100, 8, 'N', ''),
  ('frmFind.lvwOutSale', 'State', '状态', 800, 9, 'N', ''),
  ('frmFind.lvwOutSale', 'VoucherState', '结帐方式', 1000, 10, 'N', '1,0现结|1免单|2挂帐'),
  ('frmFind.lvwOutSale', 'ExpenseMoney', '消费金额', 1200, 11, 'N', '3,0.00'),
  ('frmFind.lvwOutSale', 'NoMoney', '优惠金额', 1100, 12, 'N', '3,0.00'),
  ('frmFind.lvwOutSale', 'CashPay', '现金支付', 1100, 13, 'N', '3,0.00'),
  ('frmFind.lvwOutSale', 'Income', '利润', 1100, 14, 'N', '3,0.00'),
  ('frmFind.lvwOutSale', 'CheckForm', '已对帐', 900, 15, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmFind 外卖明细
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmFind.lvwOutSaleDetail', 'WareCode', '商品编号', 1100, 1, 'Y', ''),
  ('frmFind.lvwOutSaleDetail', 'WareName', '商品名称', 1800, 2, 'Y', ''),
  ('frmFind.lvwOutSaleDetail', 'num', '数量', 800, 3, 'Y', ''),
  ('frmFind.lvwOutSaleDetail', 'Price', '单价', 1000, 4, 'Y', '3,0.00'),
  ('frmFind.lvwOutSaleDetail', 'oughtMoney', '应收金额', 1100, 5, 'Y', '3,0.00'),
  ('frmFind.lvwOutSaleDetail', 'isFree', '赠送', 700, 6, 'Y', '1,0|1赠送'),
  ('frmFind.lvwOutSaleDetail', 'isdel', '已删除', 800, 7, 'Y', '1,0|1已删除'),
  ('frmFind.lvwOutSaleDetail', 'DetailID', '明细ID', 1500, 8, 'N', ''),
  ('frmFind.lvwOutSaleDetail', 'ExpenseID', '单据号', 1800, 9, 'N', ''),
  ('frmFind.lvwOutSaleDetail', 'WareID', '商品ID', 1500, 10, 'N', ''),
  ('frmFind.lvwOutSaleDetail', 'thePrice', '原价', 1000, 11, 'N', '3,0.00'),
  ('frmFind.lvwOutSaleDetail', 'ExpenseMoney', '金额', 1100, 12, 'N', '3,0.00'),
  ('frmFind.lvwOutSaleDetail', 'Income', '利润', 1000, 13, 'N', '3,0.00')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmFindIncome 包厢帐单利润
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmFindIncome.lvwExpense', 'ExpenseID', '单据号', 0, 1, 'Y', ''),
  ('frmFindIncome.lvwExpense', 'OpenTime', '开单时间', 2300, 2, 'Y', '2,H'),
  ('frmFindIncome.lvwExpense', 'CloseTime', '结帐时间', 2300, 3, 'Y', '2,H'),
  ('frmFindIncome.lvwExpense', 'CloseOperator', '收银员', 1100, 4, 'Y', ''),
  ('frmFindIncome.lvwExpense', 'CustomerNum', '顾客人数', 1000, 5, 'Y', ''),
  ('frmFindIncome.lvwExpense', 'VoucherState', '结帐方式', 1000, 6, 'Y', '1,0现结|1免单|2挂帐'),
  ('frmFindIncome.lvwExpense', 'StartMoney', '门票', 1000, 7, 'Y', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'theMoney', '包厢费', 1100, 8, 'Y', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'oughtMoney', '应收金额', 1200, 9, 'Y', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'factpay', '实收金额', 1200, 10, 'Y', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'Income', '利润', 1100, 11, 'Y', '3,￥0.00'),
  ('frmFindIncome.lvwExpense', 'CloseDesc', '结帐备注', 2000, 12, 'Y', ''),
  ('frmFindIncome.lvwExpense', 'TheID', '包厢ID', 1500, 13, 'N', ''),
  ('frmFindIncome.lvwExpense', 'PayLevelID', '计费标准ID', 1500, 14, 'N', ''),
  ('frmFindIncome.lvwExpense', 'payLevelType', '开单计费方式', 1300, 15, 'N', '1,0固定费率|1按时计费'),
  ('frmFindIncome.lvwExpense', 'IsUseMinMoney', '启用最低消费', 1300, 16, 'N', '1,0否|1是'),
  ('frmFindIncome.lvwExpense', 'oldMoney', '原包厢费', 1100, 17, 'N', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'State', '单据状态', 1000, 18, 'N', '1,0已结帐|1消费中'),
  ('frmFindIncome.lvwExpense', 'Description', '开单备注', 2000, 19, 'N', ''),
  ('frmFindIncome.lvwExpense', 'openOperator', '开单人', 1100, 20, 'N', ''),
  ('frmFindIncome.lvwExpense', 'CustomerCode', '会员编号', 1200, 21, 'N', ''),
  ('frmFindIncome.lvwExpense', 'markerCode', '手写单号', 1100, 22, 'N', ''),
  ('frmFindIncome.lvwExpense', 'jzr', '结帐人', 1100, 23, 'N', ''),
  ('frmFindIncome.lvwExpense', 'ExpenseMoney', '消费金额', 1200, 24, 'N', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'NoMoney', '优惠金额', 1100, 25, 'N', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'freepay', '赠券支付', 1100, 26, 'N', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'CashPay', '现金支付', 1100, 27, 'N', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'chongzhipay', '储卡支付', 1100, 28, 'N', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'chongzhiIDCare', '储卡会员', 1200, 29, 'N', ''),
  ('frmFindIncome.lvwExpense', 'CheckForm', '已对帐', 900, 30, 'N', ''),
  ('frmFindIncome.lvwExpense', 'Other2', '已打印', 900, 31, 'N', '1,0|1已打印'),
  ('frmFindIncome.lvwExpense', 'AssortName', '包厢类型', 1200, 32, 'N', ''),
  ('frmFindIncome.lvwExpense', 'PayLevelName', '计费标准', 1400, 33, 'N', ''),
  ('frmFindIncome.lvwExpense', 'PayType', '计费类型', 1100, 34, 'N', '1,0固定费率|1按时计费'),
  ('frmFindIncome.lvwExpense', 'MinMoney', '最低消费', 1100, 35, 'N', '3,0.00'),
  ('frmFindIncome.lvwExpense', 'TheCode', '包厢号', 1000, 36, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmFindIncome 外卖利润
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmFindIncome.lvwOutSale', 'ExpenseID', '销售单号', 1600, 1, 'Y', ''),
  ('frmFindIncome.lvwOutSale', 'CloseTime', '结帐时间', 2300, 2, 'Y', '2,H'),
  ('frmFindIncome.lvwOutSale', 'CloseOperator', '收银员', 1100, 3, 'Y', ''),
  ('frmFindIncome.lvwOutSale', 'oughtMoney', '应收金额', 1200, 4, 'Y', '3,0.00'),
  ('frmFindIncome.lvwOutSale', 'factpay', '实收金额', 1200, 5, 'Y', '3,0.00'),
  ('frmFindIncome.lvwOutSale', 'Income', '利润', 1100, 6, 'Y', '3,￥0.00'),
  ('frmFindIncome.lvwOutSale', 'Description', '备注', 2000, 7, 'Y', ''),
  ('frmFindIncome.lvwOutSale', 'OpenTime', '开单时间', 2300, 8, 'N', '2,H'),
  ('frmFindIncome.lvwOutSale', 'openOperator', '开单人', 1100, 9, 'N', ''),
  ('frmFindIncome.lvwOutSale', 'State', '状态', 800, 10, 'N', ''),
  ('frmFindIncome.lvwOutSale', 'VoucherState', '结帐方式', 1000, 11, 'N', '1,0现结|1免单|2挂帐'),
  ('frmFindIncome.lvwOutSale', 'ExpenseMoney', '消费金额', 1200, 12, 'N', '3,0.00'),
  ('frmFindIncome.lvwOutSale', 'NoMoney', '优惠金额', 1100, 13, 'N', '3,0.00'),
  ('frmFindIncome.lvwOutSale', 'CashPay', '现金支付', 1100, 14, 'N', '3,0.00'),
  ('frmFindIncome.lvwOutSale', 'CheckForm', '已对帐', 900, 15, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmBusReorder 商品排行
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmBusReorder.lvwWare', 'WareName', '商品名称', 1800, 1, 'Y', ''),
  ('frmBusReorder.lvwWare', 'Num', '数量', 900, 2, 'Y', ''),
  ('frmBusReorder.lvwWare', 'OughtMoney', '金额', 1200, 3, 'Y', '3,0.00'),
  ('frmBusReorder.lvwWare', 'WareID', '商品ID', 1500, 4, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmBusReorder 分类排行
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmBusReorder.lvwWareType', 'WareTypeName', '商品分类', 1500, 1, 'Y', ''),
  ('frmBusReorder.lvwWareType', 'Num', '数量', 900, 2, 'Y', ''),
  ('frmBusReorder.lvwWareType', 'OughtMoney', '金额', 1200, 3, 'Y', '3,0.00'),
  ('frmBusReorder.lvwWareType', 'WareTypeID', '分类编号', 1100, 4, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmBusReorder 员工提成
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmBusReorder.lvwSteward', 'WareName', '商品名称', 1800, 1, 'Y', ''),
  ('frmBusReorder.lvwSteward', 'Num', '数量', 900, 2, 'Y', ''),
  ('frmBusReorder.lvwSteward', 'OughtMoney', '金额', 1200, 3, 'Y', '3,0.00'),
  ('frmBusReorder.lvwSteward', 'Other1', '员工', 1100, 4, 'Y', ''),
  ('frmBusReorder.lvwSteward', 'TiChengMoney', '提成', 1100, 5, 'Y', '3,0.00'),
  ('frmBusReorder.lvwSteward', 'WareID', '商品ID', 1500, 6, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmChart 统计表
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmChart.lvwExpense', 'CloseTime', '日期', 1400, 1, 'Y', ''),
  ('frmChart.lvwExpense', 'ExpenseMoney', '消费金额', 1300, 2, 'Y', '3,0'),
  ('frmChart.lvwExpense', 'FactPay', '实收金额', 1300, 3, 'Y', '3,0'),
  ('frmChart.lvwExpense', 'Income', '利润', 1300, 4, 'Y', '3,0')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmCheckForm 未对帐的包厢帐单
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmCheckForm.lvwThis', 'ExpenseID', '单据号', 0, 1, 'Y', ''),
  ('frmCheckForm.lvwThis', 'markerCode', '手写单号', 1100, 2, 'Y', ''),
  ('frmCheckForm.lvwThis', 'CloseTime', '结帐时间', 1400, 3, 'Y', '2,J'),
  ('frmCheckForm.lvwThis', 'factpay', '实收金额', 1200, 4, 'Y', '3,0.00'),
  ('frmCheckForm.lvwThis', 'CashPay', '现金支付', 1100, 5, 'Y', '3,0.00'),
  ('frmCheckForm.lvwThis', 'freepay', '赠券支付', 1100, 6, 'Y', '3,0.00'),
  ('frmCheckForm.lvwThis', 'TheID', '包厢ID', 1500, 7, 'N', ''),
  ('frmCheckForm.lvwThis', 'PayLevelID', '计费标准ID', 1500, 8, 'N', ''),
  ('frmCheckForm.lvwThis', 'payLevelType', '开单计费方式', 1300, 9, 'N', '1,0固定费率|1按时计费'),
  ('frmCheckForm.lvwThis', 'IsUseMinMoney', '启用最低消费', 1300, 10, 'N', '1,0否|1是'),
  ('frmCheckForm.lvwThis', 'oldMoney', '原包厢费', 1100, 11, 'N', '3,0.00'),
  ('frmCheckForm.lvwThis', 'OpenTime', '开单时间', 2300, 12, 'N', '2,H'),
  ('frmCheckForm.lvwThis', 'State', '单据状态', 1000, 13, 'N', '1,0已结帐|1消费中'),
  ('frmCheckForm.lvwThis', 'VoucherState', '结帐方式', 1000, 14, 'N', '1,0现结|1免单|2挂帐'),
  ('frmCheckForm.lvwThis', 'Description', '开单备注', 2000, 15, 'N', ''),
  ('frmCheckForm.lvwThis', 'CloseDesc', '结帐备注', 2000, 16, 'N', ''),
  ('frmCheckForm.lvwThis', 'openOperator', '开单人', 1100, 17, 'N', ''),
  ('frmCheckForm.lvwThis', 'CloseOperator', '收银员', 1100, 18, 'N', ''),
  ('frmCheckForm.lvwThis', 'CustomerNum', '顾客人数', 1000, 19, 'N', ''),
  ('frmCheckForm.lvwThis', 'CustomerCode', '会员编号', 1200, 20, 'N', ''),
  ('frmCheckForm.lvwThis', 'StartMoney', '门票', 1000, 21, 'N', '3,0.00'),
  ('frmCheckForm.lvwThis', 'jzr', '结帐人', 1100, 22, 'N', ''),
  ('frmCheckForm.lvwThis', 'theMoney', '包厢费', 1100, 23, 'N', '3,0.00'),
  ('frmCheckForm.lvwThis', 'ExpenseMoney', '消费金额', 1200, 24, 'N', '3,0.00'),
  ('frmCheckForm.lvwThis', 'oughtMoney', '应收金额', 1200, 25, 'N', '3,0.00'),
  ('frmCheckForm.lvwThis', 'NoMoney', '优惠金额', 1100, 26, 'N', '3,0.00'),
  ('frmCheckForm.lvwThis', 'chongzhipay', '储卡支付', 1100, 27, 'N', '3,0.00'),
  ('frmCheckForm.lvwThis', 'chongzhiIDCare', '储卡会员', 1200, 28, 'N', ''),
  ('frmCheckForm.lvwThis', 'Income', '利润', 1100, 29, 'N', '3,0.00'),
  ('frmCheckForm.lvwThis', 'CheckForm', '已对帐', 900, 30, 'N', ''),
  ('frmCheckForm.lvwThis', 'Other2', '已打印', 900, 31, 'N', '1,0|1已打印')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmCheckForm 未对帐的外卖单
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmCheckForm.lvwOutSale', 'ExpenseID', '销售单号', 1600, 1, 'Y', ''),
  ('frmCheckForm.lvwOutSale', 'CloseTime', '结帐时间', 1400, 2, 'Y', '2,J'),
  ('frmCheckForm.lvwOutSale', 'factpay', '实收金额', 1200, 3, 'Y', '3,0.00'),
  ('frmCheckForm.lvwOutSale', 'CashPay', '现金支付', 1100, 4, 'Y', '3,0.00'),
  ('frmCheckForm.lvwOutSale', 'OpenTime', '开单时间', 2300, 5, 'N', '2,H'),
  ('frmCheckForm.lvwOutSale', 'Description', '备注', 2000, 6, 'N', ''),
  ('frmCheckForm.lvwOutSale', 'openOperator', '开单人', 1100, 7, 'N', ''),
  ('frmCheckForm.lvwOutSale', 'CloseOperator', '收银员', 1100, 8, 'N', ''),
  ('frmCheckForm.lvwOutSale', 'State', '状态', 800, 9, 'N', ''),
  ('frmCheckForm.lvwOutSale', 'VoucherState', '结帐方式', 1000, 10, 'N', '1,0现结|1免单|2挂帐'),
  ('frmCheckForm.lvwOutSale', 'ExpenseMoney', '消费金额', 1200, 11, 'N', '3,0.00'),
  ('frmCheckForm.lvwOutSale', 'oughtMoney', '应收金额', 1200, 12, 'N', '3,0.00'),
  ('frmCheckForm.lvwOutSale', 'NoMoney', '优惠金额', 1100, 13, 'N', '3,0.00'),
  ('frmCheckForm.lvwOutSale', 'Income', '利润', 1100, 14, 'N', '3,0.00'),
  ('frmCheckForm.lvwOutSale', 'CheckForm', '已对帐', 900, 15, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmShouyinInfo 对帐记录
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmShouyinInfo.lvwExpense', 'theid', '对帐单号', 0, 1, 'Y', ''),
  ('frmShouyinInfo.lvwExpense', 'theDate', '对帐时间', 2300, 2, 'Y', '2,H'),
  ('frmShouyinInfo.lvwExpense', 'ShouyinName', '收银员', 1100, 3, 'Y', ''),
  ('frmShouyinInfo.lvwExpense', 'theMoney', '对帐金额', 1300, 4, 'Y', '3,0.00')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmLog 系统操作日志
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmLog.lvwThis', 'Logdate', '日期', 2300, 1, 'Y', '2,H'),
  ('frmLog.lvwThis', 'theOperator', '操作员', 1100, 2, 'Y', ''),
  ('frmLog.lvwThis', 'theModel', '模块', 1100, 3, 'Y', ''),
  ('frmLog.lvwThis', 'theDoName', '操作', 1600, 4, 'Y', ''),
  ('frmLog.lvwThis', 'Dotype', '类型', 700, 5, 'Y', ''),
  ('frmLog.lvwThis', 'dook', '结果', 700, 6, 'Y', ''),
  ('frmLog.lvwThis', 'theContent', '内容', 4000, 7, 'Y', ''),
  ('frmLog.lvwThis', 'logid', '日志ID', 1500, 8, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- frmOption 商品及服务
INSERT INTO FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue)
SELECT * FROM (VALUES
  ('frmOption.lvwWare', 'WareID', '商品ID', 0, 1, 'Y', ''),
  ('frmOption.lvwWare', 'WareCode', '商品编号', 1100, 2, 'Y', ''),
  ('frmOption.lvwWare', 'WareName', '商品名称', 1800, 3, 'Y', ''),
  ('frmOption.lvwWare', 'waretypename', '商品分类', 1300, 4, 'Y', ''),
  ('frmOption.lvwWare', 'wareUnit', '单位', 700, 5, 'Y', ''),
  ('frmOption.lvwWare', 'Price', '售价', 1000, 6, 'Y', '3,0.00'),
  ('frmOption.lvwWare', 'ProcurePrice', '成本价', 1000, 7, 'Y', '3,0.00'),
  ('frmOption.lvwWare', 'nownum', '库存数量', 1000, 8, 'Y', ''),
  ('frmOption.lvwWare', 'minnum', '最低库存', 1000, 9, 'Y', ''),
  ('frmOption.lvwWare', 'tiCheng', '提成', 900, 10, 'Y', '3,0.00'),
  ('frmOption.lvwWare', 'Mnemonics', '助记符', 1000, 11, 'Y', ''),
  ('frmOption.lvwWare', 'WareTypeID', '分类编号', 1100, 12, 'N', '')
) AS v
WHERE NOT EXISTS (SELECT 1 FROM FD_FormControl f WHERE f.FormControlName = v.column1 AND f.colname = v.column2);

-- A remembered input is kept once per field.
DELETE FROM sys_AutoInput WHERE autoinputID NOT IN
  (SELECT min(autoinputID) FROM sys_AutoInput GROUP BY autoInputType, thisValue);
CREATE UNIQUE INDEX ux_autoinput_value ON sys_AutoInput (autoInputType, thisValue);
