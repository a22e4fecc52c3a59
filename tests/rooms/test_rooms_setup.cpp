#include "FormProbe.h"
#include "MessageBox.h"
#include "RoomService.h"
#include "TestVenue.h"
#include "frmHouse.h"
#include "frmHouseAddBat.h"
#include "frmHouseAssort.h"
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {
const QString Tariff = QStringLiteral("00000000000000001"); // the seeded tariff

void addType(const QString& id, const QString& name) {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values (?, ?, ?)"),
              {id, name, Tariff});
}

void addRoom(const QString& id, const QString& code, int state = 0, const QString& other1 = {}) {
    DB().exec(
        QStringLiteral("insert into The (TheID, TheCode, AssortID, State, Other1) values (?, ?, 't1', ?, ?)"),
        {id, code, state, other1});
}

int count(const QString& sql, const Params& p = {}) {
    return DB().scalar(sql, p).toInt();
}
int rooms() {
    return count(QStringLiteral("select count(*) from The"));
}

// The room codes in the order of QStringList::sort, which does not hang on a collation.
QStringList codes() {
    QStringList out;
    for (const Row r : DB().query(QStringLiteral("select TheCode from The")))
        out << r.text(QStringLiteral("TheCode"));
    out.sort();
    return out;
}

QStringList sorted(QStringList list) {
    list.sort();
    return list;
}

QString focused() {
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}

void pick(QComboBox* box, const QString& key) {
    box->setCurrentIndex(box->findData(key));
}

// With SINGBOX_SHOTS naming a folder, forms are also saved there as pictures to look at.
void look(QWidget& w, const QString& name) {
    const QString dir = qEnvironmentVariable("SINGBOX_SHOTS");
    if (dir.isEmpty()) return;
    QDir().mkpath(dir);
    w.grab().save(QDir(dir).filePath(name + QStringLiteral(".png")));
}

void showAndWait(QWidget& w) {
    w.show();
    QVERIFY(QTest::qWaitForWindowActive(&w));
}
} // namespace

class TestRoomsSetup : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // ---- services

    void roomType_data() {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("tariff");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        const QString noName = QStringLiteral("请输入分类名称！"),
                      noTariff = QStringLiteral("请选择包厢所属分类！");
        QTest::newRow("no name") << ""
                                 << "" << Tariff << noName << "txtAssortName";
        QTest::newRow("blank name") << ""
                                    << "  " << Tariff << noName << "txtAssortName";
        QTest::newRow("name checked first") << ""
                                            << ""
                                            << "" << noName << "txtAssortName";
        QTest::newRow("no tariff") << ""
                                   << "豪华包"
                                   << "" << noTariff << "imgcmbAssort";
        QTest::newRow("new") << ""
                             << "豪华包" << Tariff << ""
                             << "";
        QTest::newRow("quotes and emoji") << ""
                                          << "O'Neil \"\\ 🎤" << Tariff << ""
                                          << "";
        QTest::newRow("edit") << "t1"
                              << "改名" << Tariff << ""
                              << "";
        QTest::newRow("edit of a deleted type") << "gone"
                                                << "改名" << Tariff << RoomText::typeGone() << "";
    }
    void roomType() {
        QFETCH(QString, id);
        QFETCH(QString, name);
        QFETCH(QString, tariff);
        QFETCH(QString, message);
        QFETCH(QString, field);
        TestVenue v;
        OPEN_VENUE(v);
        addType(QStringLiteral("t1"), QStringLiteral("小包"));
        const Saved s = RoomService().saveRoomType({id, name, tariff});
        const int types = count(QStringLiteral("select count(*) from TheAssort"));
        if (!message.isEmpty()) {
            QVERIFY(s.refusal);
            QCOMPARE(s.refusal->message, message);
            QCOMPARE(s.refusal->field, field);
            QCOMPARE(types, 1);
            QCOMPARE(DB().scalar(QStringLiteral("select AssortName from TheAssort")).toString(),
                     QStringLiteral("小包"));
            return;
        }
        QVERIFY(s.ok());
        QCOMPARE(types, id.isEmpty() ? 2 : 1);
        const Row r = DB().query(QStringLiteral("select * from TheAssort where AssortID=?"), {s.id}).first();
        QCOMPARE(r.text(QStringLiteral("AssortName")), name);
        QCOMPARE(r.text(QStringLiteral("PayLevelID")), tariff);
    }

    void room_data() {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("stored");
        const QString noCode = QStringLiteral("请输入手牌编号！"),
                      noType = QStringLiteral("请选择包厢的类型！");
        QTest::newRow("no code") << ""
                                 << ""
                                 << "t1" << noCode << "txtHouseCode"
                                 << "";
        QTest::newRow("blank code") << ""
                                    << "   "
                                    << "t1" << noCode << "txtHouseCode"
                                    << "";
        QTest::newRow("code checked first") << ""
                                            << ""
                                            << "" << noCode << "txtHouseCode"
                                            << "";
        QTest::newRow("no type") << ""
                                 << "105"
                                 << "" << noType << "imgcmbAssort"
                                 << "";
        QTest::newRow("code of another room") << ""
                                              << "101"
                                              << "t1" << RoomText::duplicateCode() << "txtHouseCode"
                                              << "";
        QTest::newRow("edit to another's code") << "r2"
                                                << "101"
                                                << "t1" << RoomText::duplicateCode() << "txtHouseCode"
                                                << "";
        QTest::newRow("type deleted meanwhile") << ""
                                                << "105"
                                                << "gone"
                                                << ""
                                                << ""
                                                << "";
        QTest::newRow("edit of a deleted room") << "gone"
                                                << "105"
                                                << "t1" << RoomText::roomGone() << ""
                                                << "";
        QTest::newRow("new") << ""
                             << "105"
                             << "t1"
                             << ""
                             << ""
                             << "105";
        QTest::newRow("code trimmed") << ""
                                      << " 106 "
                                      << "t1"
                                      << ""
                                      << ""
                                      << "106";
        QTest::newRow("quote in code") << ""
                                       << "V'IP"
                                       << "t1"
                                       << ""
                                       << ""
                                       << "V'IP";
        QTest::newRow("edit keeping its code") << "r1"
                                               << "101"
                                               << "t1"
                                               << ""
                                               << ""
                                               << "101";
        QTest::newRow("edit to a new code") << "r1"
                                            << "888"
                                            << "t1"
                                            << ""
                                            << ""
                                            << "888";
    }
    void room() {
        QFETCH(QString, id);
        QFETCH(QString, code);
        QFETCH(QString, type);
        QFETCH(QString, message);
        QFETCH(QString, field);
        QFETCH(QString, stored);
        TestVenue v;
        OPEN_VENUE(v);
        addType(QStringLiteral("t1"), QStringLiteral("小包"));
        addRoom(QStringLiteral("r1"), QStringLiteral("101"));
        addRoom(QStringLiteral("r2"), QStringLiteral("102"));
        const Saved s = RoomService().saveRoom({id, code, type, QStringLiteral("靠窗")});
        const int logged = count(QStringLiteral("select count(*) from s_log"));
        if (stored.isEmpty()) {
            QVERIFY(s.refusal);
            if (!message.isEmpty()) QCOMPARE(s.refusal->message, message);
            QCOMPARE(s.refusal->field, field);
            QCOMPARE(codes(), (QStringList{QStringLiteral("101"), QStringLiteral("102")}));
            QCOMPARE(logged, 0);
            return;
        }
        QVERIFY(s.ok());
        QCOMPARE(rooms(), id.isEmpty() ? 3 : 2);
        const Row r = DB().query(QStringLiteral("select * from The where TheID=?"), {s.id}).first();
        QCOMPARE(r.text(QStringLiteral("TheCode")), stored);
        QCOMPARE(r.text(QStringLiteral("AssortID")), type);
        QCOMPARE(r.text(QStringLiteral("theDesc")), QStringLiteral("靠窗"));
        QCOMPARE(r.integer(QStringLiteral("State")), qint64(0));
        QVERIFY(!r.isNull(QStringLiteral("ExpenseID")) && r.text(QStringLiteral("ExpenseID")).isEmpty());
        QCOMPARE(logged, 1);
        const Row log = DB().query(QStringLiteral("select * from s_log")).first();
        QCOMPARE(log.text(QStringLiteral("theModel")), QStringLiteral("营业设置"));
        QCOMPARE(log.text(QStringLiteral("theDoName")), QStringLiteral("设置包厢"));
        QCOMPARE(log.text(QStringLiteral("dook")), QStringLiteral("成功"));
        QCOMPARE(log.text(QStringLiteral("theContent")), QStringLiteral("编辑包厢数据，包厢号：") + stored);
    }

    void batch_data() {
        QTest::addColumn<QString>("marker");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QStringList>("added");
        const QString noStart = QStringLiteral("请输入手牌编号！"),
                      startNaN = QStringLiteral("手牌编号只能输入数字！"),
                      endNaN = QStringLiteral("手牌的结束编号只能输入数字！"),
                      notAbove = QStringLiteral("手牌的结束编号应大于开始编号！"),
                      noType = QStringLiteral("请选择包厢的类型！");
        const QStringList none;
        QTest::newRow("no start") << "A"
                                  << ""
                                  << "5"
                                  << "t1" << noStart << "txtHouseCode" << none;
        QTest::newRow("blank start") << "A"
                                     << "  "
                                     << "5"
                                     << "t1" << noStart << "txtHouseCode" << none;
        QTest::newRow("start not a number") << "A"
                                            << "1a"
                                            << "5"
                                            << "t1" << startNaN << "txtHouseCode" << none;
        QTest::newRow("start checked before end") << "A"
                                                  << "x"
                                                  << "y"
                                                  << "" << startNaN << "txtHouseCode" << none;
        QTest::newRow("no end") << "A"
                                << "1"
                                << ""
                                << "t1" << endNaN << "txtEndCode" << none;
        QTest::newRow("end not a number") << "A"
                                          << "1"
                                          << "1,000"
                                          << "t1" << endNaN << "txtEndCode" << none;
        QTest::newRow("end equal to start") << "A"
                                            << "3"
                                            << "3"
                                            << "t1" << notAbove << "txtEndCode" << none;
        QTest::newRow("end below start") << "A"
                                         << "5"
                                         << "3"
                                         << "" << notAbove << "txtEndCode" << none;
        QTest::newRow("no type") << "A"
                                 << "1"
                                 << "3"
                                 << "" << noType << "imgcmbAssort" << none;
        QTest::newRow("runaway end") << "A"
                                     << "1"
                                     << "100000"
                                     << "t1"
                                     << "一次最多只能增加1000个包厢，请缩小编号范围！"
                                     << "txtEndCode" << none;
        QTest::newRow("code taken midway adds none")
            << "C"
            << "1"
            << "3"
            << "t1" << RoomText::duplicateCode() << "txtHouseCode" << none;
        QTest::newRow("marker and numbers")
            << "A"
            << "1"
            << "3"
            << "t1"
            << ""
            << "" << QStringList{QStringLiteral("A1"), QStringLiteral("A2"), QStringLiteral("A3")};
        QTest::newRow("leading zeros are a number")
            << "B"
            << "009"
            << "011"
            << "t1"
            << ""
            << "" << QStringList{QStringLiteral("B9"), QStringLiteral("B10"), QStringLiteral("B11")};
        QTest::newRow("no marker") << ""
                                   << " 201 "
                                   << "202"
                                   << "t1"
                                   << ""
                                   << "" << QStringList{QStringLiteral("201"), QStringLiteral("202")};
        QTest::newRow("end cut to whole steps")
            << "D"
            << "1"
            << "2.5"
            << "t1"
            << ""
            << "" << QStringList{QStringLiteral("D1"), QStringLiteral("D2")};
    }
    void batch() {
        QFETCH(QString, marker);
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(QString, type);
        QFETCH(QString, message);
        QFETCH(QString, field);
        QFETCH(QStringList, added);
        TestVenue v;
        OPEN_VENUE(v);
        addType(QStringLiteral("t1"), QStringLiteral("小包"));
        addRoom(QStringLiteral("r1"), QStringLiteral("C2"));
        const BatchAdded b = RoomService().addRooms({marker, start, end, type, QStringLiteral("新装修")});
        QCOMPARE(codes(), sorted(QStringList{QStringLiteral("C2")} + added));
        if (!message.isEmpty()) {
            QVERIFY(b.refusal);
            QCOMPARE(b.refusal->message, message);
            QCOMPARE(b.refusal->field, field);
            return;
        }
        QVERIFY(b.ok());
        QCOMPARE(b.added, added.size());
        QCOMPARE(
            count(QStringLiteral("select count(*) from The where AssortID='t1' and theDesc=? and State=0"),
                  {QStringLiteral("新装修")}),
            added.size());
    }

    // More keys than one second of NewID gives: the fixed test clock never moves on.
    void batchBeyondOneSecondOfKeys() {
        TestVenue v;
        OPEN_VENUE(v);
        addType(QStringLiteral("t1"), QStringLiteral("小包"));
        const BatchAdded b = RoomService().addRooms(
            {QStringLiteral("K"), QStringLiteral("1"), QStringLiteral("250"), QStringLiteral("t1"), {}});
        QVERIFY(b.ok());
        QCOMPARE(b.added, 250);
        QCOMPARE(count(QStringLiteral("select count(distinct TheID) from The")), 250);
        // And single saves keep finding free keys after that.
        QVERIFY(RoomService().saveRoom({{}, QStringLiteral("K999"), QStringLiteral("t1"), {}}).ok());
    }

    void deletes_data() {
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("refused");
        QTest::addRow("type with rooms") << "type"
                                         << "t1" << true;
        QTest::addRow("type without rooms") << "type"
                                            << "t2" << false;
        QTest::addRow("free room") << "room"
                                   << "r1" << false;
        QTest::addRow("room in use") << "room"
                                     << "r2" << true;
        QTest::addRow("room with a settled bill") << "room"
                                                  << "r3" << true;
        QTest::addRow("stopped room") << "room"
                                      << "r4" << false;
    }
    void deletes() {
        QFETCH(QString, what);
        QFETCH(QString, id);
        QFETCH(bool, refused);
        TestVenue v;
        OPEN_VENUE(v);
        addType(QStringLiteral("t1"), QStringLiteral("小包"));
        addType(QStringLiteral("t2"), QStringLiteral("大包"));
        addRoom(QStringLiteral("r1"), QStringLiteral("101"));
        addRoom(QStringLiteral("r2"), QStringLiteral("102"), 1);
        addRoom(QStringLiteral("r3"), QStringLiteral("103"));
        addRoom(QStringLiteral("r4"), QStringLiteral("104"), 2);
        DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, State) values ('e1', 'r3', 0)"));
        RoomService s;
        const Refused r = what == QLatin1String("type") ? s.deleteRoomType(id) : s.deleteRoom(id);
        QCOMPARE(bool(r), refused);
        if (r) QCOMPARE(r->message, RoomText::inUse());
        const QString table =
            what == QLatin1String("type") ? QStringLiteral("TheAssort") : QStringLiteral("The");
        const QString key =
            what == QLatin1String("type") ? QStringLiteral("AssortID") : QStringLiteral("TheID");
        QCOMPARE(count(QStringLiteral("select count(*) from ") + table + QStringLiteral(" where ") + key +
                           QStringLiteral("=?"),
                       {id}),
                 refused ? 1 : 0);
    }

    void stopResume_data() {
        QTest::addColumn<bool>("stop");
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("other1");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("after");
        QTest::addColumn<QString>("otherAfter");
        // The test clock stands at 2026-11-21 20:00.
        const QString changed = RoomText::stateChanged();
        QTest::newRow("stop free") << true << 0 << ""
                                   << "" << 2 << "";
        QTest::newRow("stop in use") << true << 1 << "" << changed << 1 << "";
        QTest::newRow("stop stopped") << true << 2 << "" << changed << 2 << "";
        QTest::newRow("stop reserved") << true << 3 << "" << changed << 3 << "";
        QTest::newRow("stop locked") << true << 4 << "2026-11-21 20:10" << changed << 4 << "2026-11-21 20:10";
        QTest::newRow("stop lock ending this minute")
            << true << 4 << "2026-11-21 20:00" << changed << 4 << "2026-11-21 20:00";
        QTest::newRow("stop lock run out") << true << 4 << "2026-11-21 19:59"
                                           << "" << 2 << "2026-11-21 19:59";
        QTest::newRow("stop lock with damaged end") << true << 4 << "damaged"
                                                    << "" << 2 << "damaged";
        QTest::newRow("resume stopped") << false << 2 << ""
                                        << "" << 0 << "";
        QTest::newRow("resume locked, before its end") << false << 4 << "2026-11-21 20:10"
                                                       << "" << 0 << "";
        QTest::newRow("resume free") << false << 0 << "" << changed << 0 << "";
        QTest::newRow("resume in use") << false << 1 << "" << changed << 1 << "";
        QTest::newRow("resume reserved") << false << 3 << "" << changed << 3 << "";
    }
    void stopResume() {
        QFETCH(bool, stop);
        QFETCH(int, state);
        QFETCH(QString, other1);
        QFETCH(QString, message);
        QFETCH(int, after);
        QFETCH(QString, otherAfter);
        TestVenue v;
        OPEN_VENUE(v);
        addType(QStringLiteral("t1"), QStringLiteral("小包"));
        addRoom(QStringLiteral("r1"), QStringLiteral("101"), state, other1);
        RoomService s;
        const Refused r = stop ? s.HouseStop(QStringLiteral("r1")) : s.HouseResume(QStringLiteral("r1"));
        QCOMPARE(r ? r->message : QString(), message);
        const Row row = DB().query(QStringLiteral("select * from The where TheID='r1'")).first();
        QCOMPARE(row.integer(QStringLiteral("State")), qint64(after));
        QCOMPARE(row.text(QStringLiteral("Other1")), otherAfter);
        // A room deleted on another workstation says so instead.
        const Refused gone =
            stop ? s.HouseStop(QStringLiteral("gone")) : s.HouseResume(QStringLiteral("gone"));
        QVERIFY(gone);
        QCOMPARE(gone->message, RoomText::roomGone());
    }

    // ---- dialogs

    void roomTypeDialog() {
        TestVenue v;
        OPEN_VENUE(v);
        DB().exec(
            QStringLiteral("insert into PayLevel (PayLevelID, PayLevelName) values ('p2', '夜场计费')"));
        frmHouseAssort dlg;
        dlg.startAdd();
        showAndWait(dlg);
        look(dlg, QStringLiteral("frmHouseAssort"));
        auto* name = child<QLineEdit>(dlg, "txtAssortName");
        auto* tariff = child<QComboBox>(dlg, "imgcmbAssort");
        QCOMPARE(tariff->count(), 2);
        QCOMPARE(tariff->currentIndex(), -1);

        name->setText(QStringLiteral("豪华包"));
        QTest::mouseClick(child<QPushButton>(dlg, "cmdOK"), Qt::LeftButton);
        QCOMPARE(messages(), QStringList{QStringLiteral("请选择包厢所属分类！")});
        QCOMPARE(focused(), QStringLiteral("imgcmbAssort"));
        QVERIFY(dlg.isVisible());

        pick(tariff, QStringLiteral("p2"));
        dlg.cmdOK_Click();
        QVERIFY(messages().isEmpty());
        QVERIFY(dlg.saved());
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(DB().scalar(QStringLiteral("select PayLevelID from TheAssort where AssortName=?"),
                             {QStringLiteral("豪华包")})
                     .toString(),
                 QStringLiteral("p2"));

        frmHouseAssort edit;
        QVERIFY(edit.startEdit(dlg.savedID()));
        QCOMPARE(child<QLineEdit>(edit, "txtAssortName")->text(), QStringLiteral("豪华包"));
        QCOMPARE(child<QComboBox>(edit, "imgcmbAssort")->currentData().toString(), QStringLiteral("p2"));
        child<QLineEdit>(edit, "txtAssortName")->setText(QStringLiteral("VIP"));
        edit.cmdOK_Click();
        QCOMPARE(count(QStringLiteral(
                     "select count(*) from TheAssort where AssortName='VIP' and PayLevelID='p2'")),
                 1);
        QCOMPARE(count(QStringLiteral("select count(*) from TheAssort")), 1);

        frmHouseAssort missing;
        QVERIFY(!missing.startEdit(QStringLiteral("gone")));
        QCOMPARE(messages(), QStringList{RoomText::typeGone()});
    }

    void roomDialogAddsOneAfterAnother_data() {
        QTest::addColumn<bool>("clear");
        QTest::newRow("inputs kept") << false;
        QTest::newRow("inputs cleared") << true;
    }
    void roomDialogAddsOneAfterAnother() {
        QFETCH(bool, clear);
        TestVenue v;
        OPEN_VENUE(v);
        addType(QStringLiteral("t1"), QStringLiteral("小包"));
        addType(QStringLiteral("t2"), QStringLiteral("大包"));
        frmHouse dlg;
        dlg.startAdd();
        showAndWait(dlg);
        auto* code = child<QLineEdit>(dlg, "txtHouseCode");
        auto* type = child<QComboBox>(dlg, "imgcmbAssort");
        auto* desc = child<QLineEdit>(dlg, "txtDesc");
        child<QCheckBox>(dlg, "chkClear")->setChecked(clear);
        QCOMPARE(focused(), QStringLiteral("txtHouseCode"));

        // Enter moves on from the code to the type.
        QTest::keyClicks(code, QStringLiteral("101"));
        QTest::keyClick(code, Qt::Key_Return);
        QCOMPARE(focused(), QStringLiteral("imgcmbAssort"));
        pick(type, QStringLiteral("t2"));
        desc->setText(QStringLiteral("角落"));
        look(dlg, QStringLiteral("frmHouse"));
        dlg.cmdOK_Click();
        QVERIFY(messages().isEmpty());
        QVERIFY(dlg.isVisible());
        QVERIFY(dlg.saved());
        QCOMPARE(codes(), QStringList{QStringLiteral("101")});
        QCOMPARE(focused(), QStringLiteral("txtHouseCode"));
        QCOMPARE(code->text(), clear ? QString() : QStringLiteral("101"));
        QCOMPARE(code->selectedText(), code->text());
        QCOMPARE(type->currentIndex() == -1, clear);
        QCOMPARE(desc->text(), clear ? QString() : QStringLiteral("角落"));

        // The next room: the same code is refused, another one is a second row.
        code->setText(QStringLiteral("101"));
        pick(type, QStringLiteral("t2"));
        dlg.cmdOK_Click();
        QCOMPARE(messages(), QStringList{RoomText::duplicateCode()});
        QCOMPARE(focused(), QStringLiteral("txtHouseCode"));
        code->setText(QStringLiteral("102"));
        dlg.cmdOK_Click();
        QCOMPARE(codes(), (QStringList{QStringLiteral("101"), QStringLiteral("102")}));
        QCOMPARE(count(QStringLiteral("select count(*) from The where AssortID='t2'")), 2);
    }

    void roomDialogEdits() {
        TestVenue v;
        OPEN_VENUE(v);
        addType(QStringLiteral("t1"), QStringLiteral("小包"));
        addType(QStringLiteral("t2"), QStringLiteral("大包"));
        addRoom(QStringLiteral("r1"), QStringLiteral("101"));
        frmHouse dlg;
        QVERIFY(dlg.startEdit(QStringLiteral("r1")));
        showAndWait(dlg);
        QVERIFY(!child<QCheckBox>(dlg, "chkClear")->isVisible());
        QCOMPARE(child<QComboBox>(dlg, "imgcmbAssort")->currentData().toString(), QStringLiteral("t1"));
        child<QLineEdit>(dlg, "txtHouseCode")->clear();
        dlg.cmdOK_Click();
        QCOMPARE(messages(), QStringList{QStringLiteral("请输入手牌编号！")});
        QCOMPARE(focused(), QStringLiteral("txtHouseCode"));
        child<QLineEdit>(dlg, "txtHouseCode")->setText(QStringLiteral("V01"));
        pick(child<QComboBox>(dlg, "imgcmbAssort"), QStringLiteral("t2"));
        dlg.cmdOK_Click();
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(count(QStringLiteral(
                     "select count(*) from The where TheID='r1' and TheCode='V01' and AssortID='t2'")),
                 1);

        frmHouse missing;
        QVERIFY(!missing.startEdit(QStringLiteral("gone")));
        QCOMPARE(messages(), QStringList{RoomText::roomGone()});
    }

    void batchDialog() {
        TestVenue v;
        OPEN_VENUE(v);
        addType(QStringLiteral("t1"), QStringLiteral("小包"));
        addRoom(QStringLiteral("r1"), QStringLiteral("A3"));
        frmHouseAddBat dlg;
        dlg.startAdd();
        showAndWait(dlg);
        QCOMPARE(focused(), QStringLiteral("txtMarkerText"));
        child<QLineEdit>(dlg, "txtMarkerText")->setText(QStringLiteral("A"));
        child<QLineEdit>(dlg, "txtHouseCode")->setText(QStringLiteral("5"));
        child<QLineEdit>(dlg, "txtEndCode")->setText(QStringLiteral("2"));
        dlg.cmdOK_Click();
        QCOMPARE(messages(), QStringList{QStringLiteral("手牌的结束编号应大于开始编号！")});
        QCOMPARE(focused(), QStringLiteral("txtEndCode"));

        child<QLineEdit>(dlg, "txtHouseCode")->setText(QStringLiteral("1"));
        child<QLineEdit>(dlg, "txtEndCode")->setText(QStringLiteral("4"));
        pick(child<QComboBox>(dlg, "imgcmbAssort"), QStringLiteral("t1"));
        look(dlg, QStringLiteral("frmHouseAddBat"));
        dlg.cmdOK_Click();
        QCOMPARE(messages(), QStringList{RoomText::duplicateCode()});
        QVERIFY(dlg.isVisible());
        QCOMPARE(rooms(), 1);

        child<QLineEdit>(dlg, "txtMarkerText")->setText(QStringLiteral("B"));
        dlg.cmdOK_Click();
        QVERIFY(messages().isEmpty());
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(dlg.added(), 4);
        QCOMPARE(codes(), (QStringList{QStringLiteral("A3"), QStringLiteral("B1"), QStringLiteral("B2"),
                                       QStringLiteral("B3"), QStringLiteral("B4")}));
    }
};

QTEST_MAIN(TestRoomsSetup)
#include "test_rooms_setup.moc"
