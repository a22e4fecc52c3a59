#include "RoomService.h"
#include "TestKit.h"
#include "frmHouse.h"
#include "frmHouseAddBat.h"
#include "frmHouseAssort.h"

namespace {
int rooms() {
    return count(u"select count(*) from The"_s);
}

// The room codes in the order of QStringList::sort, which does not hang on a collation.
QStringList codes() {
    QStringList out;
    for (const Row r : DB().query(u"select TheCode from The"_s))
        out << r.text(u"TheCode"_s);
    out.sort();
    return out;
}

QStringList sorted(QStringList list) {
    list.sort();
    return list;
}

void pick(QComboBox* box, const QString& key) {
    box->setCurrentIndex(box->findData(key));
}

} // namespace

class TestRoomsSetup : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // ---- services

    void roomType_data() { // clang-format off
        columns<QString, QString, QString, QString, QString>("id", "name", "tariff", "message", "field");
        const QString noName = u"请输入分类名称！"_s, noTariff = u"请选择包厢所属分类！"_s;
        QTest::newRow("no name") << "" << "" << StandardTariff << noName << "txtAssortName";
        QTest::newRow("blank name") << "" << "  " << StandardTariff << noName << "txtAssortName";
        QTest::newRow("name checked first") << "" << "" << "" << noName << "txtAssortName";
        QTest::newRow("no tariff") << "" << "豪华包" << "" << noTariff << "imgcmbAssort";
        QTest::newRow("new") << "" << "豪华包" << StandardTariff << "" << "";
        QTest::newRow("quotes and emoji") << "" << "O'Neil \"\\ 🎤" << StandardTariff << "" << "";
        QTest::newRow("edit") << "t1" << "改名" << StandardTariff << "" << "";
        QTest::newRow("edit of a deleted type") << "gone" << "改名" << StandardTariff << RoomText::typeGone() << ""; // clang-format on
    }
    void roomType() {
        auto [id, name, tariff, message, field] =
            fetch<QString, QString, QString, QString, QString>("id", "name", "tariff", "message", "field");
        NEW_VENUE(v);
        addRoomType(u"t1"_s, u"小包"_s);
        const Saved s = RoomService().saveRoomType({id, name, tariff});
        const int types = count(u"select count(*) from TheAssort"_s);
        QCOMPARE(refusal(s.refusal), refusal(message, field));
        if (!message.isEmpty()) {
            QCOMPARE(dump(u"select AssortName from TheAssort"_s), u"小包"_s);
            return;
        }
        QCOMPARE(types, id.isEmpty() ? 2 : 1);
        QCOMPARE(dump(u"select AssortName, PayLevelID from TheAssort where AssortID=?"_s, {s.id}),
                 name + u'|' + tariff);
    }

    void room_data() { // clang-format off
        columns<QString, QString, QString, QString, QString, QString>("id", "code", "type", "message", "field", "stored");
        const QString noCode = u"请输入手牌编号！"_s, noType = u"请选择包厢的类型！"_s;
        QTest::newRow("no code") << "" << "" << "t1" << noCode << "txtHouseCode" << "";
        QTest::newRow("blank code") << "" << "   " << "t1" << noCode << "txtHouseCode" << "";
        QTest::newRow("code checked first") << "" << "" << "" << noCode << "txtHouseCode" << "";
        QTest::newRow("no type") << "" << "105" << "" << noType << "imgcmbAssort" << "";
        QTest::newRow("code of another room") << "" << "101" << "t1" << RoomText::duplicateCode() << "txtHouseCode" << "";
        QTest::newRow("edit to another's code") << "r2" << "101" << "t1" << RoomText::duplicateCode() << "txtHouseCode" << "";
        QTest::newRow("type deleted meanwhile") << "" << "105" << "gone" << "" << "" << "";
        QTest::newRow("edit of a deleted room") << "gone" << "105" << "t1" << RoomText::roomGone() << "" << "";
        QTest::newRow("new") << "" << "105" << "t1" << "" << "" << "105";
        QTest::newRow("code trimmed") << "" << " 106 " << "t1" << "" << "" << "106";
        QTest::newRow("quote in code") << "" << "V'IP" << "t1" << "" << "" << "V'IP";
        QTest::newRow("edit keeping its code") << "r1" << "101" << "t1" << "" << "" << "101";
        QTest::newRow("edit to a new code") << "r1" << "888" << "t1" << "" << "" << "888"; // clang-format on
    }
    void room() {
        auto [id, code, type, message, field, stored] =
            fetch<QString, QString, QString, QString, QString, QString>("id", "code", "type", "message",
                                                                        "field", "stored");
        NEW_VENUE(v);
        addRoomType(u"t1"_s, u"小包"_s);
        addRoom(u"r1"_s, u"101"_s, u"t1"_s);
        addRoom(u"r2"_s, u"102"_s, u"t1"_s);
        const Saved s = RoomService().saveRoom({id, code, type, u"靠窗"_s});
        const int logged = count(u"select count(*) from s_log"_s);
        if (stored.isEmpty()) {
            QVERIFY(s.refusal);
            if (!message.isEmpty()) QCOMPARE(s.refusal->message, message);
            QCOMPARE(s.refusal->field, field);
            QCOMPARE(codes(), (QStringList{u"101"_s, u"102"_s}));
            QCOMPARE(logged, 0);
            return;
        }
        QVERIFY(s.ok());
        QCOMPARE(rooms(), id.isEmpty() ? 3 : 2);
        QCOMPARE(dump(u"select TheCode, AssortID, theDesc, State, coalesce(ExpenseID, 'null') from The "
                      "where TheID=?"_s,
                      {s.id}),
                 stored + u'|' + type + u"|靠窗|0|"_s);
        QCOMPARE(dump(u"select theModel, theDoName, dook, theContent from s_log"_s),
                 u"营业设置|设置包厢|成功|编辑包厢数据，包厢号："_s + stored);
    }

    void batch_data() { // clang-format off
        columns<QString, QString, QString, QString, QString, QString, QStringList>("marker", "start", "end", "type", "message", "field", "added");
        const QString noStart = u"请输入手牌编号！"_s, startNaN = u"手牌编号只能输入数字！"_s,
                      endNaN = u"手牌的结束编号只能输入数字！"_s,
                      notAbove = u"手牌的结束编号应大于开始编号！"_s, noType = u"请选择包厢的类型！"_s;
        const QStringList none;
        QTest::newRow("no start") << "A" << "" << "5" << "t1" << noStart << "txtHouseCode" << none;
        QTest::newRow("blank start") << "A" << "  " << "5" << "t1" << noStart << "txtHouseCode" << none;
        QTest::newRow("start not a number") << "A" << "1a" << "5" << "t1" << startNaN << "txtHouseCode" << none;
        QTest::newRow("start checked before end") << "A" << "x" << "y" << "" << startNaN << "txtHouseCode" << none;
        QTest::newRow("no end") << "A" << "1" << "" << "t1" << endNaN << "txtEndCode" << none;
        QTest::newRow("end not a number") << "A" << "1" << "1,000" << "t1" << endNaN << "txtEndCode" << none;
        QTest::newRow("end equal to start") << "A" << "3" << "3" << "t1" << notAbove << "txtEndCode" << none;
        QTest::newRow("end below start") << "A" << "5" << "3" << "" << notAbove << "txtEndCode" << none;
        QTest::newRow("no type") << "A" << "1" << "3" << "" << noType << "imgcmbAssort" << none;
        QTest::newRow("runaway end") << "A" << "1" << "100000" << "t1" << "一次最多只能增加1000个包厢，请缩小编号范围！" << "txtEndCode" << none;
        QTest::newRow("code taken midway adds none") << "C" << "1" << "3" << "t1" << RoomText::duplicateCode() << "txtHouseCode" << none;
        QTest::newRow("marker and numbers") << "A" << "1" << "3" << "t1" << "" << "" << QStringList{u"A1"_s, u"A2"_s, u"A3"_s};
        QTest::newRow("leading zeros are a number") << "B" << "009" << "011" << "t1" << "" << "" << QStringList{u"B9"_s, u"B10"_s, u"B11"_s};
        QTest::newRow("no marker") << "" << " 201 " << "202" << "t1" << "" << "" << QStringList{u"201"_s, u"202"_s};
        QTest::newRow("end cut to whole steps") << "D" << "1" << "2.5" << "t1" << "" << "" << QStringList{u"D1"_s, u"D2"_s}; // clang-format on
    }
    void batch() {
        auto [marker, start, end, type, message, field, added] =
            fetch<QString, QString, QString, QString, QString, QString, QStringList>(
                "marker", "start", "end", "type", "message", "field", "added");
        NEW_VENUE(v);
        addRoomType(u"t1"_s, u"小包"_s);
        addRoom(u"r1"_s, u"C2"_s, u"t1"_s);
        const BatchAdded b = RoomService().addRooms({marker, start, end, type, u"新装修"_s});
        QCOMPARE(codes(), sorted(QStringList{u"C2"_s} + added));
        QCOMPARE(refusal(b.refusal), refusal(message, field));
        if (b.refusal) return;
        QVERIFY(b.ok());
        QCOMPARE(b.added, added.size());
        QCOMPARE(
            count(u"select count(*) from The where AssortID='t1' and theDesc=? and State=0"_s, {u"新装修"_s}),
            added.size());
    }

    // More keys than one second of NewID gives: the fixed test clock never moves on.
    void batchBeyondOneSecondOfKeys() {
        NEW_VENUE(v);
        addRoomType(u"t1"_s, u"小包"_s);
        const BatchAdded b = RoomService().addRooms({u"K"_s, u"1"_s, u"250"_s, u"t1"_s, {}});
        QVERIFY(b.ok());
        QCOMPARE(b.added, 250);
        QCOMPARE(count(u"select count(distinct TheID) from The"_s), 250);
        // And single saves keep finding free keys after that.
        QVERIFY(RoomService().saveRoom({{}, u"K999"_s, u"t1"_s, {}}).ok());
    }

    void deletes_data() { // clang-format off
        columns<QString, QString, bool>("what", "id", "refused");
        QTest::addRow("type with rooms") << "type" << "t1" << true;
        QTest::addRow("type without rooms") << "type" << "t2" << false;
        QTest::addRow("free room") << "room" << "r1" << false;
        QTest::addRow("room in use") << "room" << "r2" << true;
        QTest::addRow("room with a settled bill") << "room" << "r3" << true;
        QTest::addRow("stopped room") << "room" << "r4" << false; // clang-format on
    }
    void deletes() {
        auto [what, id, refused] = fetch<QString, QString, bool>("what", "id", "refused");
        NEW_VENUE(v);
        addRoomType(u"t1"_s, u"小包"_s);
        addRoomType(u"t2"_s, u"大包"_s);
        addRoom(u"r1"_s, u"101"_s, u"t1"_s);
        addRoom(u"r2"_s, u"102"_s, u"t1"_s, 1);
        addRoom(u"r3"_s, u"103"_s, u"t1"_s);
        addRoom(u"r4"_s, u"104"_s, u"t1"_s, 2);
        DB().exec(u"insert into Expense (ExpenseID, TheID, State) values ('e1', 'r3', 0)"_s);
        RoomService s;
        const Refused r = what == u"type"_s ? s.deleteRoomType(id) : s.deleteRoom(id);
        QCOMPARE(bool(r), refused);
        if (r) QCOMPARE(r->message, RoomText::inUse());
        const QString table = what == u"type"_s ? u"TheAssort"_s : u"The"_s;
        const QString key = what == u"type"_s ? u"AssortID"_s : u"TheID"_s;
        QCOMPARE(count(u"select count(*) from "_s + table + u" where "_s + key + u"=?"_s, {id}),
                 refused ? 1 : 0);
    }

    void stopResume_data() { // clang-format off
        columns<bool, int, QString, QString, int, QString>("stop", "state", "other1", "message", "after", "otherAfter");
        // The test clock stands at 2026-11-21 20:00.
        const QString changed = RoomText::stateChanged();
        QTest::newRow("stop free") << true << 0 << "" << "" << 2 << "";
        QTest::newRow("stop in use") << true << 1 << "" << changed << 1 << "";
        QTest::newRow("stop stopped") << true << 2 << "" << changed << 2 << "";
        QTest::newRow("stop reserved") << true << 3 << "" << changed << 3 << "";
        QTest::newRow("stop locked") << true << 4 << "2026-11-21 20:10" << changed << 4 << "2026-11-21 20:10";
        QTest::newRow("stop lock ending this minute") << true << 4 << "2026-11-21 20:00" << changed << 4 << "2026-11-21 20:00";
        QTest::newRow("stop lock run out") << true << 4 << "2026-11-21 19:59" << "" << 2 << "2026-11-21 19:59";
        QTest::newRow("stop lock with damaged end") << true << 4 << "damaged" << "" << 2 << "damaged";
        QTest::newRow("resume stopped") << false << 2 << "" << "" << 0 << "";
        QTest::newRow("resume locked, before its end") << false << 4 << "2026-11-21 20:10" << "" << 0 << "";
        QTest::newRow("resume free") << false << 0 << "" << changed << 0 << "";
        QTest::newRow("resume in use") << false << 1 << "" << changed << 1 << "";
        QTest::newRow("resume reserved") << false << 3 << "" << changed << 3 << ""; // clang-format on
    }
    void stopResume() {
        auto [stop, state, other1, message, after, otherAfter] =
            fetch<bool, int, QString, QString, int, QString>("stop", "state", "other1", "message", "after",
                                                             "otherAfter");
        NEW_VENUE(v);
        addRoomType(u"t1"_s, u"小包"_s);
        addRoom(u"r1"_s, u"101"_s, u"t1"_s, state, other1);
        RoomService s;
        const Refused r = stop ? s.HouseStop(u"r1"_s) : s.HouseResume(u"r1"_s);
        QCOMPARE(r ? r->message : QString(), message);
        QCOMPARE(dump(u"select State, Other1 from The"_s), QString::number(after) + u'|' + otherAfter);
        // A room deleted on another workstation says so instead.
        const Refused gone = stop ? s.HouseStop(u"gone"_s) : s.HouseResume(u"gone"_s);
        QCOMPARE(gone ? gone->message : QString(), RoomText::roomGone());
    }

    // ---- dialogs

    void roomTypeDialog() {
        NEW_VENUE(v);
        DB().exec(u"insert into PayLevel (PayLevelID, PayLevelName) values ('p2', '夜场计费')"_s);
        frmHouseAssort dlg;
        dlg.startAdd();
        showActive(dlg);
        look(dlg, u"frmHouseAssort"_s);
        auto* name = child<QLineEdit>(dlg, "txtAssortName");
        auto* tariff = child<QComboBox>(dlg, "imgcmbAssort");
        QCOMPARE((QList<int>{tariff->count(), tariff->currentIndex()}), (QList<int>{2, -1}));

        name->setText(u"豪华包"_s);
        QTest::mouseClick(child<QPushButton>(dlg, "cmdOK"), Qt::LeftButton);
        QCOMPARE(messages(), QStringList{u"请选择包厢所属分类！"_s});
        QVERIFY(focused() == u"imgcmbAssort"_s && dlg.isVisible());

        pick(tariff, u"p2"_s);
        dlg.cmdOK_Click();
        QVERIFY(messages().isEmpty() && dlg.saved() && dlg.result() == QDialog::Accepted);
        QCOMPARE(dump(u"select AssortName, PayLevelID from TheAssort"_s), u"豪华包|p2"_s);

        frmHouseAssort edit;
        QVERIFY(edit.startEdit(dlg.savedID()));
        QCOMPARE(texts(edit, {"txtAssortName"}) +
                     child<QComboBox>(edit, "imgcmbAssort")->currentData().toString(),
                 u"豪华包p2"_s);
        child<QLineEdit>(edit, "txtAssortName")->setText(u"VIP"_s);
        edit.cmdOK_Click();
        QCOMPARE(dump(u"select AssortName, PayLevelID from TheAssort"_s), u"VIP|p2"_s);

        frmHouseAssort missing;
        QVERIFY(!missing.startEdit(u"gone"_s));
        QCOMPARE(messages(), QStringList{RoomText::typeGone()});
    }

    void roomDialogAddsOneAfterAnother_data() { // clang-format off
        QTest::addColumn<bool>("clear");
        QTest::newRow("inputs kept") << false;
        QTest::newRow("inputs cleared") << true; // clang-format on
    }
    void roomDialogAddsOneAfterAnother() {
        QFETCH(bool, clear);
        NEW_VENUE(v);
        addRoomType(u"t1"_s, u"小包"_s);
        addRoomType(u"t2"_s, u"大包"_s);
        frmHouse dlg;
        dlg.startAdd();
        showActive(dlg);
        auto* code = child<QLineEdit>(dlg, "txtHouseCode");
        auto* type = child<QComboBox>(dlg, "imgcmbAssort");
        auto* desc = child<QLineEdit>(dlg, "txtDesc");
        child<QCheckBox>(dlg, "chkClear")->setChecked(clear);
        QCOMPARE(focused(), u"txtHouseCode"_s);

        // Enter moves on from the code to the type.
        QTest::keyClicks(code, u"101"_s);
        QTest::keyClick(code, Qt::Key_Return);
        QCOMPARE(focused(), u"imgcmbAssort"_s);
        pick(type, u"t2"_s);
        desc->setText(u"角落"_s);
        look(dlg, u"frmHouse"_s);
        dlg.cmdOK_Click();
        QVERIFY(messages().isEmpty() && dlg.isVisible() && dlg.saved());
        QCOMPARE(codes(), QStringList{u"101"_s});
        QCOMPARE(focused(), u"txtHouseCode"_s);
        QCOMPARE(code->selectedText(), code->text());
        QCOMPARE(texts(dlg, {"txtHouseCode", "imgcmbAssort", "txtDesc"}),
                 clear ? u"||"_s : u"101|大包|角落"_s);

        // The next room: the same code is refused, another one is a second row.
        code->setText(u"101"_s);
        pick(type, u"t2"_s);
        dlg.cmdOK_Click();
        QCOMPARE(messages(), QStringList{RoomText::duplicateCode()});
        QCOMPARE(focused(), u"txtHouseCode"_s);
        code->setText(u"102"_s);
        dlg.cmdOK_Click();
        QCOMPARE(codes(), (QStringList{u"101"_s, u"102"_s}));
        QCOMPARE(count(u"select count(*) from The where AssortID='t2'"_s), 2);
    }

    void batchDialog() {
        NEW_VENUE(v);
        addRoomType(u"t1"_s, u"小包"_s);
        addRoom(u"r1"_s, u"A3"_s, u"t1"_s);
        frmHouseAddBat dlg;
        dlg.startAdd();
        showActive(dlg);
        QCOMPARE(focused(), u"txtMarkerText"_s);
        child<QLineEdit>(dlg, "txtMarkerText")->setText(u"A"_s);
        child<QLineEdit>(dlg, "txtHouseCode")->setText(u"5"_s);
        child<QLineEdit>(dlg, "txtEndCode")->setText(u"2"_s);
        dlg.cmdOK_Click();
        QCOMPARE(messages(), QStringList{u"手牌的结束编号应大于开始编号！"_s});
        QCOMPARE(focused(), u"txtEndCode"_s);

        child<QLineEdit>(dlg, "txtHouseCode")->setText(u"1"_s);
        child<QLineEdit>(dlg, "txtEndCode")->setText(u"4"_s);
        pick(child<QComboBox>(dlg, "imgcmbAssort"), u"t1"_s);
        look(dlg, u"frmHouseAddBat"_s);
        dlg.cmdOK_Click();
        QCOMPARE(messages(), QStringList{RoomText::duplicateCode()});
        QVERIFY(dlg.isVisible());
        QCOMPARE(rooms(), 1);

        child<QLineEdit>(dlg, "txtMarkerText")->setText(u"B"_s);
        dlg.cmdOK_Click();
        QVERIFY(messages().isEmpty() && dlg.result() == QDialog::Accepted);
        QCOMPARE(dlg.added(), 4);
        QCOMPARE(codes(), (QStringList{u"A3"_s, u"B1"_s, u"B2"_s, u"B3"_s, u"B4"_s}));
    }
};

QTEST_MAIN(TestRoomsSetup)
#include "test_rooms_setup.moc"
