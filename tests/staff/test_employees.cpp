#include "EmployeeService.h"
#include "TestKit.h"
#include "frmEmployeeList.h"

namespace {
EmployeeInput person(const QString& code, const QString& name) {
    EmployeeInput in;
    in.code = code;
    in.name = name;
    return in;
}
} // namespace

class TestEmployees : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void validate_data() { // clang-format off
        columns<QString, QString, QString, QString>("code", "name", "message", "field");
        QTest::newRow("no code") << " " << "张三" << "请输入员工编号！" << "txtEmployeeCode";
        QTest::newRow("no name") << "E1" << "  " << "请输入员工姓名！" << "txtEmployeeName";
        QTest::newRow("both missing: code first") << "" << "" << "请输入员工编号！" << "txtEmployeeCode"; // clang-format on
    }
    void validate() {
        auto [code, name, message, field] =
            fetch<QString, QString, QString, QString>("code", "name", "message", "field");
        const Refused r = EmployeeService::validate(person(code, name));
        QCOMPARE(refusal(r), refusal(message, field));
    }

    void save_and_photo() {
        NEW_VENUE(v);
        EmployeeService s;
        EmployeeInput in = person(u"E'1"_s, u"王\"小二"_s);
        in.male = false;
        in.born = QDate(1999, 2, 28);
        in.state = 1;
        in.movePhone = u"13800000000"_s;
        QTemporaryFile pic;
        QVERIFY(pic.open());
        QImage img(8, 8, QImage::Format_RGB32);
        img.fill(Qt::red);
        img.save(&pic, "PNG");
        pic.close();
        const EmployeeSaved a = s.save({}, in, {PhotoChange::File, pic.fileName()});
        QVERIFY(a.ok());
        const EmployeeInput back = *s.load(a.id);
        QCOMPARE((QVariantList{back.code, back.name, back.male, back.born, back.state, back.movePhone}),
                 (QVariantList{u"E'1"_s, u"王\"小二"_s, false, QDate(1999, 2, 28), 1, u"13800000000"_s}));
        QVERIFY(!s.photo(a.id).isEmpty());
        // Keeping leaves the photo, clearing removes it.
        in.name = u"王小二"_s;
        QVERIFY(s.save(a.id, in, {PhotoChange::Keep, {}}).ok());
        QVERIFY(!s.photo(a.id).isEmpty());
        QVERIFY(s.save(a.id, in, {PhotoChange::Clear, {}}).ok());
        QVERIFY(s.photo(a.id).isEmpty());
        // Codes may repeat.
        QVERIFY(s.save({}, person(u"E'1"_s, u"李四"_s), {}).ok());
        QCOMPARE(count(u"select count(*) from Employee"_s), 2);
        // An employee deleted meanwhile is not written back.
        DB().exec(u"delete from Employee where EmployeeID=?"_s, {a.id});
        const EmployeeSaved gone = s.save(a.id, in, {});
        QVERIFY(gone.ok() && gone.id.isEmpty());
        QCOMPARE(count(u"select count(*) from Employee"_s), 1);
    }

    // Both the employee list and the upgrade window recalculate from today's rates: an empty
    // name and a void still count, goods deleted since give none, a line credited to nobody stays.
    void recalc_commissions_data() {
        QTest::addColumn<bool>("upgrade");
        QTest::newRow("employee list") << false;
        QTest::newRow("upgrade window") << true;
    }
    void recalc_commissions() {
        QFETCH(bool, upgrade);
        NEW_VENUE(v);
        EmployeeService s;
        const auto run = [&](int lines) {
            if (upgrade)
                QCOMPARE(RecalcCommissionLines(), lines);
            else
                QCOMPARE(s.recalcCommissions(), lines ? CommissionRun::Done : CommissionRun::NothingToDo);
        };
        run(0);
        DB().exec(
            u"insert into Ware (WareID, WareName, tiCheng) values ('w1', '洋酒', ?), ('w2', '果盘', ?)"_s,
            {Money::yuan(10), Money::fromDouble(2.5)});
        auto line = [](const char* id, const char* ware, double num, const QVariant& other1, int isdel) {
            DB().exec(u"insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Other1, TiChengMoney, "
                      "isdel) values (?, 'e', ?, ?, ?, 7, ?)"_s,
                      {QString::fromLatin1(id), QString::fromLatin1(ware), num,
                       other1.isNull() ? Param(nullptr) : Param(other1.toString()), isdel});
        };
        line("d1", "w1", 2, u"张三"_s, 0);
        line("d2", "w2", 1.5, QString(), 1);
        line("d3", "gone", 3, u"李四"_s, 0);
        line("d4", "w1", 5, QVariant(), 0);
        run(3);
        const QString money = u"select TiChengMoney from ExpenseDetail order by DetailID"_s;
        QCOMPARE(dump(money), u"200000\n37500\n0\n7"_s);
        // A second run gives the same.
        run(3);
        QCOMPARE(dump(money), u"200000\n37500\n0\n7"_s);
    }

    void list_window() {
        NEW_VENUE(v);
        EmployeeService s;
        EmployeeInput off = person(u"E2"_s, u"李四"_s);
        off.state = 1;
        QVERIFY(s.save({}, person(u"E1"_s, u"张三"_s), {}).ok());
        QVERIFY(s.save({}, off, {}).ok());
        DB().exec(u"insert into ExpenseDetail (DetailID, ExpenseID, Other1) values ('d', 'e', '张三')"_s);

        frmEmployeeList w;
        w.prepare(false);
        auto* list = child<QTreeWidget>(w, "lvwThis");
        QCOMPARE(column(list, u"State"_s), (QStringList{u"在职"_s, u"停职"_s}));

        onModal([](QDialog* d) {
            child<QLineEdit>(d, "txtEmployeeCode")->setText(u"E3"_s);
            child<QPushButton>(d, "cmdOK")->click();
            QCOMPARE(messages(), QStringList{u"请输入员工姓名！"_s});
            child<QLineEdit>(d, "txtEmployeeName")->setText(u"赵五"_s);
            child<QRadioButton>(d, "optSex1")->setChecked(true);
            child<QPushButton>(d, "cmdOK")->click();
        });
        w.cmdAdd_Click();
        QCOMPARE(list->topLevelItemCount(), 3);
        // No birthday typed: none stored.
        QCOMPARE(dump(u"select Sex, EmployeeBorn from Employee where Employeecode='E3'"_s), u"女|"_s);

        // Deleting asks nothing and leaves the name on old lines.
        selectRow(list, u"Employeecode"_s, u"E1"_s);
        w.cmdDel_Click();
        QCOMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(count(u"select count(*) from ExpenseDetail where Other1='张三'"_s), 1);

        // Pick mode hands back the key.
        w.prepare(true);
        list->setCurrentItem(list->topLevelItem(0));
        const QString id = w.selectedID();
        w.cmdSelect_Click();
        QCOMPARE(count(u"select count(*) from Employee where EmployeeID=?"_s, {id}), 1);
    }
};

QTEST_MAIN(TestEmployees)
#include "test_employees.moc"
