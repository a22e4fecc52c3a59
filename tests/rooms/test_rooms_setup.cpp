#include "PayLevel.h"
#include "RoomService.h"
#include "TestKit.h"
#include "frmHouse.h"
#include "frmHouseAddBat.h"
#include "frmHouseAssort.h"
#include "frmPayLevel.h"

namespace {
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

// A tariff the checks accept: day and night, every price and minimum filled in.
PayLevelInput valid() {
    PayLevelInput in;
    in.name = u"夜场"_s;
    in.end = {u"18"_s, u"24"_s, QString(), QString()};
    for (int i = 0; i < 4; ++i) {
        in.price[size_t(i)] = u"60"_s;
        in.minMoney[size_t(i)] = u"0"_s;
        in.priceA[size_t(i)] = u"3"_s;
        in.minMoneyA[size_t(i)] = u"200"_s;
    }
    in.unit = u"30"_s;
    return in;
}
} // namespace

class TestRoomsSetup : public QObject {
    Q_OBJECT
    std::unique_ptr<TestVenue> m_venue;

  private Q_SLOTS:
    // Each test starts on a fresh venue with the room type 小包.
    void init() {
        m_venue = std::make_unique<TestVenue>();
        OPEN_VENUE(*m_venue);
        addRoomType(u"t1"_s, u"小包"_s);
    }
    void cleanup() { m_venue.reset(); }
    // ---- services

    void roomType_data() { // clang-format off
        columns<QString, QString, QString, QString, QString>("id", "name", "tariff", "message", "field");
        const QString noName = u"请输入分类名称！"_s;
        QTest::newRow("blank name") << "" << "  " << StandardTariff << noName << "txtAssortName";
        QTest::newRow("name checked first") << "" << "" << "" << noName << "txtAssortName";
        QTest::newRow("quotes and emoji") << "" << "O'Neil \"\\ 🎤" << StandardTariff << "" << "";
        QTest::newRow("edit of a deleted type") << "gone" << "改名" << StandardTariff << RoomText::typeGone() << ""; // clang-format on
    }
    void roomType() {
        auto [id, name, tariff, message, field] =
            fetch<QString, QString, QString, QString, QString>("id", "name", "tariff", "message", "field");
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
        QTest::newRow("blank code") << "" << "   " << "t1" << noCode << "txtHouseCode" << "";
        QTest::newRow("code checked first") << "" << "" << "" << noCode << "txtHouseCode" << "";
        QTest::newRow("no type") << "" << "105" << "" << noType << "imgcmbAssort" << "";
        QTest::newRow("code of another room") << "" << "101" << "t1" << RoomText::duplicateCode() << "txtHouseCode" << "";
        QTest::newRow("edit to another's code") << "r2" << "101" << "t1" << RoomText::duplicateCode() << "txtHouseCode" << "";
        QTest::newRow("type deleted meanwhile") << "" << "105" << "gone" << "" << "" << "";
        QTest::newRow("edit of a deleted room") << "gone" << "105" << "t1" << RoomText::roomGone() << "" << "";
        QTest::newRow("code trimmed") << "" << " 106 " << "t1" << "" << "" << "106";
        QTest::newRow("edit keeping its code") << "r1" << "101" << "t1" << "" << "" << "101"; // clang-format on
    }
    void room() {
        auto [id, code, type, message, field, stored] =
            fetch<QString, QString, QString, QString, QString, QString>("id", "code", "type", "message",
                                                                        "field", "stored");
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
        QCOMPARE(count(u"select count(*) from The"_s), id.isEmpty() ? 3 : 2);
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
                      notAbove = u"手牌的结束编号应大于开始编号！"_s, noType = u"请选择包厢的类型！"_s;
        const QStringList none;
        QTest::newRow("blank start") << "A" << "  " << "5" << "t1" << noStart << "txtHouseCode" << none;
        QTest::newRow("start checked before end") << "A" << "x" << "y" << "" << startNaN << "txtHouseCode" << none;
        QTest::newRow("end equal to start") << "A" << "3" << "3" << "t1" << notAbove << "txtEndCode" << none;
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
        addRoom(u"r1"_s, u"C2"_s, u"t1"_s);
        const BatchAdded b = RoomService().addRooms({marker, start, end, type, u"新装修"_s});
        QCOMPARE(codes(), sorted(QStringList{u"C2"_s} + added));
        QCOMPARE(refusal(b.refusal), refusal(message, field));
        if (b.refusal) return;
        QCOMPARE(b.added, added.size());
        QCOMPARE(
            count(u"select count(*) from The where AssortID='t1' and theDesc=? and State=0"_s, {u"新装修"_s}),
            added.size());
    }

    // More keys than one second of NewID gives: the fixed test clock never moves on.
    void batchBeyondOneSecondOfKeys() {
        const BatchAdded b = RoomService().addRooms({u"K"_s, u"1"_s, u"250"_s, u"t1"_s, {}});
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
        QTest::addRow("room with a settled bill") << "room" << "r3" << true; // clang-format on
    }
    void deletes() {
        auto [what, id, refused] = fetch<QString, QString, bool>("what", "id", "refused");
        addRoomType(u"t2"_s, u"大包"_s);
        addRoom(u"r1"_s, u"101"_s, u"t1"_s);
        addRoom(u"r2"_s, u"102"_s, u"t1"_s, 1);
        addRoom(u"r3"_s, u"103"_s, u"t1"_s);
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
        QTest::newRow("stop in use") << true << 1 << "" << changed << 1 << "";
        QTest::newRow("stop locked") << true << 4 << "2026-11-21 20:10" << changed << 4 << "2026-11-21 20:10";
        QTest::newRow("stop lock run out") << true << 4 << "2026-11-21 19:59" << "" << 2 << "2026-11-21 19:59";
        QTest::newRow("resume stopped") << false << 2 << "" << "" << 0 << ""; // clang-format on
    }
    void stopResume() {
        auto [stop, state, other1, message, after, otherAfter] =
            fetch<bool, int, QString, QString, int, QString>("stop", "state", "other1", "message", "after",
                                                             "otherAfter");
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
        DB().exec(u"insert into PayLevel (PayLevelID, PayLevelName) values ('p2', '夜场计费')"_s);
        frmHouseAssort dlg;
        dlg.startAdd();
        showActive(dlg);
        look(dlg, u"frmHouseAssort"_s);
        auto* name = child<QLineEdit>(dlg, "txtAssortName");
        auto* tariff = child<QComboBox>(dlg, "imgcmbAssort");

        name->setText(u"豪华包"_s);
        QTest::mouseClick(child<QPushButton>(dlg, "cmdOK"), Qt::LeftButton);
        QCOMPARE(messages(), QStringList{u"请选择包厢所属分类！"_s});
        QVERIFY(focused() == u"imgcmbAssort"_s && dlg.isVisible());

        pick(tariff, u"p2"_s);
        dlg.cmdOK_Click();
        QVERIFY(messages().isEmpty() && dlg.saved() && dlg.result() == QDialog::Accepted);
        QCOMPARE(dump(u"select AssortName, PayLevelID from TheAssort where AssortID=?"_s, {dlg.savedID()}),
                 u"豪华包|p2"_s);

        frmHouseAssort edit;
        QVERIFY(edit.startEdit(dlg.savedID()));
        QCOMPARE(texts(edit, {"txtAssortName"}) +
                     child<QComboBox>(edit, "imgcmbAssort")->currentData().toString(),
                 u"豪华包p2"_s);
        child<QLineEdit>(edit, "txtAssortName")->setText(u"VIP"_s);
        edit.cmdOK_Click();
        QCOMPARE(dump(u"select AssortName, PayLevelID from TheAssort where AssortID=?"_s, {dlg.savedID()}),
                 u"VIP|p2"_s);

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

        // The next room is a second row.
        code->setText(u"102"_s);
        pick(type, u"t2"_s);
        dlg.cmdOK_Click();
        QCOMPARE(codes(), (QStringList{u"101"_s, u"102"_s}));
        QCOMPARE(count(u"select count(*) from The where AssortID='t2'"_s), 2);
    }

    void batchDialog() {
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

        QVERIFY(dlg.isVisible());
        child<QLineEdit>(dlg, "txtMarkerText")->setText(u"B"_s);
        child<QLineEdit>(dlg, "txtHouseCode")->setText(u"1"_s);
        child<QLineEdit>(dlg, "txtEndCode")->setText(u"4"_s);
        pick(child<QComboBox>(dlg, "imgcmbAssort"), u"t1"_s);
        look(dlg, u"frmHouseAddBat"_s);
        dlg.cmdOK_Click();
        QVERIFY(messages().isEmpty() && dlg.result() == QDialog::Accepted);
        QCOMPARE(dlg.added(), 4);
        QCOMPARE(codes(), (QStringList{u"B1"_s, u"B2"_s, u"B3"_s, u"B4"_s}));
    }

    // ---- tariffs

    void tariffChecks_data() { // clang-format off
        columns<QString, QString, QString>("what", "message", "field");
        QTest::newRow("no first end") << "end1" << "请选择时段1结束时间！" << "cmbEnd1";
        QTest::newRow("buy-out price") << "minA3" << "最低消费金额必须输入数字！输入0表示不计费。" << "txtMinMoneyA3";
        QTest::newRow("minimum spend") << "min2" << "最低消费金额必须输入数字！输入0表示没有最低消费要求。" << "txtMinMoney2";
        QTest::newRow("prices are not checked") << "price" << "" << ""; // clang-format on
    }
    void tariffChecks() {
        auto [what, message, field] = fetch<QString, QString, QString>("what", "message", "field");
        PayLevelInput in = valid();
        if (what == u"end1"_s) in.end = {};
        if (what == u"minA3"_s) in.minMoneyA[2] = u""_s;
        if (what == u"min2"_s) in.minMoney[1] = u"x"_s;
        if (what == u"price"_s) in.price[0] = u"贵"_s;
        const Refused r = PayLevelService::validate(in);
        QCOMPARE(refusal(r), refusal(message, field));
    }

    void tariffSaveLoadAndRowText() {
        PayLevelInput in = valid();
        in.name = u"O'Hara 夜场"_s;
        in.price[0] = u"88.5"_s;
        in.unit = u"40000"_s;
        const QString id = PayLevelService::save(QString(), in);
        QVERIFY(!id.isEmpty());
        bool found = false;
        const PayLevelInput back = PayLevelService::load(id, &found);
        QVERIFY(found);
        // Kept as typed.
        QCOMPARE(QStringList({back.name, back.price[0], back.unit, back.end[1], back.end[2]}),
                 QStringList({in.name, u"88.5"_s, u"40000"_s, u"24"_s, QString()}));
        const Row row = DB().query(u"select * from PayLevel where PayLevelID=?"_s, {id}).first();
        QCOMPARE(PayLevelService::rowTexts(row),
                 (QStringList{in.name, u"0元"_s, u"按时间计费"_s, u"0-18点 买断价格:200元 计时价格:88.5"_s,
                              u"18-24点 买断价格:200元 计时价格:60"_s}));
        QCOMPARE(text(u"select theContent from s_log"_s), u"编辑计费标准 O'Hara 夜场"_s);
        // Renaming keeps the key.
        in.name = u"新名字"_s;
        QCOMPARE(PayLevelService::save(id, in), id);
        // An edited row that went away is not made again.
        DB().exec(u"delete from PayLevel where PayLevelID=?"_s, {id});
        QCOMPARE(PayLevelService::save(id, in), QString());
        QCOMPARE(count(u"select count(*) from PayLevel where PayLevelID=?"_s, {id}), 0);
    }

    void tariffDeleteInUse() {
        const QString used = PayLevelService::save(QString(), valid());
        const QString open = PayLevelService::save(QString(), valid());
        const QString spare = PayLevelService::save(QString(), valid());
        DB().exec(u"insert into TheAssort (AssortID, AssortName, PayLevelID) values ('a', '小包', ?)"_s,
                  {used});
        DB().exec(u"insert into The (TheID, TheCode) values ('t', '101')"_s);
        DB().exec(u"insert into Expense (ExpenseID, TheID, PayLevelID, State) values ('e', 't', ?, 1)"_s,
                  {open});
        for (const QString& id : {used, open}) {
            const Refused r = PayLevelService::remove(id);
            QCOMPARE(r ? r->message : QString(), u"不能删除此数据，因为它已经使用！"_s);
        }
        QVERIFY(!PayLevelService::remove(spare));
        QCOMPARE(count(u"select count(*) from PayLevel where PayLevelID in (?,?,?)"_s, {used, open, spare}),
                 2);
    }

    void tariffDialog() {
        frmPayLevel dlg;
        dlg.prepare(QString());
        dlg.show();
        auto* name = child<QLineEdit>(dlg, "txtPayLevelName");
        auto* end1 = child<QComboBox>(dlg, "cmbEnd1");
        auto* end2 = child<QComboBox>(dlg, "cmbEnd2");
        auto* unit = child<QLineEdit>(dlg, "txtUnit");
        auto* tabs = child<QTabWidget>(dlg, "ctbThis");
        QCOMPARE(texts(dlg, {"txtStart1"}), u"0"_s);
        QCOMPARE(end1->count(), 24);
        // The grace minutes show only with rule 1.
        child<QRadioButton>(dlg, "optNotOne1")->setChecked(true);
        QVERIFY(child<QLineEdit>(dlg, "txtPrivilegeTime")->isVisible());
        child<QRadioButton>(dlg, "optNotOne2")->setChecked(true);
        QVERIFY(!child<QLineEdit>(dlg, "txtPrivilegeTime")->isVisible());

        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{u"请计费标准名称！"_s});
        QCOMPARE(dlg.focusWidget(), name);
        name->insert(u"白天场"_s);
        choose(end1, u"12"_s);
        QCOMPARE(texts(dlg, {"txtStart2"}) + u'|' + end2->itemText(0), u"12|13"_s);
        choose(end2, u"24"_s);
        QCOMPARE(child<QComboBox>(dlg, "cmbEnd3")->count(), 0);
        // A new first end clears the chain, and 24 must be chosen again.
        choose(end1, u"18"_s);
        QCOMPARE(end2->currentIndex(), -1);
        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{u"必须设置一个时段的结束时间为24点！"_s});
        choose(end2, u"24"_s);
        unit->setText(u"0"_s);
        tabs->setCurrentIndex(0);
        QVERIFY(!dlg.cmdOK_Click());
        QCOMPARE(messages(), QStringList{u"请输入计费单位！"_s});
        QVERIFY(tabs->currentIndex() == 1 && dlg.focusWidget() == unit);
        unit->setText(u"15"_s);
        child<QLineEdit>(dlg, "txtPrice2")->setText(u"99.5"_s);
        tabs->setCurrentIndex(0);
        QVERIFY(dlg.cmdOK_Click());
        QCOMPARE(dump(u"select PayLevelName, payType, Unit, NotOne, end1, start2, end2, Price2 from PayLevel "
                      "where PayLevelID=?"_s,
                      {dlg.savedId()}),
                 u"白天场|0|15|2|18|18|24|99.5"_s);

        // Editing shows what was stored.
        frmPayLevel edit;
        edit.prepare(dlg.savedId());
        QCOMPARE(texts(edit, {"txtPayLevelName", "cmbEnd2"}), u"白天场|24"_s);
        QCOMPARE(child<QTabWidget>(edit, "ctbThis")->currentIndex(), 0);
        QVERIFY(child<QRadioButton>(edit, "optNotOne2")->isChecked());
    }
};

QTEST_MAIN(TestRoomsSetup)
#include "test_rooms_setup.moc"
