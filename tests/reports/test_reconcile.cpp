#include "AppState.h"
#include "DbProbe.h"
#include "FormProbe.h"
#include "Reconcile.h"
#include "Seed.h"
#include "TestVenue.h"
#include "Together.h"
#include "frmCheckForm.h"
#include "frmShouyinInfo.h"
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {
void bill(const char* id, const char* closer, double fact, double cash, double free, const char* checked = "") {
    DB().exec(u"insert into Expense (ExpenseID, TheID, OpenTime, CloseTime, State, CloseOperator, openOperator, "
              "factpay, CashPay, freepay, CheckForm) values (?, 'r1', '2026-11-21 18:00', ?, 0, ?, ?, ?, ?, ?, ?)"_s,
              {QString::fromLatin1(id), u"2026-11-21 19:"_s + QString::fromLatin1(id).right(2),
               QString::fromUtf8(closer), QString::fromUtf8(closer), Money::fromDouble(fact), Money::fromDouble(cash),
               Money::fromDouble(free), QString::fromLatin1(checked)});
}
void sale(const char* id, const char* closer, double fact) {
    DB().exec(u"insert into Outsale (ExpenseID, CloseTime, CloseOperator, factpay, CashPay) values (?, "
              "'2026-11-21 19:30', ?, ?, ?)"_s,
              {QString::fromLatin1(id), QString::fromUtf8(closer), Money::fromDouble(fact), Money::fromDouble(fact)});
}
} // namespace

class TestReconcile : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void shiftHandOver() {
        NEW_VENUE(v);
        addRoomType(u"a"_s, u"中包"_s);
        addRoom(u"r1"_s, u"B01"_s, u"a"_s);
        App().CurrentOperatorName = u"小王"_s;
        bill("e01", "小王", 300, 200, 50);
        bill("e02", "小王", 88.5, 88.5, 0);
        bill("e03", "小李", 999, 999, 0);
        bill("e04", "小王", 40, 40, 0, "Y");
        sale("s01", "小王", 46);

        frmCheckForm w;
        w.LoadData();
        QCOMPARE(texts(&w, {"txtName", "txtTotal", "txtCashPay", "txtTotalFreepay"}), u"小王|434.50|334.50|50.00"_s);
        QCOMPARE(child<QTreeWidget>(&w, "lvwThis")->topLevelItemCount(), 2);
        // Closed at another till after the window listed its bills: left for the next shift.
        bill("e05", "小王", 10, 10, 0);
        w.SaveData();
        QCOMPARE(messages(), QStringList{u"完成对帐工作！"_s});
        QCOMPARE(dump(u"select ExpenseID from Expense where CheckForm='Y' order by ExpenseID"_s), u"e01\ne02\ne04"_s);
        QCOMPARE(text(u"select CheckForm from Outsale"_s), u"Y"_s);
        QCOMPARE(dump(u"select ShouyinName, theMoney from Shouyininfo"_s), u"小王|4345000"_s);

        // Only retail sales left, then nothing: both reconcile and are recorded.
        DB().exec(u"update Expense set CheckForm='Y' where ExpenseID='e05'"_s);
        sale("s02", "小王", 12);
        ReconcileService s;
        QCOMPARE(ReconcileService::totals(s.bills(u"小王"_s), s.sales(u"小王"_s)).factPay, Money::yuan(12));
        QVERIFY(!s.reconcile(u"小王"_s, {}, {u"s02"_s}, Money::yuan(12)));
        QCOMPARE(count(u"select count(*) from Outsale where CheckForm='Y'"_s), 2);
        QVERIFY(!s.reconcile(u"小王"_s, {}, {}, Money()));
        // Bills listed but all reconciled meanwhile elsewhere: refused, nothing recorded.
        QCOMPARE(s.reconcile(u"小王"_s, {u"e01"_s}, {}, Money::yuan(300))->message,
                 u"没找到相关数据，请重新打开本窗口再试！"_s);
        QCOMPARE(count(u"select count(*) from Shouyininfo"_s), 3);

        const QDateTime day(QDate(2026, 11, 21), QTime(0, 0));
        QCOMPARE(s.records(day, day.addDays(1), u"王"_s).count(), 3);
        QCOMPARE(s.records(day.addDays(1), day.addDays(2), {}).count(), 0);
        frmShouyinInfo info;
        info.cmdFind_Click();
        QCOMPARE(child<QLabel>(&info, "lblSumMoney")->text(), u"￥446.50"_s);
    }

    // A cashier reconciles again and again while his bills close at another till: every
    // hand-over holds exactly the money of the bills it stamped, and nothing is lost.
    void racesCheckout() {
        NEW_VENUE(v);
        addRoomType(u"a"_s, u"中包"_s);
        addRoom(u"r1"_s, u"B01"_s, u"a"_s);
        const int bills = 60;
        together(v.config(), 2, [&](Db& db, int n) {
            if (n == 1) {
                for (int i = 0; i < bills; ++i)
                    db.exec(u"insert into Expense (ExpenseID, TheID, OpenTime, CloseTime, State, CloseOperator, "
                            "factpay) values (?, 'r1', '2026-11-21 18:00', '2026-11-21 19:00', 0, '小王', ?)"_s,
                            {u"b%1"_s.arg(i, 3, 10, QLatin1Char('0')), Money::yuan(i + 1)});
                return;
            }
            ReconcileService s(db);
            for (int round = 0; round < 40; ++round) {
                const Rows listed = s.bills(u"小王"_s);
                QStringList ids;
                for (const Row r : listed)
                    ids << r.text(u"ExpenseID"_s);
                s.reconcile(u"小王"_s, ids, {}, ReconcileService::totals(listed, {}).factPay);
            }
        });
        ReconcileService s;
        const Rows rest = s.bills(u"小王"_s);
        QStringList ids;
        for (const Row r : rest)
            ids << r.text(u"ExpenseID"_s);
        QVERIFY(!s.reconcile(u"小王"_s, ids, {}, ReconcileService::totals(rest, {}).factPay));
        QCOMPARE(count(u"select count(*) from Expense where CheckForm='Y'"_s), bills);
        QCOMPARE(text(u"select sum(theMoney) from Shouyininfo"_s), QString::number(Money::yuan(bills * (bills + 1) / 2).raw()));
    }
};

QTEST_MAIN(TestReconcile)
#include "test_reconcile.moc"
