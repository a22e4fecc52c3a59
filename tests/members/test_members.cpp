#include "Dialect.h"
#include "MemberClassService.h"
#include "MemberService.h"
#include "PasswordChange.h"
#include "SignIn.h"
#include "StoredValueService.h"
#include "TestKit.h"
#include <QImage>

namespace {
void addClass(const QString& id, const QString& name, double init, double step, double discount = 1) {
    DB().exec(u"insert into MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) "
              "values (?, ?, ?, ?, ?)"_s,
              {id, name, init, step, discount});
}

void addMember(const QString& code, const QString& name, const QString& setupID = u"s1"_s, Money balance = {},
               int state = 0, const QString& pw = {}) {
    DB().exec(u"insert into Member (MemberCode, MemberName, SetupID, chongzhi, State, pw, "
              "MemberValue, sumValue) values (?, ?, ?, ?, ?, ?, 0, 0)"_s,
              {code, name, setupID.isEmpty() ? Param(nullptr) : Param(setupID), balance, state, pw});
}

void addTopUp(const QString& id, const QString& code, Money credited, const QString& when) {
    DB().exec(u"insert into chongzhi (chongzhiid, MemberCode, thismemoney, factpay, OperatorTime) "
              "values (?, ?, ?, ?, ?)"_s,
              {id, code, credited, credited, when});
}

void addBill(const QString& id, const QString& customer, const QString& card = {}) {
    DB().exec(u"insert into Expense (ExpenseID, State, CustomerCode, chongzhiIDCare) values (?, 0, ?, ?)"_s,
              {id, customer, card});
}

Money balanceOf(const QString& code) {
    return DB()
        .query(u"select chongzhi from Member where MemberCode=?"_s, {code})
        .first()
        .money(u"chongzhi"_s);
}

MemberInput person(const QString& code, const QString& name, const QString& setupID = u"s1"_s) {
    MemberInput in;
    in.code = code;
    in.name = name;
    in.setupID = setupID;
    in.addDate = TestVenue::fixedNow();
    return in;
}

QStringList codes(const Rows& rows) {
    QStringList out;
    for (const Row r : rows)
        out << r.text(u"MemberCode"_s);
    return out;
}
} // namespace

class TestMembers : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void search_data() { // clang-format off
        columns<QString, QString, QStringList>("name", "code", "found");
        QTest::newRow("blank boxes count as empty: all") << "  " << " " << L({"A'1", "B2", "b3", "C%4"});
        QTest::newRow("the boxes are trimmed") << "" << " B2 " << L({"B2"});
        QTest::newRow("both boxes must match") << "李" << "3" << L({"b3"});
        QTest::newRow("a member without class is found") << "王" << "" << L({"C%4"}); // clang-format on
    }
    void search() {
        auto [name, code, found] = fetch<QString, QString, QStringList>("name", "code", "found");
        NEW_VENUE(v);
        addClass(u"s1"_s, u"金卡"_s, 100, 10, 0.88);
        addMember(u"C%4"_s, u"王五"_s, QString());
        addMember(u"b3"_s, u"李小四"_s);
        addMember(u"A'1"_s, u"张'三"_s);
        addMember(u"B2"_s, u"李四"_s);
        const Rows rows = MemberService().search(name, code);
        QStringList got = codes(rows);
        // Text order of the codes differs between the stores only in case.
        std::sort(got.begin(), got.end(),
                  [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
        QCOMPARE(got, found);
        for (const Row r : rows)
            if (r.text(u"MemberCode"_s) == u"A'1"_s)
                QCOMPARE(r.text(u"SetupName"_s) + r.text(u"discount"_s) +
                             (r.has(u"ThisPhoto"_s) ? u"photo"_s : QString()),
                         u"金卡0.88"_s);
    }

    void save_load_rename_and_photo() {
        NEW_VENUE(v);
        addClass(u"s1"_s, u"普通"_s, 0, 10);
        MemberService s;
        MemberInput in = person(u"M'1"_s, u"王\"小二 🎤"_s);
        in.male = false;
        in.state = 1;
        in.memberValue = u"12.5"_s;
        in.sms = u"  13800000000 "_s;
        QTemporaryFile pic;
        QVERIFY(pic.open());
        QImage img(8, 8, QImage::Format_RGB32);
        img.fill(Qt::red);
        img.save(&pic, "PNG");
        pic.close();
        QVERIFY(s.save({}, in, {MemberPhoto::File, pic.fileName(), {}}).saved);

        MemberInput back = *s.load(u"M'1"_s);
        QCOMPARE((QVariantList{back.name, back.male, back.state, back.memberValue, back.sms, back.addDate}),
                 (QVariantList{in.name, false, 1, u"12.5"_s, u"13800000000"_s, TestVenue::fixedNow()}));
        QVERIFY(!s.photo(u"M'1"_s).isEmpty());
        QCOMPARE(text(u"select theContent from s_log where theModel='会员管理' and Dotype=?"_s, {u"新增"_s}),
                 u"会员资料：M'1 王\"小二 🎤"_s);
        // The dialog never touches the balances.
        DB().exec(u"update Member set chongzhi=?, sumValue=? where MemberCode='M''1'"_s,
                  {Money::yuan(50), Money::yuan(70)});

        // Renaming keeps the photo and leaves the top-ups on the old code.
        addTopUp(u"c1"_s, u"M'1"_s, Money::yuan(50), u"2026-11-20 10:00"_s);
        back.code = u"M2"_s;
        back.birthday = QDate(1990, 2, 28);
        QVERIFY(s.save(u"M'1"_s, back, {}).saved);
        QVERIFY(!s.load(u"M'1"_s));
        QCOMPARE(s.load(u"M2"_s)->birthday, QDate(1990, 2, 28));
        QVERIFY(!s.photo(u"M2"_s).isEmpty());
        QCOMPARE(balanceOf(u"M2"_s), Money::yuan(50));
        QCOMPARE(count(u"select count(*) from chongzhi where MemberCode='M''1'"_s), 1);
        QCOMPARE(count(u"select count(*) from s_log where Dotype=?"_s, {u"修改"_s}), 1);

        // Pasted bytes are kept; clearing removes them.
        QVERIFY(s.save(u"M2"_s, back, {MemberPhoto::Data, {}, QByteArray("png")}).saved);
        QCOMPARE(s.photo(u"M2"_s), QByteArray("png"));
        QVERIFY(s.save(u"M2"_s, back, {MemberPhoto::Clear, {}, {}}).saved);
        QVERIFY(s.photo(u"M2"_s).isEmpty());

        // A member deleted meanwhile is not written back.
        DB().exec(u"delete from Member"_s);
        const MemberSaved gone = s.save(u"M2"_s, back, {});
        QVERIFY(!gone.saved && !gone.refusal);
        QCOMPARE(count(u"select count(*) from Member"_s), 0);
    }

    // Adding a taken code is shown by the member dialog; renaming onto one is refused the same way.
    void renamed_onto_a_taken_code() {
        NEW_VENUE(v);
        addClass(u"s1"_s, u"普通"_s, 0, 10);
        addMember(u"8001"_s, u"张伟"_s);
        addMember(u"8002"_s, u"王芳"_s);
        const MemberSaved r = MemberService().save(u"8002"_s, person(u"8001"_s, u"李娜"_s), {});
        QVERIFY(!r.saved && r.refusal);
        QVERIFY2(r.refusal->message.startsWith(
                     u"会员编号为： 8001 的会员已存在，请重新输入会员编号！\n错误信息： "_s),
                 qPrintable(r.refusal->message));
        QVERIFY(r.refusal->message.endsWith(u") in procedure SaveData of Form frmMember"_s));
        QCOMPARE(r.refusal->icon, Msg::Icon::Exclamation);
        QCOMPARE(count(u"select count(*) from Member where MemberName='李娜'"_s), 0);
        QCOMPARE(count(u"select count(*) from s_log where theModel='会员管理'"_s), 0);
    }

    // Deleting asks only when bills carry the member, and then takes its top-ups along;
    // the bills stay either way, and a member without bills leaves its top-ups behind.
    void remove_data() { // clang-format off
        columns<bool, bool, int, int, int>("bills", "confirmed", "outcome", "membersLeft", "topUpsLeft");
        QTest::newRow("no bills: gone without a question, top-ups stay") << false << false << int(MemberDelete::Deleted) << 1 << 3;
        QTest::newRow("bills, confirmed: top-ups go, bills stay") << true << true << int(MemberDelete::Deleted) << 1 << 1; // clang-format on
    }
    void remove() {
        auto [bills, confirmed, outcome, membersLeft, topUpsLeft] =
            fetch<bool, bool, int, int, int>("bills", "confirmed", "outcome", "membersLeft", "topUpsLeft");
        NEW_VENUE(v);
        addClass(u"s1"_s, u"普通"_s, 0, 10);
        const QString code = u"M'1"_s;
        addMember(code, u"张三"_s);
        addMember(u"M2"_s, u"李四"_s);
        addTopUp(u"c1"_s, code, Money::yuan(10), u"2026-11-20 10:00"_s);
        addTopUp(u"c2"_s, code, Money::yuan(20), u"2026-11-20 11:00"_s);
        addTopUp(u"c3"_s, u"M2"_s, Money::yuan(30), u"2026-11-20 12:00"_s);
        if (bills) addBill(u"e1"_s, code, code);
        addBill(u"e2"_s, u"M2"_s);
        MemberService s;
        QCOMPARE(int(s.remove(code, confirmed)), outcome);
        QCOMPARE(count(u"select count(*) from Member"_s), membersLeft);
        QCOMPARE(count(u"select count(*) from chongzhi"_s), topUpsLeft);
        QCOMPARE(count(u"select count(*) from Expense"_s), bills ? 2 : 1);
        QCOMPARE(count(u"select count(*) from chongzhi where MemberCode='M2'"_s), 1);
        if (outcome == int(MemberDelete::Deleted))
            QCOMPARE(int(s.remove(code, true)), int(MemberDelete::NothingGone));
    }

    void classes_validate_data() { // clang-format off
        columns<QString, QString, QString, QString, QString, QString>("name", "init", "step", "discount", "message", "field");
        QTest::newRow("no name") << " " << "0" << "0" << "1" << "请输入分类名称！" << "txtSetupName";
        QTest::newRow("all wrong: name first") << "" << "x" << "x" << "x" << "请输入分类名称！" << "txtSetupName";
        QTest::newRow("numbers out of any range pass") << "金卡" << "-5" << "0" << "12" << "" << ""; // clang-format on
    }
    void classes_validate() {
        auto [name, init, step, discount, message, field] =
            fetch<QString, QString, QString, QString, QString, QString>("name", "init", "step", "discount",
                                                                        "message", "field");
        const Refused r = MemberClassService::validate({name, init, step, discount, {}});
        QCOMPARE(refusal(r), refusal(message, field));
    }

    void classes_save_and_load() {
        NEW_VENUE(v);
        MemberClassService s;
        const MemberClassSaved a = s.save({}, {u"金'卡"_s, u"100"_s, u"2.5"_s, u"0.9"_s, u"备注"_s});
        QVERIFY(a.ok());
        const MemberClassInput back = *s.load(a.id);
        // The editor shows money per point as a whole number.
        QCOMPARE((QStringList{back.name, back.initValue, back.discount, back.stepValue}),
                 (QStringList{u"金'卡"_s, u"100"_s, u"0.90"_s, u"3"_s}));
        QCOMPARE(*s.initValue(a.id), 100.0);
        QVERIFY(!s.initValue(u"gone"_s));

        DB().exec(u"delete from MemberSetup"_s);
        // Editing a class deleted meanwhile writes nothing.
        QCOMPARE(s.save(a.id, back).id, QString());
        QCOMPARE(count(u"select count(*) from MemberSetup"_s), 0);
    }

    void points_data() { // clang-format off
        columns<double, double, qint64>("paid", "step", "points");
        QTest::newRow("below a half") << 14.99 << 10.0 << qint64(1);
        QTest::newRow("half to even, up") << 95.0 << 10.0 << qint64(10);
        QTest::newRow("half to even, down") << 85.0 << 10.0 << qint64(8);
        QTest::newRow("fractional money per point") << 10.0 << 0.5 << qint64(20); // clang-format on
    }
    void points() {
        auto [paid, step, points] = fetch<double, double, qint64>("paid", "step", "points");
        QCOMPARE(MemberPoints(Money::fromDouble(paid), step), points);
    }

    void settle_data() { // clang-format off
        columns<double, double>("step", "pointsAfter");
        QTest::newRow("earning class, no 16-bit limit") << 10.0 << 40005.0;
        QTest::newRow("class without points still adds spending") << 0.0 << 5.0; // clang-format on
    }
    void settle() {
        auto [step, pointsAfter] = fetch<double, double>("step", "pointsAfter");
        NEW_VENUE(v);
        addClass(u"s1"_s, u"金卡"_s, 0, step, 0.9);
        addMember(u"M'1"_s, u"张三"_s, u"s1"_s, Money::yuan(500));
        DB().exec(u"update Member set MemberValue=5, sumValue=? where MemberCode='M''1'"_s,
                  {Money::yuan(1000)});
        MemberService s;
        const MemberCard c = *s.card(u"M'1"_s);
        QCOMPARE(c.discount, 0.9);
        QCOMPARE(c.stepValue, step);
        QCOMPARE(c.chongzhi, Money::yuan(500));
        // A top-up between reading the card and settling is kept.
        DB().exec(u"update Member set chongzhi=chongzhi+? where MemberCode='M''1'"_s, {Money::yuan(100)});
        QCOMPARE(s.settle(u"M'1"_s, Money::fromDouble(400000.5), Money::fromDouble(120.25)),
                 MemberService::Settled::Done);
        // More than the card holds now takes nothing.
        QCOMPARE(s.settle(u"M'1"_s, Money::yuan(1), Money::yuan(480)), MemberService::Settled::BalanceShort);
        const MemberCard after = *s.card(u"M'1"_s);
        QCOMPARE(after.points, pointsAfter);
        QCOMPARE(after.sumValue.toPlain() + u' ' + after.chongzhi.toPlain(), u"401000.5 479.75"_s);
        QCOMPARE(s.settle(u"gone"_s, Money::yuan(1), {}), MemberService::Settled::MemberGone);
        QVERIFY(!s.card(u"gone"_s));
    }

    void passwords_data() { // clang-format off
        columns<int, QString, QString, QString, QString, QString, QString>("kind", "stored", "now", "fresh", "repeat", "message", "field");
        const QString repeat = u"您输入的新密码和重复密码不一样，请重新输入！"_s;
        const QString wrong = u"您输入的当前密码不正确，请重新输入！"_s;
        QTest::newRow("member: repeat differs, checked before the current") << 2 << "hash:old" << "bad" << "n1" << "n2" << repeat << "txtpw";
        QTest::newRow("member: wrong current") << 2 << "hash:old" << "Old" << "n1" << "n1" << wrong << "txtNowPw";
        QTest::newRow("member: right current") << 2 << "hash:old" << "old" << "新'1" << "新'1" << "" << "";
        QTest::newRow("member without password: empty current") << 2 << "" << "" << "n1" << "n1" << "" << "";
        QTest::newRow("member without password: any other current") << 2 << "" << "x" << "n1" << "n1" << wrong << "txtNowPw";
        QTest::newRow("member written by hand in plain text") << 2 << "old" << "old" << "n1" << "n1" << "" << "";
        QTest::newRow("member: empty new password means none") << 2 << "hash:old" << "old" << "" << "" << "" << "";
        QTest::newRow("operator: empty new password is hashed too") << 1 << "hash:old" << "old" << "" << "" << "" << "";
        QTest::newRow("other kinds act as operators") << 7 << "hash:old" << "old" << "n1" << "n1" << "" << ""; // clang-format on
    }
    void passwords() {
        auto [kind, stored, now, fresh, repeat, message, field] =
            fetch<int, QString, QString, QString, QString, QString, QString>("kind", "stored", "now", "fresh",
                                                                             "repeat", "message", "field");
        NEW_VENUE(v);
        const QString pw = stored.startsWith(u"hash:"_s) ? Password::hash(stored.mid(5)) : stored;
        addClass(u"s1"_s, u"普通"_s, 0, 10);
        addMember(u"M'1"_s, u"张三"_s, u"s1"_s, {}, 0, pw);
        DB().exec(u"insert into Operator (OperatorID, LoginName, operatorname, pw, State) values "
                  "('o1', 'cashier', '收银员', ?, 0)"_s,
                  {pw});
        const bool member = kind == 2;
        const QString id = member ? u"M'1"_s : u"o1"_s;
        const Refused r = ChangePassword({kind, id, now, fresh, repeat});
        QCOMPARE(refusal(r), refusal(message, field));
        const QString after =
            text(member ? u"select pw from Member"_s : u"select pw from Operator where OperatorID='o1'"_s);
        if (r) {
            QCOMPARE(after, pw);
            return;
        }
        if (member && fresh.isEmpty())
            QCOMPARE(after, QString());
        else // never the password as typed
            QVERIFY(after.startsWith(u"$argon2id"_s) && Password::verify(after, fresh));
        if (member) {
            QVERIFY(MemberService().CheckMemberPassword(id, fresh));
            QVERIFY(!MemberService().CheckMemberPassword(id, now + u"x"_s));
        } else {
            QCOMPARE(SignIn(u"cashier"_s, fresh), SignInOutcome::Ok);
        }
    }

    void chongzhi_member_data() { // clang-format off
        columns<QString, QString, QString>("code", "message", "balance");
        QTest::newRow("stopped member") << "S1" << "不能操作此会员的数据，因为此会员已暂停服务！" << "";
        QTest::newRow("state 2 passes") << "S2" << "" << "7"; // clang-format on
    }
    void chongzhi_member() {
        auto [code, message, balance] = fetch<QString, QString, QString>("code", "message", "balance");
        NEW_VENUE(v);
        addClass(u"s1"_s, u"普通"_s, 0, 10);
        addMember(u"S1"_s, u"停一"_s, u"s1"_s, {}, 1);
        addMember(u"S2"_s, u"停二"_s, u"s1"_s, Money::yuan(7), 2);
        const ChongzhiMemberLoad l = StoredValueService().loadMember(code);
        QCOMPARE(refusal(l.refusal), refusal(message, u"txtMemberCode"_s));
        if (l.refusal) QCOMPARE(l.refusal->icon, Msg::Icon::Exclamation);
        QCOMPARE(l.member ? l.member->code + u'|' + l.member->balance.toPlain() : QString(),
                 balance.isEmpty() ? QString() : code + u'|' + balance);
    }

    void chongzhi_validate_data() { // clang-format off
        columns<QString, QString, QString, QString, QString>("member", "factPay", "thisMemoney", "message", "field");
        QTest::newRow("both amounts bad: received first") << "M1" << "x" << "y" << "请输入实收金额！" << "txtFactPay";
        QTest::newRow("negative and zero pass") << "M1" << "0" << "-30" << "" << ""; // clang-format on
    }
    void chongzhi_validate() {
        auto [member, factPay, thisMemoney, message, field] =
            fetch<QString, QString, QString, QString, QString>("member", "factPay", "thisMemoney", "message",
                                                               "field");
        const Refused r = StoredValueService::validate({member, factPay, thisMemoney, {}});
        QCOMPARE(refusal(r), refusal(message, field));
    }

    void chongzhi_save_data() { // clang-format off
        columns<QString, QString, double>("factPay", "thisMemoney", "balanceAfter");
        QTest::newRow("zero credit writes a row") << "0" << "0" << 50.0;
        QTest::newRow("negative credit lowers") << "0" << "-30" << 20.0;
        QTest::newRow("four decimals kept") << "12.3456" << "12.3456" << 62.3456; // clang-format on
    }
    void chongzhi_save() {
        auto [factPay, thisMemoney, balanceAfter] =
            fetch<QString, QString, double>("factPay", "thisMemoney", "balanceAfter");
        NEW_VENUE(v);
        addClass(u"s1"_s, u"普通"_s, 0, 10);
        addMember(u"M'1"_s, u"张三"_s, u"s1"_s, Money::yuan(50));
        const ChongzhiSaved s = StoredValueService().save({u"M'1"_s, factPay, thisMemoney, u"开卡'送"_s});
        QVERIFY(s.ok() && !s.warning);
        QCOMPARE(balanceOf(u"M'1"_s), Money::fromDouble(balanceAfter));
        const Row r = DB().query(u"select * from chongzhi where chongzhiid=?"_s, {s.chongzhiID}).first();
        QCOMPARE(r.money(u"factpay"_s), Money::fromText(factPay));
        QCOMPARE(r.money(u"thismemoney"_s), Money::fromText(thisMemoney));
        QCOMPARE(dump(u"select MemberCode, Description, operatorname, OperatorTime from chongzhi"_s),
                 u"M'1|开卡'送|系统管理员|2026-11-21 20:00"_s);
    }

    void chongzhi_for_a_member_gone() {
        NEW_VENUE(v);
        const ChongzhiSaved s = StoredValueService().save({u"gone"_s, u"10"_s, u"10"_s, {}});
        QVERIFY(s.ok());
        QCOMPARE(s.warning->message, u"充值失败，没找个此会员的资料！请核对此会员数据是否已被清除！"_s);
        QCOMPARE(count(u"select count(*) from chongzhi where MemberCode='gone'"_s), 1);
    }

    void period_data() { // clang-format off
        columns<int, QDate, QString, QString>("index", "today", "start", "end");
        QTest::newRow("today") << 0 << QDate(2026, 11, 21) << "2026-11-21 00:00" << "2026-11-22 00:00";
        QTest::newRow("week from Sunday, on a Saturday") << 1 << QDate(2026, 11, 21) << "2026-11-15 00:00" << "2026-11-22 00:00";
        QTest::newRow("week on its Sunday") << 1 << QDate(2026, 11, 22) << "2026-11-22 00:00" << "2026-11-29 00:00";
        QTest::newRow("week across the year") << 1 << QDate(2027, 1, 1) << "2026-12-27 00:00" << "2027-01-03 00:00";
        QTest::newRow("month") << 2 << QDate(2026, 12, 15) << "2026-12-01 00:00" << "2027-01-01 00:00";
        QTest::newRow("month from its last day") << 2 << QDate(2027, 1, 31) << "2027-01-01 00:00" << "2027-02-01 00:00";
        QTest::newRow("any other index is today") << 5 << QDate(2026, 2, 28) << "2026-02-28 00:00" << "2026-03-01 00:00"; // clang-format on
    }
    void period() {
        auto [index, today, start, end] =
            fetch<int, QDate, QString, QString>("index", "today", "start", "end");
        const ChongzhiPeriod p = StoredValueService::period(index, today);
        QCOMPARE(TimeText(p.start), start);
        QCOMPARE(TimeText(p.end), end);
    }

    void chongzhi_search_data() { // clang-format off
        columns<QString, QString, QStringList, double>("start", "end", "ids", "credited");
        QTest::newRow("end excluded, newest first") << "2026-11-21 00:00" << "2026-11-22 00:00" << L({"c3", "c2", "c1"}) << 60.0;
        QTest::newRow("equal ends: that minute only") << "2026-11-21 23:59" << "2026-11-21 23:59" << L({"c3"}) << 30.0;
        QTest::newRow("nothing") << "2026-11-01 00:00" << "2026-11-02 00:00" << QStringList() << 0.0; // clang-format on
    }
    void chongzhi_search() {
        auto [start, end, ids, credited] =
            fetch<QString, QString, QStringList, double>("start", "end", "ids", "credited");
        NEW_VENUE(v);
        addClass(u"s1"_s, u"普通"_s, 0, 10);
        addMember(u"M1"_s, u"张三"_s);
        addTopUp(u"c0"_s, u"M1"_s, Money::yuan(1), u"2026-11-20 23:59"_s);
        addTopUp(u"c1"_s, u"M1"_s, Money::yuan(10), u"2026-11-21 00:00"_s);
        addTopUp(u"c2"_s, u"gone"_s, Money::yuan(20), u"2026-11-21 12:00"_s);
        addTopUp(u"c3"_s, u"M1"_s, Money::yuan(30), u"2026-11-21 23:59"_s);
        addTopUp(u"c4"_s, u"M1"_s, Money::yuan(40), u"2026-11-22 00:00"_s);
        const ChongzhiTotals t = StoredValueService().search(ParseTime(start), ParseTime(end));
        QStringList got;
        for (const Row r : t.rows) {
            got << r.text(u"chongzhiid"_s);
            // A member deleted since leaves the name empty.
            QCOMPARE(r.text(u"membername"_s), r.text(u"MemberCode"_s) == u"gone"_s ? QString() : u"张三"_s);
        }
        QCOMPARE(got, ids);
        QCOMPARE(t.thisMemoney, Money::fromDouble(credited));
        QCOMPARE(t.factPay, Money::fromDouble(credited));
    }
};

QTEST_MAIN(TestMembers)
#include "test_members.moc"
