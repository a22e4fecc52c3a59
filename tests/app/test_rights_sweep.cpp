#include "MainCommands.h"
#include "OperatorService.h"
#include "Puissance.h"
#include "TestKit.h"
#include "frmChongzhiList.h"
#include "frmCloseHouse.h"
#include "frmEmployeeList.h"
#include "frmExpenseDetail.h"
#include "frmLog.h"
#include "frmMain.h"
#include "frmMemberList.h"
#include "frmOperatorList.h"
#include "frmOption.h"
#include "frmOutSale.h"
#include "frmReservation.h"
#include "frmSetupMember.h"
#include "frmSupplierList.h"
#include "frmUpdate.h"

namespace {
const QString NoRight = u"您没有操作此项业务的权限！"_s;

void signInWithoutRights() {
    DB().exec(
        u"insert into Operator (OperatorID, LoginName, operatorname, State) values ('nobody', 'n', '新人', 0)"_s);
    App().CurrentOperatorID = u"nobody"_s;
    App().CurrentOperatorName = u"新人"_s;
}

// A dialog that opens past a missing check is shut at once and named, so the sweep fails
// rather than waits on it.
struct DialogGuard {
    QStringList slipped;
    QTimer timer;
    DialogGuard() {
        QObject::connect(&timer, &QTimer::timeout, [this] {
            if (auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                slipped << d->objectName();
                d->reject();
            }
        });
        timer.start(10);
    }
};
} // namespace

// Every guarded entry of the menu table refuses an operator without rights, once each; the
// built-in administrator holds every code the table names.
class TestRightsSweep : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void menus_refuse_without_rights() {
        NEW_VENUE(v);
        signInWithoutRights();
        frmMain main;
        messages();
        DialogGuard guard;
        for (const MenuCommand& c : MenuCommands()) {
            if (c.right.isEmpty()) continue;
            QVERIFY2(count(u"select count(*) from SysPuissance where SysPuissanceID=?"_s, {c.right}) == 1,
                     qPrintable(c.right));
            QVERIFY2(HasPuissance(BuiltInAdminID, c.right), qPrintable(c.right));
            main.runCommand(c.name);
            QCOMPARE(messages(), QStringList{NoRight});
        }
        QCOMPARE(guard.slipped, QStringList());
    }

    // Every guarded button of the table, in its real window: refused without the right, once,
    // and nothing written; the administrator gets through each.
    void form_buttons_refuse_without_rights() {
        NEW_VENUE(v);
        std::map<QString, std::unique_ptr<QWidget>> forms;
        for (QWidget* w : std::initializer_list<QWidget*>{
                 new frmOption, new frmLog, new frmOperatorList, new frmExpenseDetail, new frmOutSale,
                 new frmCloseHouse, new frmEmployeeList, new frmMemberList, new frmChongzhiList,
                 new frmSetupMember, new frmReservation, new frmSupplierList, new frmUpdate})
            forms[w->objectName()].reset(w);
        // The window of the entry, or the page of a window it names.
        const auto form = [&](const GuardedButton& g) -> QWidget* {
            for (const auto& [name, f] : forms)
                if (QWidget* w = name == g.form ? f.get() : f->findChild<QWidget*>(g.form)) return w;
            return nullptr;
        };
        for (const GuardedButton& g : GuardedButtons())
            QVERIFY2(form(g) && CheckButton(form(g), g.button), qPrintable(g.form + u'.' + g.button));
        QCOMPARE(messages(), QStringList());

        signInWithoutRights();
        const qint64 rows = count(u"select count(*) from s_log"_s);
        DialogGuard guard;
        for (const GuardedButton& g : GuardedButtons()) {
            QAbstractButton* b = form(g)->findChild<QAbstractButton*>(g.button);
            QVERIFY2(b, qPrintable(g.form + u'.' + g.button));
            b->setEnabled(true);
            b->click();
            QVERIFY2(messages() == QStringList{NoRight}, qPrintable(g.form + u'.' + g.button));
        }
        QCOMPARE(guard.slipped, QStringList());
        QCOMPARE(count(u"select count(*) from s_log"_s), rows);
    }
};

QTEST_MAIN(TestRightsSweep)
#include "test_rights_sweep.moc"
