-- Seed rows of a new venue.

INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C001', '计费标准及营业规则', '新增、修改、删除计费标准；设置全场折扣、结算金额格式及换包厢规则', 10);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C002', '包厢类型设置', '新增、修改、删除包厢类型', 20);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C003', '包厢设置', '新增、批量新增、修改、删除包厢', 30);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C004', '商品类别设置', '新增、修改、删除商品类别', 40);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C005', '商品设置', '新增、修改、删除商品；点单及外卖时快速新增商品', 50);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C006', '商品折扣时段', '设置商品的折扣时段', 60);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C007', '会员类别设置', '打开会员类别列表，新增、修改、删除会员类别', 70);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C008', '会员资料管理', '新增、修改、删除会员', 80);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C010', '顾客预订', '预订、修改、取消、删除预订', 90);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C011', '查看预订', '查看所选包厢的预订', 100);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C012', '供应商及员工管理', '新增、修改、删除供应商和员工', 110);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C013', '打印及其它设置', '保存打印、公司资料及其它设置', 120);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C015', '储值卡充值', '为会员储值卡充值', 130);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C020', '充值记录', '打开储卡充值记录', 140);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C025', '商品进货', '录入进货单', 150);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C26', '供应商列表', '打开供应商列表', 160);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C027', '进货记录', '打开进货记录列表', 170);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C028', '报损记录', '打开报损记录列表', 180);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C030', '商品报溢/报损', '录入报溢或报损单', 190);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C30', '库存查询', '打开库存情况', 200);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C040', '收银对帐', '收银员对帐', 210);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('C043', '收银对帐记录', '打开收银对帐记录', 220);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D001', '顾客开单', '为顾客开包厢', 230);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D002', '增加消费', '在未结帐单上增加消费', 240);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D003', '顾客结帐', '结帐及挂帐结算', 250);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D004', '暂停使用', '暂停包厢使用', 260);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D005', '恢复使用', '恢复包厢使用', 270);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D006', '换台', '为顾客更换包厢', 280);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D007', '免单', '将帐单作免单处理', 290);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D008', '挂帐', '将帐单作挂帐处理', 300);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D010', '并台', '合并帐单', 310);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D015', '外卖', '外卖（无包厢销售）', 320);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('D020', '赠送', '将消费项目设为赠送', 330);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('F001', '营业查询', '查询帐单', 340);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('F002', '营业利润统计', '查询营业收入及利润', 350);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('F003', '销售排行', '查询商品销售排行', 360);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('F010', '查看操作日志', '查看系统操作日志', 370);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('F012', '删除操作日志', '删除系统操作日志', 380);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('F015', '日志设置', '设置操作日志的保留规则', 390);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('F020', '统计图表', '查看营业统计图表', 400);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('S01', '操作员管理', '新增、修改、删除操作员及其权限', 410);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('S010', '导出商品', '导出商品资料', 420);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('S011', '导入商品', '导入商品资料', 430);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('S02', '数据管理', '数据备份、恢复及清除', 440);
INSERT INTO SysPuissance (SysPuissanceID, sysPuissanceName, Description, Orderby) VALUES ('S050', '数据库操作', '打开数据库升级窗口', 450);

INSERT INTO pSetup (setupname, setupvalue) VALUES ('dbver', '1');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('AllDiscount', '1');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('IsAllDiscount', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('PayMoneyFormat', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('AllowHigh2Low', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('HClose', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('LockTime', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('PrintStartBill', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('PrintEndBill', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('PrintChongzhi', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('PrintOutSale', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('PrintExpenseEndBill', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('Printer', '');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('PrinterYM', '欢迎光临');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('EndBillNum', '1');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('IndustryCategory', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('IsHC', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('PrinterHC', '');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('HCNum', '1');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('IsBT', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('PrinterBT', '');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('btNum', '1');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('IsUseWareHouse', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('IsDBBackup', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('LogType', '0');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('LogSaveNumber', '90');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('RefurbishTime', '30');
INSERT INTO pSetup (setupname, setupvalue) VALUES ('IsPrintThis', '0');

INSERT INTO CompanyInfo (CompanyName, companyaddress, phone) VALUES ('星澜KTV', '', '');
INSERT INTO PayLevel (PayLevelID, PayLevelName, Description, payType, AfterTime, Unit, NotOne, PrivilegeTime,
  start1, end1, start2, end2, start3, end3, start4, end4,
  Price1, Price2, Price3, Price4, MinMoney1, MinMoney2, MinMoney3, MinMoney4,
  PriceA1, PriceA2, PriceA3, PriceA4, MinMoneyA1, MinMoneyA2, MinMoneyA3, MinMoneyA4, MinMoney)
VALUES ('00000000000000001', '标准计费', '白天 60 元/小时，傍晚 80 元/小时，夜间 120 元/小时；买断 3 小时', 1, 5, 30, 1, 10,
  0, 12, 12, 18, 18, 24, 0, 0,
  60, 80, 120, 0, 0, 0, 0, 0,
  3, 3, 3, 0, 150, 200, 300, 0, 0);
