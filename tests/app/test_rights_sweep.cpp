#include "AppState.h"
#include "DbProbe.h"
#include "FormProbe.h"
#include "MainCommands.h"
#include "OperatorService.h"
#include "Puissance.h"
#include "TestVenue.h"
#include "frmLog.h"
#include "frmMain.h"
#include "frmOperatorList.h"
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString NoRight = u"您没有操作此项业务的权限！"_s;

void signInWithoutRights() {
    DB().exec(
        u"insert into Operator (OperatorID, LoginName, operatorname, State) values ('nobody', 'n', '新人', 0)"_s);
    App().CurrentOperatorID = u"nobody"_s;
    App().CurrentOperatorName = u"新人"_s;
}
} // namespace

// Every guarded entry of the menu table refuses an operator without rights, once each; the
// built-in administrator holds every code the table names.
class TestRightsSweep : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void codes_exist_and_admin_holds_them() {
        NEW_VENUE(v);
        for (const MenuCommand& c : MenuCommands()) {
            if (c.right.isEmpty()) continue;
            QVERIFY2(count(u"select count(*) from SysPuissance where SysPuissanceID=?"_s, {c.right}) == 1,
                     qPrintable(c.right));
            QVERIFY2(HasPuissance(BuiltInAdminID, c.right), qPrintable(c.right));
        }
    }

    void menus_refuse_without_rights() {
        NEW_VENUE(v);
        signInWithoutRights();
        frmMain main;
        messages();
        for (const MenuCommand& c : MenuCommands()) {
            if (c.right.isEmpty()) continue;
            main.runCommand(c.name);
            QCOMPARE(messages(), QStringList{NoRight});
        }
    }

    void form_buttons_refuse_without_rights() {
        NEW_VENUE(v);
        signInWithoutRights();
        frmOperatorList operators;
        operators.LoadData();
        frmLog log;
        const QList<QPair<QWidget*, const char*>> buttons{{&operators, "cmdOperatorAdd"},
                                                          {&operators, "cmdOperatorEdit"},
                                                          {&operators, "cmdOperatorDel"},
                                                          {&log, "cmdDel"}};
        const qint64 rows = count(u"select count(*) from s_log"_s);
        for (const auto& [form, name] : buttons) {
            child<QPushButton>(form, name)->click();
            QCOMPARE(messages(), QStringList{NoRight});
        }
        QCOMPARE(count(u"select count(*) from s_log"_s), rows);
    }
};

QTEST_MAIN(TestRightsSweep)
#include "test_rights_sweep.moc"
