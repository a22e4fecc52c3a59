#include "AppState.h"
#include "EmployeeService.h"
#include "ListColumns.h"
#include "ModalDriver.h"
#include "Money.h"
#include "TestVenue.h"
#include "frmEmployee.h"
#include "frmEmployeeList.h"
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryFile>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <functional>

namespace {
EmployeeInput person(const QString& code, const QString& name) {
    EmployeeInput in;
    in.code = code;
    in.name = name;
    return in;
}
qint64 count(const QString& sql, const Params& p = {}) {
    return DB().scalar(sql, p).toLongLong();
}

QStringList column(QTreeWidget* list, const QString& colname) {
    QStringList out;
    const int c = ListColumn(list, colname);
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(c);
    return out;
}
} // namespace

class TestEmployees : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void validate_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        QTest::newRow("no code") << " "
                                 << "张三"
                                 << "请输入员工编号！"
                                 << "txtEmployeeCode";
        QTest::newRow("no name") << "E1"
                                 << "  "
                                 << "请输入员工姓名！"
                                 << "txtEmployeeName";
        QTest::newRow("both missing: code first") << ""
                                                  << ""
                                                  << "请输入员工编号！"
                                                  << "txtEmployeeCode";
        QTest::newRow("fine") << "E1"
                              << "张三"
                              << ""
                              << "";
    }
    void validate() {
        QFETCH(QString, code);
        QFETCH(QString, name);
        QFETCH(QString, message);
        QFETCH(QString, field);
        const Refused r = EmployeeService::validate(person(code, name));
        QCOMPARE(r ? r->message : QString(), message);
        QCOMPARE(r ? r->field : QString(), field);
    }

    void save_and_photo() {
        TestVenue v;
        OPEN_VENUE(v);
        EmployeeService s;
        EmployeeInput in = person(QStringLiteral("E'1"), QStringLiteral("王\"小二"));
        in.male = false;
        in.born = QDate(1999, 2, 28);
        in.state = 1;
        in.movePhone = QStringLiteral("13800000000");
        QTemporaryFile pic;
        QVERIFY(pic.open());
        QImage img(8, 8, QImage::Format_RGB32);
        img.fill(Qt::red);
        img.save(&pic, "PNG");
        pic.close();
        const EmployeeSaved a = s.save({}, in, {PhotoChange::File, pic.fileName()});
        QVERIFY(a.ok());
        const EmployeeInput back = *s.load(a.id);
        QCOMPARE(back.code, QStringLiteral("E'1"));
        QCOMPARE(back.name, QStringLiteral("王\"小二"));
        QVERIFY(!back.male);
        QCOMPARE(back.born, QDate(1999, 2, 28));
        QCOMPARE(back.state, 1);
        QCOMPARE(back.movePhone, QStringLiteral("13800000000"));
        QVERIFY(!s.photo(a.id).isEmpty());
        // Keeping leaves the photo, clearing removes it.
        in.name = QStringLiteral("王小二");
        QVERIFY(s.save(a.id, in, {PhotoChange::Keep, {}}).ok());
        QVERIFY(!s.photo(a.id).isEmpty());
        QVERIFY(s.save(a.id, in, {PhotoChange::Clear, {}}).ok());
        QVERIFY(s.photo(a.id).isEmpty());
        // Codes may repeat.
        QVERIFY(s.save({}, person(QStringLiteral("E'1"), QStringLiteral("李四")), {}).ok());
        QCOMPARE(count(QStringLiteral("select count(*) from Employee")), 2);
        // An employee deleted meanwhile is not written back.
        DB().exec(QStringLiteral("delete from Employee where EmployeeID=?"), {a.id});
        const EmployeeSaved gone = s.save(a.id, in, {});
        QVERIFY(gone.ok());
        QCOMPARE(gone.id, QString());
        QCOMPARE(count(QStringLiteral("select count(*) from Employee")), 1);
    }

    void recalc_commissions() {
        TestVenue v;
        OPEN_VENUE(v);
        EmployeeService s;
        QCOMPARE(s.recalcCommissions(), CommissionRun::NothingToDo);
        DB().exec(
            QStringLiteral(
                "insert into Ware (WareID, WareName, tiCheng) values ('w1', '洋酒', ?), ('w2', '果盘', ?)"),
            {Money::yuan(10), Money::fromDouble(2.5)});
        auto line = [](const char* id, const char* ware, double num, const QVariant& other1, int isdel) {
            DB().exec(
                QStringLiteral(
                    "insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Other1, TiChengMoney, "
                    "isdel) values (?, 'e', ?, ?, ?, 7, ?)"),
                {QString::fromLatin1(id), QString::fromLatin1(ware), num,
                 other1.isNull() ? Param(nullptr) : Param(other1.toString()), isdel});
        };
        line("d1", "w1", 2, QStringLiteral("张三"), 0);
        line("d2", "w2", 1.5, QString(), 1);              // empty name still counts, voids too
        line("d3", "gone", 3, QStringLiteral("李四"), 0); // goods deleted since
        line("d4", "w1", 5, QVariant(), 0);               // nobody credited: untouched
        QCOMPARE(s.recalcCommissions(), CommissionRun::Done);
        auto money = [](const char* id) {
            return DB()
                .query(QStringLiteral("select TiChengMoney from ExpenseDetail where DetailID=?"),
                       {QString::fromLatin1(id)})
                .first()
                .money(QStringLiteral("TiChengMoney"));
        };
        QCOMPARE(money("d1"), Money::yuan(20));
        QCOMPARE(money("d2"), Money::fromDouble(3.75));
        QCOMPARE(money("d3"), Money());
        QCOMPARE(money("d4"), Money::fromRaw(7));
        // A second run gives the same.
        QCOMPARE(s.recalcCommissions(), CommissionRun::Done);
        QCOMPARE(money("d1"), Money::yuan(20));
    }

    void list_window() {
        TestVenue v;
        OPEN_VENUE(v);
        EmployeeService s;
        EmployeeInput off = person(QStringLiteral("E2"), QStringLiteral("李四"));
        off.state = 1;
        QVERIFY(s.save({}, person(QStringLiteral("E1"), QStringLiteral("张三")), {}).ok());
        QVERIFY(s.save({}, off, {}).ok());
        DB().exec(QStringLiteral(
            "insert into ExpenseDetail (DetailID, ExpenseID, Other1) values ('d', 'e', '张三')"));

        frmEmployeeList w;
        w.prepare(false);
        auto* list = w.findChild<QTreeWidget*>(QStringLiteral("lvwThis"));
        QCOMPARE(list->headerItem()->text(ListColumn(list, QStringLiteral("EmployeeName"))),
                 QStringLiteral("姓名"));
        QCOMPARE(column(list, QStringLiteral("State")),
                 (QStringList{QStringLiteral("在职"), QStringLiteral("停职")}));

        // Add through the real dialog.
        onModal([](QDialog* d) {
            d->findChild<QLineEdit*>(QStringLiteral("txtEmployeeCode"))->setText(QStringLiteral("E3"));
            d->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
            QCOMPARE(messages(), QStringList{QStringLiteral("请输入员工姓名！")});
            d->findChild<QLineEdit*>(QStringLiteral("txtEmployeeName"))->setText(QStringLiteral("赵五"));
            d->findChild<QRadioButton*>(QStringLiteral("optSex1"))->setChecked(true);
            d->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        });
        w.cmdAdd_Click();
        QCOMPARE(list->topLevelItemCount(), 3);
        QCOMPARE(DB().scalar(QStringLiteral("select Sex from Employee where Employeecode='E3'")).toString(),
                 QStringLiteral("女"));
        // No birthday typed: none stored.
        QCOMPARE(DB().scalar(QStringLiteral("select EmployeeBorn from Employee where Employeecode='E3'"))
                     .toString(),
                 QString());

        // Deleting asks nothing and leaves the name on old lines.
        list->setCurrentItem(list->findItems(QStringLiteral("E1"), Qt::MatchExactly,
                                             ListColumn(list, QStringLiteral("Employeecode")))
                                 .first());
        w.cmdDel_Click();
        QCOMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(count(QStringLiteral("select count(*) from ExpenseDetail where Other1='张三'")), 1);

        // Pick mode hands back the key.
        w.prepare(true);
        list->setCurrentItem(list->topLevelItem(0));
        const QString id = w.selectedID();
        w.cmdSelect_Click();
        QVERIFY(!id.isEmpty());
        QCOMPARE(count(QStringLiteral("select count(*) from Employee where EmployeeID=?"), {id}), 1);
    }

    void changes_need_their_right() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(QStringLiteral("insert into Operator (OperatorID, LoginName, operatorname, State) values "
                                 "('o1', 'c', '收银员', 0)"));
        App().CurrentOperatorID = QStringLiteral("o1");
        QVERIFY(EmployeeService().save({}, person(QStringLiteral("E1"), QStringLiteral("张三")), {}).ok());
        frmEmployeeList w;
        w.prepare(false);
        w.findChild<QTreeWidget*>(QStringLiteral("lvwThis"))
            ->setCurrentItem(w.findChild<QTreeWidget*>(QStringLiteral("lvwThis"))->topLevelItem(0));
        w.cmdDel_Click();
        QCOMPARE(messages().size(), 1);
        QCOMPARE(count(QStringLiteral("select count(*) from Employee")), 1);
    }
};

QTEST_MAIN(TestEmployees)
#include "test_employees.moc"
