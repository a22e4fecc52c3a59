#include "FormProbe.h"
#include "AutoInput.h"
#include "Desktop.h"
#include "Dialect.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "ListSort.h"
#include "MessageBox.h"
#include "Schema.h"
#include "TestVenue.h"
#include "frmQNDisplayCase.h"
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

Q_DECLARE_METATYPE(QList<ListColumnDef>)

namespace {
void look(QWidget& w, const QString& name) {
    const QString dir = qEnvironmentVariable("SINGBOX_SHOTS");
    if (dir.isEmpty()) return;
    QDir().mkpath(dir);
    w.grab().save(QDir(dir).filePath(name + QStringLiteral(".png")));
}

ListColumnDef col(const QString& name, const QString& title, int width = 1000, bool show = true,
                  const QString& rule = {}) {
    return {name, title, width, 0, show, rule, {}};
}

void addMembers() {
    const QString sql =
        QStringLiteral("insert into Member (MemberCode, MemberName, State, chongzhi, AddDate, MemberValue) "
                       "values (?, ?, ?, ?, ?, ?)");
    DB().exec(sql, {QStringLiteral("M01"), QStringLiteral("张三"), 0, qint64(0),
                    QStringLiteral("2025-12-31 09:30"), 9.0});
    DB().exec(sql, {QStringLiteral("M02"), QStringLiteral("O'Neil"), 1, qint64(1234500),
                    QStringLiteral("2026-01-05 10:00"), 10.0});
}

Rows members() {
    return DB().query(
        QStringLiteral("select MemberCode, MemberName, State, chongzhi, AddDate, MemberValue from Member "
                       "order by MemberCode desc"));
}

QStringList headers(const QTreeWidget& l) {
    QStringList out;
    for (int i = 0; i < l.columnCount(); ++i)
        out << l.headerItem()->text(i);
    return out;
}
QStringList row(const QTreeWidget& l, int r) {
    QStringList out;
    for (int i = 0; i < l.columnCount(); ++i)
        out << l.topLevelItem(r)->text(i);
    return out;
}
QStringList column(const QTreeWidget& l, int c) {
    QStringList out;
    for (int i = 0; i < l.topLevelItemCount(); ++i)
        out << l.topLevelItem(i)->text(c);
    return out;
}
QList<int> widths(const QTreeWidget& l) {
    QList<int> out;
    for (int i = 0; i < l.columnCount(); ++i)
        out << l.header()->sectionSize(i);
    return out;
}
QStringList L(std::initializer_list<const char*> texts) {
    QStringList out;
    for (const char* t : texts)
        out << QString::fromUtf8(t);
    return out;
}
int count(const QString& sql, const Params& p = {}) {
    return DB().scalar(sql, p).toInt();
}

// Where each seeded list gets its rows: the query of its window.
const QList<std::pair<const char*, const char*>>& seededLists() {
    static const char* bills =
        "SELECT Expense.*,TheAssort.AssortName,PayLevel.PayLevelName,payLevel.PayType as "
        "PayType,payLevel.MinMoney,The.TheCode From ((Expense Left Join The On "
        "Expense.theID=The.TheID) Left Join TheAssort On The.AssortID=TheAssort.AssortID) Left "
        "Join PayLevel ON Expense.PayLevelID=PayLevel.PayLevelID";
    static const QList<std::pair<const char*, const char*>> l = {
        {"lvwPayAfter", "SELECT Expense.* from Expense Where VoucherState=2 Order by Expense.OpenTime"},
        {"frmMemberList.lvwThis",
         "select member.*,memberSetup.SetupName,memberSetup.Discount from Member left join "
         "memberSetup on Member.SetupID=MemberSetup.Setupid order by member.MemberCode"},
        {"frmMemberList.lvwChongzhi",
         "select * from chongzhi where membercode='x' order by chongzhi.OperatorTime desc"},
        {"frmMemberList.lvwExpense", "select * from Expense where chongzhiIDCare='x'"},
        {"frmChongzhiList.lvwThis",
         "select chongzhi.*,member.membername from chongzhi left join member on "
         "chongzhi.membercode=member.membercode order by chongzhi.OperatorTime desc"},
        {"frmEmployeeList.lvwThis", "select Employee.* from Employee order by Employee.EmployeeName"},
        {"frmSupplierList.lvwThis", "select Supplier.* from Supplier order by Supplier.SupplierName"},
        {"frmWareInList.lvwThis", "Select WareIn.* from WareIn Order by WareIn.InTime"},
        {"frmWareInList.lvwWareinList",
         "Select "
         "wareInList.*,WareIn.Intime,WareIn.theCode,WareIn.thejb,Ware.WareName,ware.WareUnit from "
         "(WareInList Left join wareIn on wareinList.wareInID=wareIn.wareInID) left join ware on "
         "wareInList.wareID=ware.WareID"},
        {"frmWareInList.lvwList",
         "Select WareInList.*,Ware.WareUnit,Ware.WareName from WareInList Left Join Ware on "
         "WareInList.WareID=Ware.WareID"},
        {"frmWareLossList.lvwThis", "Select WareLoss.* from WareLoss Order by WareLoss.InTime"},
        {"frmWareLossList.lvwWareinList",
         "Select "
         "WareLossList.*,WareLoss.Intime,WareLoss.theCode,WareLoss.thejb,Ware.WareName,ware.WareUnit "
         "from (WareLossList Left join WareLoss on WareLossList.WareLossID=WareLoss.WareLossID) "
         "left join ware on WareLossList.wareID=ware.WareID"},
        {"frmWareLossList.lvwList",
         "Select WareLossList.*,Ware.WareUnit,Ware.WareName from WareLossList Left Join Ware on "
         "WareLossList.WareID=Ware.WareID"},
        {"frmFind.lvwExpense", bills},
        {"frmFind.lvwDetail",
         "select ExpenseDetail.*,ware.WareCode,Ware.WareName from ExpenseDetail Left join Ware on "
         "ExpenseDetail.WareID=Ware.WareID"},
        {"frmFind.lvwOutSale", "select * from Outsale"},
        {"frmFind.lvwOutSaleDetail",
         "select OutsaleDetail.*,ware.WareCode,Ware.WareName from OutsaleDetail Left join Ware on "
         "OutsaleDetail.WareID=Ware.WareID"},
        {"frmFindIncome.lvwExpense", bills},
        {"frmFindIncome.lvwOutSale", "select Outsale.* from Outsale"},
        {"frmBusReorder.lvwWare",
         "SELECT ExpenseDetail.WareID, Sum(ExpenseDetail.Num) AS Num, "
         "Ware.WareName,sum(ExpenseDetail.OughtMoney) as OughtMoney FROM ExpenseDetail LEFT JOIN "
         "Ware ON ExpenseDetail.WareID = Ware.WareID GROUP BY ExpenseDetail.WareID, Ware.WareName"},
        {"frmBusReorder.lvwWareType",
         "Select WareType.WareTypeID, Sum(ExpenseDetail.Num) AS Num, "
         "WareType.WareTypeName,sum(ExpenseDetail.OughtMoney) as OughtMoney FROM (ExpenseDetail "
         "LEFT JOIN Ware ON ExpenseDetail.WareID = Ware.WareID) LEFT JOIN WareType On "
         "ware.waretypeID = waretype.waretypeid GROUP BY wareType.WareTypeID, "
         "WareType.WareTypeName"},
        {"frmBusReorder.lvwSteward",
         "SELECT ExpenseDetail.WareID, Sum(ExpenseDetail.Num) AS Num, "
         "Ware.WareName,sum(ExpenseDetail.OughtMoney) as "
         "OughtMoney,sum(ExpenseDetail.TiChengMoney) as TiChengMoney,ExpenseDetail.Other1 FROM "
         "(ExpenseDetail LEFT JOIN Ware ON ExpenseDetail.WareID = Ware.WareID) left join Expense "
         "on ExpenseDetail.ExpenseID= Expense.ExpenseID GROUP BY ExpenseDetail.WareID, "
         "Ware.WareName,ExpenseDetail.Other1"},
        {"frmChart.lvwExpense",
         "SELECT substr(CloseTime,1,10) as CloseTime,sum(expenseMoney) as "
         "ExpenseMoney,sum(factpay) as FactPay,sum(Income) as Income From Expense GROUP BY "
         "substr(CloseTime,1,10)"},
        {"frmCheckForm.lvwThis",
         "select *  from Expense where (checkForm='' or checkForm is null) order by Closetime"},
        {"frmCheckForm.lvwOutSale",
         "select *  from OutSale where (checkForm='' or checkForm is null) order by Closetime"},
        {"frmShouyinInfo.lvwExpense", "select * from shouyinInfo"},
        {"frmLog.lvwThis", "select * from s_Log order by logDate desc"},
        {"frmOption.lvwWare", "select Ware.*,waretype.waretypename from Ware Left join WareType on "
                              "ware.waretypeID=waretype.WareTypeid"},
    };
    return l;
}
} // namespace

class TestLists : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void formatShowValue_data() {
        QTest::addColumn<QString>("rule");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("shown");
        const QString state = QStringLiteral("1,0可用|1停用");
        const QVariant at(QStringLiteral("2026-11-21 20:05"));
        QTest::newRow("no rule") << "" << QVariant(QStringLiteral("O'Neil")) << "O'Neil";
        QTest::newRow("no rule, null") << "" << QVariant() << "";
        QTest::newRow("unknown type") << "9,x" << QVariant(QStringLiteral("abc")) << "abc";
        QTest::newRow("list, first item") << state << QVariant(0) << "可用";
        QTest::newRow("list, later item") << state << QVariant(1) << "停用";
        QTest::newRow("list, no item") << state << QVariant(2) << "";
        QTest::newRow("list, fraction") << state << QVariant(1.5) << "";
        QTest::newRow("list, null reads as 0") << state << QVariant() << "可用";
        QTest::newRow("list, empty text item") << "1,0|1赠送" << QVariant(0) << "";
        QTest::newRow("date A") << "2,A" << at << "2026年11月21日";
        QTest::newRow("date H") << "2,H" << at << "2026年11月21日 20:05";
        QTest::newRow("date J") << "2,J" << at << "21日 20:05";
        QTest::newRow("date letter upper-cased") << "2,j" << at << "21日 20:05";
        QTest::newRow("unknown letter acts as A") << "2,Z" << at << "2026年11月21日";
        QTest::newRow("no letter acts as A") << "2," << at << "2026年11月21日";
        QTest::newRow("date without time")
            << "2,H" << QVariant(QStringLiteral("2026-11-21")) << "2026年11月21日 00:00";
        QTest::newRow("not a date") << "2,A" << QVariant(QStringLiteral("明天")) << "明天";
        QTest::newRow("no date") << "2,A" << QVariant() << "";
        QTest::newRow("money") << "3,0.00" << QVariant(qint64(123456)) << "12.35";
        QTest::newRow("money, half away from zero") << "3,0.00" << QVariant(qint64(-50)) << "-0.01";
        QTest::newRow("money, yuan sign") << "3,￥0.00" << QVariant(qint64(10000)) << "￥1.00";
        QTest::newRow("money, thousands")
            << "3,#,##0.00" << QVariant(qint64(12345678900000)) << "1,234,567,890.00";
        QTest::newRow("money, thousands, negative")
            << "3,￥#,##0" << QVariant(qint64(-12345670000)) << "￥-1,234,567";
        QTest::newRow("money, a sum as double") << "3,0.00" << QVariant(123456.0) << "12.35";
        QTest::newRow("money, no format") << "3," << QVariant(qint64(5000)) << "0.50";
        QTest::newRow("money, null") << "3,0.00" << QVariant() << "0.00";
    }
    void formatShowValue() {
        QFETCH(QString, rule);
        QFETCH(QVariant, value);
        QFETCH(QString, shown);
        QCOMPARE(FormatShowValue(rule, value), shown);
    }

    void showList_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QList<ListColumnDef>>("stored");
        QTest::addColumn<bool>("keyed");
        QTest::addColumn<QStringList>("heads");
        QTest::addColumn<QList<int>>("pixels");
        QTest::addColumn<QStringList>("first");
        QTest::addColumn<QString>("key");
        const QString name = QStringLiteral("frm'Test.lvwThis");
        QTest::newRow("configured, quote and trailing blank in the name")
            << name + QStringLiteral("  ")
            << QList<ListColumnDef>{col(QStringLiteral("MemberName"), QStringLiteral("姓名"), 1500),
                                    col(QStringLiteral("State"), QStringLiteral("状态"), 900, true,
                                        QStringLiteral("1,0可用|1停用")),
                                    col(QStringLiteral("chongzhi"), QStringLiteral("余额"), 1200, true,
                                        QStringLiteral("3,0.00")),
                                    col(QStringLiteral("MemberCode"), QStringLiteral("编号"), 1000, false)}
            << true << QStringList{QStringLiteral("姓名"), QStringLiteral("状态"), QStringLiteral("余额")}
            << QList<int>{100, 60, 80}
            << QStringList{QStringLiteral("O'Neil"), QStringLiteral("停用"), QStringLiteral("123.45")}
            << "kO'Neil";
        QTest::newRow("key column of width 0, date rule")
            << name
            << QList<ListColumnDef>{col(QStringLiteral("MemberCode"), QStringLiteral("编号"), 0),
                                    col(QStringLiteral("AddDate"), QStringLiteral("登记日期"), 1700, true,
                                        QStringLiteral("2,A"))}
            << true << QStringList{QStringLiteral("编号"), QStringLiteral("登记日期")} << QList<int>{0, 113}
            << QStringList{QStringLiteral("M01"), QStringLiteral("2025年12月31日")} << "kM01";
        QTest::newRow("field the record set lacks")
            << name
            << QList<ListColumnDef>{col(QStringLiteral("MemberCode"), QStringLiteral("编号")),
                                    col(QStringLiteral("phone"), QStringLiteral("电话"), 1200, true,
                                        QStringLiteral("1,0无"))}
            << false << QStringList{QStringLiteral("编号"), QStringLiteral("电话")} << QList<int>{67, 80}
            << QStringList{QStringLiteral("M01"), QString()} << "";
        QTest::newRow("all hidden")
            << name
            << QList<ListColumnDef>{col(QStringLiteral("MemberCode"), QStringLiteral("编号"), 1000, false),
                                    col(QStringLiteral("MemberName"), QStringLiteral("姓名"), 1000, false)}
            << true << QStringList() << QList<int>() << QStringList() << "";
    }
    void showList() {
        QFETCH(QString, name);
        QFETCH(QList<ListColumnDef>, stored);
        QFETCH(bool, keyed);
        QFETCH(QStringList, heads);
        QFETCH(QList<int>, pixels);
        QFETCH(QStringList, first);
        QFETCH(QString, key);
        TestVenue v;
        OPEN_VENUE(v);
        addMembers();
        QVERIFY(!SaveListColumns(QStringLiteral("frm'Test.lvwThis"), stored));
        QTreeWidget list;
        list.setColumnCount(7); // a list filled before keeps nothing of it
        new QTreeWidgetItem(&list, {QStringLiteral("old")});
        ShowList(&list, name, members(), keyed);
        QCOMPARE(headers(list), heads);
        QCOMPARE(widths(list), pixels);
        QCOMPARE(list.topLevelItemCount(), heads.isEmpty() ? 0 : 2);
        QCOMPARE(count(QStringLiteral("select count(*) from FD_FormControl where FormControlName=?"),
                       {QStringLiteral("frm'Test.lvwThis")}),
                 int(stored.size()));
        if (heads.isEmpty()) return;
        QCOMPARE(row(list, 0), first);
        QCOMPARE(list.topLevelItem(0)->data(0, Qt::UserRole).toString(), key);
        QCOMPARE(list.header()->sortIndicatorSection(), 0);
        QCOMPARE(list.header()->sortIndicatorOrder(), Qt::AscendingOrder);
        QVERIFY(list.header()->isSortIndicatorShown());
    }

    void newListTakesTheFieldsOfItsRecordSet() {
        TestVenue v;
        OPEN_VENUE(v);
        addMembers();
        const QString name = QStringLiteral("frmNew.lvw'This");
        const Rows rows =
            DB().query(QStringLiteral("select MemberCode, MemberName, State, MemberCode from Member"));
        QTreeWidget list;
        ShowList(&list, name, rows, false);
        QCOMPARE(headers(list), (QStringList{QStringLiteral("membercode"), QStringLiteral("membername"),
                                             QStringLiteral("state")}));
        QCOMPARE(widths(list), (QList<int>{67, 67, 67}));
        const Rows stored = DB().query(
            QStringLiteral("select colname, coltitle, ColWidth, ColOrder, IsShow from FD_FormControl where "
                           "FormControlName=? order by ColOrder"),
            {name});
        QCOMPARE(stored.count(), 3);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(stored[i].text(QStringLiteral("coltitle")), stored[i].text(QStringLiteral("colname")));
            QCOMPARE(stored[i].integer(QStringLiteral("ColWidth")), qint64(1000));
            QCOMPARE(stored[i].integer(QStringLiteral("ColOrder")), qint64(i + 1));
            QCOMPARE(stored[i].text(QStringLiteral("IsShow")), QStringLiteral("Y"));
        }
        // Filled again, the stored columns serve as they are.
        DB().exec(QStringLiteral("update FD_FormControl set coltitle='姓名' where colname='membername'"));
        ShowList(&list, name, rows, false);
        QCOMPARE(headers(list).at(1), QStringLiteral("姓名"));
        QCOMPARE(count(QStringLiteral("select count(*) from FD_FormControl where FormControlName=?"), {name}),
                 3);
    }

    void sortList_data() {
        QTest::addColumn<QList<int>>("clicks");
        QTest::addColumn<QStringList>("codes");
        QTest::addColumn<int>("section");
        QTest::addColumn<bool>("descending");
        QTest::newRow("first column again turns round")
            << QList<int>{0} << L({"M03", "M02", "M01"}) << 0 << true;
        QTest::newRow("another column ascending, as text")
            << QList<int>{1} << L({"M02", "M03", "M01"}) << 1 << false;
        QTest::newRow("twice descending") << QList<int>{1, 1} << L({"M01", "M03", "M02"}) << 1 << true;
        QTest::newRow("three times ascending")
            << QList<int>{1, 1, 1} << L({"M02", "M03", "M01"}) << 1 << false;
        QTest::newRow("back to the first ascending")
            << QList<int>{1, 0} << L({"M01", "M02", "M03"}) << 0 << false;
        QTest::newRow("outside the columns") << QList<int>{5} << L({"M01", "M02", "M03"}) << 0 << false;
    }
    void sortList() {
        QFETCH(QList<int>, clicks);
        QFETCH(QStringList, codes);
        QFETCH(int, section);
        QFETCH(bool, descending);
        TestVenue v;
        OPEN_VENUE(v);
        addMembers();
        DB().exec(QStringLiteral("insert into Member (MemberCode, MemberValue) values ('M03', 100)"));
        QVERIFY(!SaveListColumns(QStringLiteral("points"),
                                 {col(QStringLiteral("MemberCode"), QStringLiteral("编号")),
                                  col(QStringLiteral("MemberValue"), QStringLiteral("积分"))}));
        QTreeWidget list;
        ShowList(&list, QStringLiteral("points"), members(), false);
        // Points 9, 10 and 100 compare as text: "10" < "100" < "9".
        for (int c : clicks)
            SortList(&list, c);
        QCOMPARE(column(list, 0), codes);
        QCOMPARE(list.header()->sortIndicatorSection(), section);
        QCOMPARE(list.header()->sortIndicatorOrder(), descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    }

    void headerClicksSort() {
        TestVenue v;
        OPEN_VENUE(v);
        addMembers();
        QTreeWidget list;
        ShowList(&list, QStringLiteral("clicks"), members(), false);
        SortListOnHeaderClick(&list);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        QHeaderView* h = list.header();
        const QPoint second(h->sectionViewportPosition(1) + 5, h->height() / 2);
        QTest::mouseClick(h->viewport(), Qt::LeftButton, {}, second);
        QCOMPARE(column(list, 1), (QStringList{QStringLiteral("O'Neil"), QStringLiteral("张三")}));
        QTest::mouseClick(h->viewport(), Qt::LeftButton, {}, second);
        QCOMPARE(column(list, 1), (QStringList{QStringLiteral("张三"), QStringLiteral("O'Neil")}));
        QCOMPARE(h->sortIndicatorOrder(), Qt::DescendingOrder);
    }

    void columnDialogRoundTrip() {
        TestVenue v;
        OPEN_VENUE(v);
        addMembers();
        const QString name = QStringLiteral("frm'Test.lvwThis");
        QList<ListColumnDef> start{
            col(QStringLiteral("MemberCode"), QStringLiteral("编号")),
            col(QStringLiteral("MemberName"), QStringLiteral("姓名"), 1500),
            col(QStringLiteral("State"), QStringLiteral("状态"), 900, true, QStringLiteral("1,0可用|1停用")),
            col(QStringLiteral("chongzhi"), QStringLiteral("余额"), 1200, false)};
        start[3].displayCase = QStringLiteral("x'");
        QVERIFY(!SaveListColumns(name, start));

        frmQNDisplayCase dlg;
        QVERIFY(dlg.load(name + QLatin1Char(' ')));
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        look(dlg, QStringLiteral("frmQNDisplayCase"));
        auto* lvw = child<QTreeWidget>(dlg, "lvwThis");
        auto* width = child<QLineEdit>(dlg, "txtWidth");
        auto* rule = child<QLineEdit>(dlg, "txtShowValue");
        auto click = [&](const char* button) {
            QTest::mouseClick(child<QPushButton>(dlg, button), Qt::LeftButton);
        };
        QCOMPARE(column(*lvw, 0), (L({"编号", "姓名", "状态", "余额"})));
        QCOMPARE(lvw->topLevelItem(3)->checkState(0), Qt::Unchecked);

        lvw->setCurrentItem(lvw->topLevelItem(2));
        QCOMPARE(width->text(), QStringLiteral("900"));
        QCOMPARE(rule->text(), QStringLiteral("1,0可用|1停用"));
        click("cmdUp");
        click("cmdUp");
        click("cmdUp");                            // already first
        lvw->setCurrentItem(lvw->topLevelItem(2)); // 姓名
        click("cmdHide");
        click("cmdDown");
        lvw->setCurrentItem(lvw->topLevelItem(2)); // 余额
        click("cmdShow");
        width->selectAll();
        QTest::keyClicks(width, QStringLiteral("0"));
        rule->clear();
        rule->insert(QStringLiteral("3,￥0.00")); // typed as an input method would
        lvw->topLevelItem(2)->setText(0, QStringLiteral("储值'余额"));
        click("OKButton");
        QCOMPARE(messages(), QStringList());
        QVERIFY(dlg.saved());
        QCOMPARE(dlg.result(), int(QDialog::Accepted));

        const QList<ListColumnDef> saved = LoadListColumns(name);
        QCOMPARE(saved.size(), 4);
        const QStringList order = L({"State", "MemberCode", "chongzhi", "MemberName"});
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(saved[i].colname, order[i]);
            QCOMPARE(saved[i].colOrder, i + 1);
        }
        QVERIFY(!saved[3].isShow);
        QCOMPARE(saved[2].colWidth, 0);
        QCOMPARE(saved[2].showValue, QStringLiteral("3,￥0.00"));
        QCOMPARE(saved[2].displayCase, QStringLiteral("x'"));

        QTreeWidget list;
        ShowList(&list, name, members(), false);
        QCOMPARE(headers(list), (L({"状态", "编号", "储值'余额"})));
        QCOMPARE(widths(list), (QList<int>{60, 67, 0}));
        QCOMPARE(row(list, 0), (L({"停用", "M02", "￥123.45"})));

        // Cancel keeps what is stored.
        frmQNDisplayCase again;
        QVERIFY(again.load(name));
        auto* lvw2 = child<QTreeWidget>(again, "lvwThis");
        lvw2->setCurrentItem(lvw2->topLevelItem(0));
        QTest::mouseClick(child<QPushButton>(again, "cmdDown"), Qt::LeftButton);
        QTest::mouseClick(child<QPushButton>(again, "CancelButton"), Qt::LeftButton);
        QVERIFY(!again.saved());
        QCOMPARE(LoadListColumns(name).first().colname, QStringLiteral("State"));
    }

    void columnDialogOpensModal() {
        TestVenue v;
        OPEN_VENUE(v);
        QVERIFY(!SaveListColumns(QStringLiteral("modal"), {col(QStringLiteral("a"), QStringLiteral("甲")),
                                                           col(QStringLiteral("b"), QStringLiteral("乙"))}));
        QTimer::singleShot(0, this, [] {
            auto* dlg = qobject_cast<frmQNDisplayCase*>(QApplication::activeModalWidget());
            if (!dlg) return;
            QTest::mouseClick(child<QPushButton>(*dlg, "cmdDown"), Qt::LeftButton);
            QTest::mouseClick(child<QPushButton>(*dlg, "OKButton"), Qt::LeftButton);
        });
        // The way out should the dialog not answer.
        QTimer guard;
        guard.setSingleShot(true);
        connect(&guard, &QTimer::timeout, this, [] {
            if (QWidget* w = QApplication::activeModalWidget()) w->close();
        });
        guard.start(5000);
        QVERIFY(frmQNDisplayCase::ShowSetup(QStringLiteral("modal")));
        QCOMPARE(LoadListColumns(QStringLiteral("modal")).first().colname, QStringLiteral("b"));
    }

    void savingFailsWhole() {
        TestVenue v;
        OPEN_VENUE(v);
        const QList<ListColumnDef> two{col(QStringLiteral("a"), QStringLiteral("甲")),
                                       col(QStringLiteral("b"), QStringLiteral("乙"))};
        QVERIFY(!SaveListColumns(QStringLiteral("l"), two));
        // A column twice breaks the unique index halfway: nothing changes.
        const Refused r =
            SaveListColumns(QStringLiteral("l"), {col(QStringLiteral("c"), QStringLiteral("丙")),
                                                  col(QStringLiteral("c"), QStringLiteral("丙"))});
        QVERIFY(r);
        QVERIFY(r->message.startsWith(QStringLiteral("Error ")));
        QVERIFY(r->message.endsWith(QStringLiteral(" in procedure SaveData of Form frmMember")));
        QCOMPARE(LoadListColumns(QStringLiteral("l")).size(), 2);
        QVERIFY(!DB().inTransaction());

        // The dialog shows the failure and stays open.
        frmQNDisplayCase dlg;
        QVERIFY(dlg.load(QStringLiteral("l")));
        dlg.show();
        DB().exec(QStringLiteral("drop table FD_FormControl"));
        dlg.OKButton_Click();
        const QStringList shown = messages();
        QCOMPARE(shown.size(), 1);
        QVERIFY(shown[0].endsWith(QStringLiteral(" in procedure SaveData of Form frmMember")));
        QVERIFY(!dlg.saved());
        QVERIFY(dlg.isVisible());
    }

    void exports_data() {
        QTest::addColumn<bool>("excel");
        QTest::addColumn<bool>("opened");
        QTest::newRow("text") << false << true;
        QTest::newRow("text, no editor") << false << false;
        QTest::newRow("excel") << true << true;
        QTest::newRow("excel, no program") << true << false;
    }
    void exports() {
        QFETCH(bool, excel);
        QFETCH(bool, opened);
        TestVenue v;
        OPEN_VENUE(v);
        addMembers();
        DB().exec(QStringLiteral("update Member set MemberName=? where MemberCode='M01'"),
                  {QStringLiteral("张\t三\n")});
        QVERIFY(!SaveListColumns(
            QStringLiteral("export"),
            {col(QStringLiteral("MemberCode"), QStringLiteral("编号"), 0),
             col(QStringLiteral("MemberName"), QStringLiteral("姓名"), 1500),
             col(QStringLiteral("State"), QStringLiteral("状态"), 900, true, QStringLiteral("1,0可用|1停用")),
             col(QStringLiteral("chongzhi"), QStringLiteral("余额"), 1200, true, QStringLiteral("3,0.00"))}));
        QTreeWidget list;
        ShowList(&list, QStringLiteral("export"), members(), true);
        list.setColumnHidden(2, true);
        QList<std::pair<Desktop::Program, QString>> started;
        Desktop::setLauncher([&](Desktop::Program p, const QString& f) {
            started.append({p, f});
            return opened;
        });
        const QString old = QDir(ExportFolder()).filePath(QStringLiteral("Temp.txt"));
        QFile stale(old);
        QVERIFY(stale.open(QIODevice::WriteOnly));
        stale.write(QByteArray(500, 'x'));
        stale.close();

        const QString path = excel ? ExportExcel(&list) : ExportText(&list);
        Desktop::setLauncher({});
        QCOMPARE(QFileInfo(path).absolutePath(),
                 QFileInfo(v.home() + QStringLiteral("/Export")).absoluteFilePath());
        QCOMPARE(started.size(), 1);
        QCOMPARE(started[0].first, excel ? Desktop::Program::DefaultApp : Desktop::Program::TextEditor);
        QCOMPARE(started[0].second, path);
        const QString program = excel ? QStringLiteral("没有找到可以打开Excel文件的程序！")
                                      : QStringLiteral("没有找到可用的文本编辑器程序！");
        QCOMPARE(messages(), opened ? QStringList()
                                    : QStringList{program + QStringLiteral("\n导出的文件已保存在：") +
                                                  QDir::toNativeSeparators(path)});
        QFile f(path);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray bytes = f.readAll();
        if (!excel) {
            QCOMPARE(QFileInfo(path).fileName(), QStringLiteral("Temp.txt"));
            QCOMPARE(QString::fromUtf8(bytes),
                     QStringLiteral("编号\t姓名\t余额\nM01\t张 三 \t0.00\nM02\tO'Neil\t123.45\n"));
            return;
        }
        QCOMPARE(QFileInfo(path).fileName(), QStringLiteral("Export_20261121_200000.xlsx"));
        QVERIFY(bytes.startsWith("PK\x03\x04"));
        // A second export in the same second gets a name of its own.
        Desktop::setLauncher([](Desktop::Program, const QString&) { return true; });
        QCOMPARE(QFileInfo(ExportExcel(&list)).fileName(), QStringLiteral("Export_20261121_200000_2.xlsx"));
        Desktop::setLauncher({});
        if (QStandardPaths::findExecutable(QStringLiteral("unzip")).isEmpty()) return;
        auto part = [&](const char* name) {
            QProcess unzip;
            unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), path, QLatin1String(name)});
            unzip.waitForFinished();
            return QString::fromUtf8(unzip.readAllStandardOutput());
        };
        const QString sheet = part("xl/worksheets/sheet1.xml");
        const QString strings = part("xl/sharedStrings.xml");
        QVERIFY2(sheet.contains(QStringLiteral("<col min=\"1\" max=\"1\" width=\"0\"")), qPrintable(sheet));
        QVERIFY2(sheet.contains(QStringLiteral("<col min=\"2\" max=\"2\" width=\"15.7109375\"")),
                 qPrintable(sheet));
        QVERIFY2(sheet.contains(QStringLiteral("<c r=\"C3\"><v>123.45</v></c>")), qPrintable(sheet));
        QVERIFY(sheet.contains(QStringLiteral("<c r=\"A1\" s=\"1\" t=\"s\">")));
        QVERIFY(part("xl/styles.xml").contains(QStringLiteral("<b/>")));
        for (const char* s : {"编号", "姓名", "余额", "O'Neil", "张\t三"})
            QVERIFY2(strings.contains(QString::fromUtf8(s)), qPrintable(strings));
        QVERIFY(!strings.contains(QStringLiteral("状态")));
        QVERIFY(!strings.contains(QStringLiteral("停用")));
    }

    void autoInput() {
        TestVenue v;
        OPEN_VENUE(v);
        const QString type = QStringLiteral("DetailDescription");
        for (const QString& value :
             {QStringLiteral("少冰"), QStringLiteral("it's hot"), QStringLiteral("少冰"),
              QStringLiteral("  "), QStringLiteral("it's hot")})
            SaveAutoInput(type, value);
        SaveAutoInput(QStringLiteral("other"), QStringLiteral("少冰"));
        QCOMPARE(count(QStringLiteral("select count(*) from sys_AutoInput")), 3);
        QComboBox combo;
        combo.setEditable(true);
        combo.addItem(QStringLiteral("old"));
        combo.setEditText(QStringLiteral("typing"));
        LoadAutoInput(type, &combo);
        QCOMPARE(combo.count(), 2);
        QCOMPARE(combo.itemText(0), QStringLiteral("it's hot"));
        QCOMPARE(combo.itemText(1), QStringLiteral("少冰"));
        QCOMPARE(combo.currentText(), QStringLiteral("typing"));

        QVERIFY(DeleteAutoInput(type, QStringLiteral("it's hot")));
        LoadAutoInput(type, &combo);
        QCOMPARE(combo.count(), 1);
        QCOMPARE(count(QStringLiteral("select count(*) from sys_AutoInput where thisValue='少冰'")), 2);
        QCOMPARE(messages(), QStringList());
        DB().exec(QStringLiteral("drop table sys_AutoInput"));
        QVERIFY(!DeleteAutoInput(type, QStringLiteral("少冰")));
        QCOMPARE(messages(), QStringList{QStringLiteral("删除失败，请稍候再试！")});
    }

    void seededList_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("query");
        for (const auto& [name, query] : seededLists())
            QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(query);
    }
    void seededList() {
        QFETCH(QString, name);
        QFETCH(QString, query);
        TestVenue v;
        OPEN_VENUE(v);
        const Rows rows = DB().query(query);
        QStringList fields = rows.columns();
        fields.removeDuplicates();
        const QList<ListColumnDef> columns = LoadListColumns(name);
        QStringList names, shownTitles;
        for (const ListColumnDef& c : columns) {
            names << c.colname.toLower();
            QVERIFY2(!c.coltitle.trimmed().isEmpty(), qPrintable(c.colname));
            QVERIFY2(c.coltitle.compare(c.colname, Qt::CaseInsensitive) != 0, qPrintable(c.colname));
            QVERIFY2(c.showValue.isEmpty() || QStringLiteral("1234").contains(c.showValue.left(1)),
                     qPrintable(c.colname));
            if (c.isShow) shownTitles << c.coltitle;
        }
        // Every field of the query has its column, and no column names a field it lacks.
        names.sort();
        fields.sort();
        QCOMPARE(names, fields);
        QVERIFY(!shownTitles.isEmpty());
        QTreeWidget list;
        ShowList(&list, name, rows, true);
        QCOMPARE(headers(list), shownTitles);
    }

    void everySeededListIsChecked() {
        TestVenue v;
        OPEN_VENUE(v);
        QStringList stored;
        for (const Row r : DB().query(QStringLiteral("select distinct FormControlName from FD_FormControl")))
            stored << r.text(QStringLiteral("FormControlName"));
        QStringList checked;
        for (const auto& l : seededLists())
            checked << QString::fromUtf8(l.first);
        stored.sort();
        checked.sort();
        QCOMPARE(stored, checked);
    }

    void upgradeKeepsWhatTheVenueHas() {
        TestVenue v;
        OPEN_VENUE(v);
        // A database of version 1, beside the test's own.
        DbConfig config = v.config();
        if (TestVenue::isPg()) {
            config.schema += QStringLiteral("v1");
            DB().exec(QStringLiteral("DROP SCHEMA IF EXISTS ") + config.schema + QStringLiteral(" CASCADE"));
        } else {
            config.file = QDir(v.home()).filePath(QStringLiteral("v1.db"));
        }
        Db old;
        old.open(config);
        old.write([&] {
            for (const char* script : {":/sql/001_schema.sql", ":/sql/001_seed.sql"}) {
                QFile f{QString::fromLatin1(script)};
                QVERIFY(f.open(QIODevice::ReadOnly));
                old.execScript(old.dialect().expand(QString::fromUtf8(f.readAll())));
            }
            old.exec(QStringLiteral("delete from pSetup where setupname='dbver'"));
            old.exec(QStringLiteral("insert into pSetup (setupname, setupvalue) values ('dbver', '1')"));
            // A column of the venue's own making and a remembered input twice.
            old.exec(
                QStringLiteral("insert into FD_FormControl (FormControlName, colname, coltitle, ColOrder) "
                               "values ('lvwPayAfter', 'oughtMoney', '欠款', 1)"));
            old.exec(QStringLiteral(
                "insert into sys_AutoInput values ('1', 't', 'v'), ('2', 't', 'v'), ('3', 't', 'w')"));
        });
        QCOMPARE(Schema::migrate(old), Schema::latestVersion() - 1);
        QCOMPARE(Schema::currentVersion(old), Schema::latestVersion());
        QCOMPARE(
            old.scalar(QStringLiteral("select count(distinct FormControlName) from FD_FormControl")).toInt(),
            int(seededLists().size()));
        QCOMPARE(old.scalar(QStringLiteral(
                                "select coltitle from FD_FormControl where FormControlName='lvwPayAfter' "
                                "and colname='oughtMoney'"))
                     .toString(),
                 QStringLiteral("欠款"));
        QCOMPARE(old.scalar(QStringLiteral("select count(*) from sys_AutoInput")).toInt(), 2);
        old.close();
        if (TestVenue::isPg())
            DB().exec(QStringLiteral("DROP SCHEMA IF EXISTS ") + config.schema + QStringLiteral(" CASCADE"));
    }

    void payAfterListAsTheWindowUsesIt() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral(
            "insert into Expense (ExpenseID, State, VoucherState, jzr, oughtMoney, CloseTime) values "
            "('e2', 0, 2, '李四', 2500000, '2026-11-20 23:10'), "
            "('e1', 0, 2, 'O''Neil', 885000, '2026-11-19 22:00'), "
            "('e3', 0, 0, '王五', 10000, '2026-11-19 22:00')"));
        QTreeWidget list;
        ShowList(&list, QStringLiteral("lvwPayAfter"),
                 DB().query(QStringLiteral(
                     "SELECT Expense.* from Expense Where VoucherState=2 Order by Expense.OpenTime")),
                 true);
        list.resize(1100, 160);
        look(list, QStringLiteral("lvwPayAfter"));
        QCOMPARE(list.topLevelItemCount(), 2);
        QCOMPARE(list.header()->sectionSize(0), 0);
        QCOMPARE(list.topLevelItem(0)->data(0, Qt::UserRole).toString(), QStringLiteral("ke1"));
        // The owed amount stands at sub-item 1, as the window adds it up.
        QCOMPARE(list.topLevelItem(0)->text(1), QStringLiteral("88.50"));
        QCOMPARE(list.topLevelItem(1)->text(1), QStringLiteral("250.00"));
        QCOMPARE(list.topLevelItem(0)->text(2), QStringLiteral("O'Neil"));
        QCOMPARE(ListColumn(&list, QStringLiteral("OUGHTMONEY")), 1);
        QCOMPARE(ListColumn(&list, QStringLiteral("TheID")), -1);
    }
};

QTEST_MAIN(TestLists)
#include "test_lists.moc"
