#include "AppState.h"
#include "Columns.h"
#include "DbProbe.h"
#include "FindService.h"
#include "FormProbe.h"
#include "PrintQueue.h"
#include "ReceiptLayout.h"
#include "ReportQuery.h"
#include "Seed.h"
#include "TestVenue.h"
#include "frmFind.h"
#include <QCheckBox>
#include <QDateTimeEdit>
#include <QPushButton>
#include <QSemaphore>
#include <QFile>
#include <QListWidget>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {
const QDateTime Day(QDate(2026, 11, 21), QTime(0, 0));

// A settled bill of room r1 or r2; `voucher` 0 paid, 1 free, 2 deferred.
void bill(const QString& id, const QString& room, const QString& open, const QString& close, int voucher,
          int guests, double fact, double cash, double card = 0, double free = 0,
          const QString& closer = u"小王"_s) {
    DB().exec(u"insert into Expense (ExpenseID, TheID, OpenTime, CloseTime, State, VoucherState, openOperator, "
              "CloseOperator, CustomerNum, StartMoney, oughtMoney, factpay, CashPay, chongzhipay, freepay) "
              "values (?, ?, ?, ?, ?, ?, '小李', ?, ?, ?, ?, ?, ?, ?, ?)"_s,
              {id, room, open, close.isEmpty() ? Param(nullptr) : Param(close), close.isEmpty() ? 1 : 0, voucher,
               closer, guests, Money::yuan(guests), Money::fromDouble(fact + 10), Money::fromDouble(fact),
               Money::fromDouble(cash), Money::fromDouble(card), Money::fromDouble(free)});
}
void sale(const QString& id, const QString& open, double fact) {
    DB().exec(u"insert into Outsale (ExpenseID, OpenTime, CloseTime, openOperator, oughtMoney, factpay, CashPay) "
              "values (?, ?, ?, '小王', ?, ?, ?)"_s,
              {id, open, open, Money::fromDouble(fact), Money::fromDouble(fact), Money::fromDouble(fact)});
}
void line(const QString& bill, const QString& id, const QString& time, int isdel) {
    DB().exec(u"insert into ExpenseDetail (DetailID, ExpenseID, WareID, ExpenseTime, num, oughtMoney, isdel) "
              "values (?, ?, 'w1', ?, 1, 80000, ?)"_s,
              {id, bill, time, isdel});
}

void venue() {
    addRoomType(u"a"_s, u"中包"_s);
    addRoom(u"r1"_s, u"B02"_s, u"a"_s);
    addRoom(u"r2"_s, u"K01"_s, u"a"_s);
}

QString golden(const QString& name) {
    QFile f(QStringLiteral(QT_TESTCASE_SOURCEDIR "/printing/golden/") + name + u".txt"_s);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : u"missing "_s + f.fileName();
}

QString lastSlip(Paper paper = Paper::mm58) {
    const QString job = text(u"select JobID from PrintJob order by Seq desc"_s);
    return ReceiptText(PrintQueue::Document(job), paper);
}
} // namespace

class TestFind : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // Which bills each choice of settlements keeps, on a period with bills just inside and
    // just outside its ends and an open bill.
    void choiceAndPeriod_data() { // clang-format off
        columns<bool, bool, bool, QString>("paid", "free", "deferred", "bills");
        QTest::newRow("all")             << true  << true  << true  << "e1 e2 e3 e4";
        QTest::newRow("none is all")     << false << false << false << "e1 e2 e3 e4";
        QTest::newRow("paid")            << true  << false << false << "e1 e4";
        QTest::newRow("paid and free")   << true  << true  << false << "e1 e2 e4";
        QTest::newRow("paid, deferred")  << true  << false << true  << "e1 e3 e4";
        QTest::newRow("free")            << false << true  << false << "e2";
        QTest::newRow("free, deferred")  << false << true  << true  << "e2 e3";
        QTest::newRow("deferred")        << false << false << true  << "e3"; // clang-format on
    }
    void choiceAndPeriod() {
        auto [paid, free, deferred, expected] = fetch<bool, bool, bool, QString>("paid", "free", "deferred", "bills");
        NEW_VENUE(v);
        venue();
        bill(u"e0"_s, u"r1"_s, u"2026-11-20 22:00"_s, u"2026-11-20 23:59"_s, 0, 2, 100, 100);
        bill(u"e1"_s, u"r1"_s, u"2026-11-20 23:00"_s, u"2026-11-21 00:00"_s, 0, 2, 100, 100); // start: in
        bill(u"e2"_s, u"r2"_s, u"2026-11-21 10:00"_s, u"2026-11-21 12:00"_s, 1, 3, 0, 0);
        bill(u"e3"_s, u"r2"_s, u"2026-11-21 13:00"_s, u"2026-11-21 15:00"_s, 2, 4, 0, 0);
        bill(u"e4"_s, u"r1"_s, u"2026-11-21 16:00"_s, u"2026-11-21 23:59"_s, 0, 5, 50, 50);
        bill(u"e5"_s, u"r1"_s, u"2026-11-21 23:00"_s, u"2026-11-22 00:00"_s, 0, 6, 70, 70); // end: out
        bill(u"e6"_s, u"r2"_s, u"2026-11-21 19:00"_s, {}, 0, 7, 0, 0);                     // open
        QStringList ids;
        for (const Row r : FindService().bills(Day, Day.addDays(1), {paid, free, deferred}))
            ids << r.text(u"ExpenseID"_s);
        ids.sort();
        QCOMPARE(ids.join(u' '), expected);
        // Equal ends: the bills closed in that very minute.
        QCOMPARE(FindService().bills(Day, Day, {}).count(), 1);
        // Counter sales by their opening time, with the same ends.
        sale(u"s1"_s, u"2026-11-21 00:00"_s, 10);
        sale(u"s2"_s, u"2026-11-22 00:00"_s, 20);
        QCOMPARE(FindService().sales(Day, Day.addDays(1)).count(), 1);
    }

    // The window as a manager uses it: search today, look at a bill's lines with and without
    // the voided ones, and print both summaries, which read as their designs.
    void window() {
        NEW_VENUE(v);
        venue();
        bill(u"20261121170000"_s, u"r1"_s, u"2026-11-21 17:30"_s, u"2026-11-21 19:45"_s, 0, 6, 440, 240, 200);
        bill(u"20261121180000"_s, u"r2"_s, u"2026-11-21 18:00"_s, u"2026-11-21 21:10"_s, 2, 12, 1288, 1288, 0, 0,
             u"系统管理员"_s);
        line(u"20261121170000"_s, u"d1"_s, u"2026-11-21 17:40"_s, 0);
        line(u"20261121170000"_s, u"d2"_s, u"2026-11-21 17:50"_s, 1);
        sale(u"s1"_s, u"2026-11-21 12:00"_s, 100);
        sale(u"s2"_s, u"2026-11-21 13:00"_s, 46);

        App().CompanyName = u"星澜KTV（滨江店）"_s;
        frmFind w;
        // Printed before any search: the summary has empty amounts.
        w.cmdFindPrintOK_Click();
        QVERIFY(lastSlip().contains(u"实收合计"_s));
        QVERIFY(!lastSlip().contains(u"1,728.00"_s));

        w.show();
        QTest::mouseClick(child<QPushButton>(&w, "cmdFind"), Qt::LeftButton);
        QVERIFY(w.query().busy());
        QVERIFY(!child<QPushButton>(&w, "cmdFind")->isEnabled()); // one search at a time
        QVERIFY(w.query().wait());
        QVERIFY(child<QPushButton>(&w, "cmdFind")->isEnabled());
        QCOMPARE(texts(&w, {"lblSumNum", "lblSumStartMoney", "lblSumExpenseMoney", "lblSumMoney", "lblCashPay",
                            "lblSumChongzhi", "lblSumFreePay", "lblSumExpenseMoneyOutsale", "lblSumMoneyOutsale"}),
                 u"18|18.00|1,748.00|1,728.00|1,528.00|200.00|0.00|146.00|146.00"_s);
        auto* bills = child<QTreeView>(&w, "lvwExpense");
        QCOMPARE(bills->model()->rowCount(), 2);
        // A click on the first bill shows its lines.
        QTest::mouseClick(bills->viewport(), Qt::LeftButton, {}, bills->visualRect(bills->model()->index(0, 1)).center());
        QCOMPARE(child<QTreeWidget>(&w, "lvwDetail")->topLevelItemCount(), 1);
        child<QCheckBox>(&w, "chkShowAll")->setChecked(true);
        QCOMPARE(child<QTreeWidget>(&w, "lvwDetail")->topLevelItemCount(), 2);
        QCOMPARE(child<QTreeView>(&w, "lvwOutSale")->model()->rowCount(), 2);

        w.cmdPrint_Click();
        QCOMPARE(lastSlip(), golden(u"DRCloseHouse"_s));
        w.cmdFindPrintOK_Click();
        QCOMPARE(lastSlip(Paper::mm80), golden(u"DRFindPrint"_s));
        messages();

        // Only the deferred bills of an empty span: every label empty.
        child<QListWidget>(&w, "lstState")->item(0)->setSelected(false);
        w.optDay_Click(0);
        child<QDateTimeEdit>(&w, "dtpStart")->setDateTime(Day.addDays(-3));
        child<QDateTimeEdit>(&w, "dtpEnd")->setDateTime(Day.addDays(-2));
        w.cmdFind_Click();
        QVERIFY(w.query().wait());
        QCOMPARE(texts(&w, {"lblSumNum", "lblSumMoney", "lblSumMoneyOutsale"}), u"||"_s);
        QCOMPARE(bills->model()->rowCount(), 0);
        QCOMPARE(messages(), QStringList());
    }

    // A window closed during a long search closes at once; the search ends by itself.
    void closingDoesNotWait() {
        NEW_VENUE(v);
        QSemaphore go;
        auto ended = std::make_shared<QAtomicInt>(0);
        auto* q = new ReportQuery(nullptr, nullptr, nullptr);
        QVERIFY(q->run([&go, ended](Db&) { go.acquire(); ended->storeRelaxed(1); }, [] {}, [](const DbError&) {}));
        QVERIFY(!q->run([](Db&) {}, [] {}, [](const DbError&) {})); // one at a time
        delete q; // would wait for ever for the search it holds back
        go.release();
        QTRY_COMPARE(ended->loadRelaxed(), 1);
    }
};

QTEST_MAIN(TestFind)
#include "test_find.moc"
