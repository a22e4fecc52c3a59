#include "AppState.h"
#include "BusinessQueries.h"
#include "Columns.h"
#include "DbProbe.h"
#include "FormProbe.h"
#include "ReportQuery.h"
#include "Seed.h"
#include "TestVenue.h"
#include "frmBusReorder.h"
#include "frmChart.h"
#include "frmFindIncome.h"
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFile>
#include <QListWidget>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {
const QDateTime Day(QDate(2026, 11, 21), QTime(0, 0));

// The room every bill of these tests is on.
void room() {
    addRoomType(u"a"_s, u"中包"_s);
    addRoom(u"r1"_s, u"B01"_s, u"a"_s);
}

void bill(const QString& id, const QString& close, int voucher, double expense, double fact, double income) {
    DB().exec(u"insert into Expense (ExpenseID, TheID, OpenTime, CloseTime, State, VoucherState, CustomerNum, "
              "StartMoney, ExpenseMoney, oughtMoney, factpay, Income) values (?, 'r1', '2025-11-01 10:00', ?, ?, ?, 2, "
              "0, ?, ?, ?, ?)"_s,
              {id, close.isEmpty() ? Param(nullptr) : Param(close), close.isEmpty() ? 1 : 0, voucher,
               Money::fromDouble(expense), Money::fromDouble(expense), Money::fromDouble(fact),
               Money::fromDouble(income)});
}
void line(const QString& bill, const QString& ware, double num, double ought, const QString& staff, double ticheng,
          int isdel = 0, const QString& at = u"2026-11-21 18:00"_s) {
    static int n = 0;
    DB().exec(u"insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, oughtMoney, Other1, TiChengMoney, isdel, "
              "ExpenseTime) values (?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
              {u"d%1"_s.arg(++n), bill, ware, num, Money::fromDouble(ought), staff, Money::fromDouble(ticheng), isdel,
               at});
}
QString ranks(const Rows& rows, const QString& name) {
    QStringList out;
    for (const Row r : rows) {
        QString s = r.text(name) + u'|' + QString::number(r.num(u"Num"_s)) + u'|' + r.money(u"OughtMoney"_s).toString2();
        if (r.has(u"Other1"_s)) s += u'|' + r.text(u"Other1"_s) + u'|' + r.money(u"TiChengMoney"_s).toString2();
        out << s;
    }
    return out.join(u' ');
}
QString golden(const QString& name) {
    QFile f(QStringLiteral(QT_TESTCASE_SOURCEDIR "/reports/golden/") + name + u".txt"_s);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : u"missing "_s + f.fileName();
}
template <class W> void search(W& w, void (W::*find)()) {
    (w.*find)();
    QVERIFY(w.query().wait());
}
} // namespace

class TestBusiness : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // Profit as settlement stored it: free bills with their negative profit, open bills left
    // out, counter sales by their closing time.
    void income() {
        NEW_VENUE(v);
        room();
        bill(u"e1"_s, u"2026-11-21 10:00"_s, 0, 300, 280, 120);
        bill(u"e2"_s, u"2026-11-21 11:00"_s, 1, 90, 0, -35.5);
        bill(u"e3"_s, u"2026-11-21 12:00"_s, 2, 100, 100, 40);
        bill(u"e4"_s, {}, 0, 999, 999, 999);
        bill(u"e5"_s, u"2026-11-22 00:00"_s, 0, 999, 999, 999);
        DB().exec(u"insert into Outsale (ExpenseID, OpenTime, CloseTime, oughtMoney, factpay, Income) values "
                  "('s1', '2026-11-20 23:00', '2026-11-21 09:00', 60000, 60000, 20000)"_s);
        frmFindIncome w;
        QCOMPARE(texts(&w, {"lblThisSumExpenseMoney", "lblThisSumMoney", "lblThisSumIncome"}), u"0|0|0"_s);
        search(w, &frmFindIncome::cmdFind_Click);
        QCOMPARE(texts(&w, {"lblSumNum", "lblSumExpenseMoney", "lblSumMoney", "lblSumIncome", "lblSumIncomeOutsale",
                            "lblThisSumExpenseMoney", "lblThisSumMoney", "lblThisSumIncome"}),
                 u"6.00|490.00|380.00|124.50|2.00|496.00|386.00|126.50"_s);
        QCOMPARE(child<QTreeView>(&w, "lvwExpense")->model()->rowCount(), 3);
        // Free bills alone.
        auto* states = child<QListWidget>(&w, "lstState");
        states->item(0)->setSelected(false);
        states->item(2)->setSelected(false);
        search(w, &frmFindIncome::cmdFind_Click);
        QCOMPARE(texts(&w, {"lblSumIncome", "lblThisSumIncome"}), u"-35.50|-33.50"_s);
    }

    // Rankings by number then amount, voided lines out, goods gone from the catalogue kept
    // with no name. The goods view goes by the time of ordering, open bills too; the employee
    // view by the bill's closing, so a line dated after the period on a bill closed within
    // it counts there.
    void ranking() {
        NEW_VENUE(v);
        room();
        DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('t1', '饮料'), ('t2', '小吃')"_s);
        DB().exec(u"insert into Ware (WareID, WareTypeID, WareName) values ('w1', 't1', '可乐'), "
                  "('w2', 't1', '啤酒'), ('w3', 't2', '果盘')"_s);
        DB().exec(u"insert into Employee (EmployeeID, EmployeeName, State) values ('p1', '小张', 0), ('p2', '小李', 0)"_s);
        bill(u"e1"_s, u"2026-11-21 19:00"_s, 0, 0, 0, 0);
        bill(u"e2"_s, {}, 0, 0, 0, 0);
        line(u"e1"_s, u"w1"_s, 2, 20, u"小张"_s, 2);
        line(u"e1"_s, u"w2"_s, 2, 30, u"小李"_s, 3);
        line(u"e1"_s, u"w3"_s, 1, 50, {}, 0);
        line(u"e1"_s, u"w9"_s, 1, 5, u"小张"_s, 1);
        line(u"e1"_s, u"w1"_s, 5, 50, u"小张"_s, 5, 1);
        line(u"e2"_s, u"w3"_s, 2, 100, u"小张"_s, 4);
        line(u"e1"_s, u"w1"_s, 10, 100, u"小张"_s, 10, 0, u"2026-11-22 00:00"_s);
        const ReorderService s;
        const QDateTime end = Day.addDays(1);
        QCOMPARE(ranks(s.goods(Day, end, RankBy::Goods), u"WareName"_s), u"果盘|3|150.00 啤酒|2|30.00 可乐|2|20.00 |1|5.00"_s);
        QCOMPARE(ranks(s.goods(Day, end, RankBy::GoodsType), u"WareTypeName"_s), u"饮料|4|50.00 小吃|3|150.00 |1|5.00"_s);
        QCOMPARE(ranks(s.steward(Day, end, {}), u"WareName"_s),
                 u"可乐|12|120.00|小张|12.00 啤酒|2|30.00|小李|3.00 果盘|1|50.00||0.00 |1|5.00|小张|1.00"_s);

        frmBusReorder w;
        child<QTabWidget>(&w, "ctabThis")->setCurrentIndex(1);
        child<QComboBox>(&w, "cmbSteward")->setCurrentText(u"小张"_s);
        search(w, &frmBusReorder::cmdFind_Click);
        QCOMPARE(texts(&w, {"txtSumOughtMoney", "txtSumTiChengMoney"}), u"125.00|13.00"_s);
        const QAbstractItemModel* list = child<QTreeView>(&w, "lvwSteward")->model();
        QCOMPARE(list->rowCount(), 2);
        QCOMPARE(list->index(0, 2).data().toString(), u"  120.00"_s);
    }

    // The chart's rows by day, week of the year and month over a year's turn, as the list
    // shows them in whole yuan, and its choice of settlements.
    void chart_data() { // clang-format off
        columns<int, bool, bool, QString>("line", "paid", "free", "expected");
        QTest::newRow("day")   << 0 << true << true << "chart_day";
        QTest::newRow("week")  << 1 << true << true << "chart_week";
        QTest::newRow("month") << 2 << true << true << "chart_month";
        QTest::newRow("paid only") << 0 << true << false << "2025-12-31 2026-01-04 2026-02-10";
        QTest::newRow("free only") << 0 << false << true << "2026-01-01";
        QTest::newRow("none: the free line") << 0 << false << false << "2026-01-01"; // clang-format on
    }
    void chart() {
        auto [line, paid, free, expected] = fetch<int, bool, bool, QString>("line", "paid", "free", "expected");
        NEW_VENUE(v);
        room();
        bill(u"b1"_s, u"2025-12-31 20:00"_s, 0, 100, 90, 30);
        bill(u"b2"_s, u"2026-01-01 10:00"_s, 1, 50, 0, -20);
        bill(u"b3"_s, u"2026-01-03 12:00"_s, 2, 80, 80, 40);
        bill(u"b4"_s, u"2026-01-04 09:00"_s, 0, 120.5, 120.5, 60.5);
        bill(u"b5"_s, u"2026-02-10 16:00"_s, 0, 200, 200, 100);
        bill(u"b6"_s, {}, 0, 500, 500, 500);
        frmChart w;
        child<QDateTimeEdit>(&w, "dtpStart")->setDateTime(QDateTime(QDate(2025, 12, 1), QTime(0, 0)));
        child<QDateTimeEdit>(&w, "dtpEnd")->setDateTime(QDateTime(QDate(2026, 3, 1), QTime(0, 0)));
        child<QRadioButton>(&w, QByteArray("optType" + QByteArray::number(line)).constData())->setChecked(true);
        auto* states = child<QListWidget>(&w, "lstState");
        states->item(0)->setSelected(paid);
        states->item(1)->setSelected(free);
        search(w, &frmChart::LoadExpense);
        if (expected.startsWith(u"chart_"_s)) {
            QCOMPARE(w.seriesText(), golden(expected));
            return;
        }
        QStringList days;
        const QStringList lines = w.seriesText().split(u'\n', Qt::SkipEmptyParts).mid(1);
        for (const QString& l : lines)
            days << l.section(u'\t', 0, 0);
        QCOMPARE(days.join(u' '), expected);
    }
};

QTEST_MAIN(TestBusiness)
#include "test_business.moc"
