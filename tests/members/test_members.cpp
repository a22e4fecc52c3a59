#include "AppState.h"
#include "Dialect.h"
#include "Format.h"
#include "MemberClassService.h"
#include "MemberService.h"
#include "Password.h"
#include "PasswordChange.h"
#include "SignIn.h"
#include "StoredValueService.h"
#include "TestVenue.h"
#include <QImage>
#include <QTemporaryFile>
#include <QTest>
#include <atomic>
#include <thread>

namespace {
QStringList L(std::initializer_list<const char*> texts) {
    QStringList out;
    for (const char* t : texts)
        out << QString::fromUtf8(t);
    return out;
}
qint64 count(const QString& sql, const Params& p = {}) {
    return DB().scalar(sql, p).toLongLong();
}

void addClass(const QString& id, const QString& name, double init, double step, double discount = 1) {
    DB().exec(QStringLiteral("insert into MemberSetup (SetupID, SetupName, InitValue, StepValue, discount) "
                             "values (?, ?, ?, ?, ?)"),
              {id, name, init, step, discount});
}

void addMember(const QString& code, const QString& name, const QString& setupID = QStringLiteral("s1"),
               Money balance = {}, int state = 0, const QString& pw = {}) {
    DB().exec(QStringLiteral("insert into Member (MemberCode, MemberName, SetupID, chongzhi, State, pw, "
                             "MemberValue, sumValue) values (?, ?, ?, ?, ?, ?, 0, 0)"),
              {code, name, setupID.isEmpty() ? Param(nullptr) : Param(setupID), balance, state, pw});
}

void addTopUp(const QString& id, const QString& code, Money credited, const QString& when) {
    DB().exec(
        QStringLiteral("insert into chongzhi (chongzhiid, MemberCode, thismemoney, factpay, OperatorTime) "
                       "values (?, ?, ?, ?, ?)"),
        {id, code, credited, credited, when});
}

void addBill(const QString& id, const QString& customer, const QString& card = {}) {
    DB().exec(QStringLiteral(
                  "insert into Expense (ExpenseID, State, CustomerCode, chongzhiIDCare) values (?, 0, ?, ?)"),
              {id, customer, card});
}

Money balanceOf(const QString& code) {
    return DB()
        .query(QStringLiteral("select chongzhi from Member where MemberCode=?"), {code})
        .first()
        .money(QStringLiteral("chongzhi"));
}

MemberInput person(const QString& code, const QString& name, const QString& setupID = QStringLiteral("s1")) {
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
        out << r.text(QStringLiteral("MemberCode"));
    return out;
}
} // namespace

class TestMembers : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void search_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QStringList>("found");
        QTest::newRow("both empty: all, by code") << ""
                                                  << "" << L({"A'1", "B2", "b3", "C%4"});
        QTest::newRow("blank boxes count as empty") << "  "
                                                    << " " << L({"A'1", "B2", "b3", "C%4"});
        QTest::newRow("quote in the name") << "张'"
                                           << "" << L({"A'1"});
        QTest::newRow("quote in the code") << ""
                                           << "'" << L({"A'1"});
        QTest::newRow("part of the code, any case") << ""
                                                    << "b" << L({"B2", "b3"});
        QTest::newRow("the boxes are trimmed") << ""
                                               << " B2 " << L({"B2"});
        QTest::newRow("both boxes must match") << "李"
                                               << "3" << L({"b3"});
        QTest::newRow("no match") << "李"
                                  << "A" << QStringList();
        QTest::newRow("a member without class is found") << "王"
                                                         << "" << L({"C%4"});
    }
    void search() {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QFETCH(QStringList, found);
        TestVenue v;
        OPEN_VENUE(v);
        addClass(QStringLiteral("s1"), QStringLiteral("金卡"), 100, 10, 0.88);
        addMember(QStringLiteral("C%4"), QStringLiteral("王五"), QString());
        addMember(QStringLiteral("b3"), QStringLiteral("李小四"));
        addMember(QStringLiteral("A'1"), QStringLiteral("张'三"));
        addMember(QStringLiteral("B2"), QStringLiteral("李四"));
        const Rows rows = MemberService().search(name, code);
        QStringList got = codes(rows);
        // Text order of the codes differs between the stores only in case.
        std::sort(got.begin(), got.end(),
                  [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
        QCOMPARE(got, found);
        for (const Row r : rows)
            if (r.text(QStringLiteral("MemberCode")) == QLatin1String("A'1")) {
                QCOMPARE(r.text(QStringLiteral("SetupName")), QStringLiteral("金卡"));
                QCOMPARE(r.num(QStringLiteral("discount")), 0.88);
                QVERIFY(!r.has(QStringLiteral("ThisPhoto")));
            }
    }

    void save_load_rename_and_photo() {
        TestVenue v;
        OPEN_VENUE(v);
        addClass(QStringLiteral("s1"), QStringLiteral("普通"), 0, 10);
        MemberService s;
        MemberInput in = person(QStringLiteral("M'1"), QStringLiteral("王\"小二 🎤"));
        in.male = false;
        in.state = 1;
        in.memberValue = QStringLiteral("12.5");
        in.sms = QStringLiteral("  13800000000 ");
        QTemporaryFile pic;
        QVERIFY(pic.open());
        QImage img(8, 8, QImage::Format_RGB32);
        img.fill(Qt::red);
        img.save(&pic, "PNG");
        pic.close();
        QVERIFY(s.save({}, in, {MemberPhoto::File, pic.fileName(), {}}).saved);

        MemberInput back = *s.load(QStringLiteral("M'1"));
        QCOMPARE(back.name, in.name);
        QVERIFY(!back.male);
        QCOMPARE(back.state, 1);
        QCOMPARE(back.memberValue, QStringLiteral("12.5"));
        QCOMPARE(back.sms, QStringLiteral("13800000000"));
        QCOMPARE(back.addDate, TestVenue::fixedNow());
        QVERIFY(!back.birthday.isValid());
        QVERIFY(!s.photo(QStringLiteral("M'1")).isEmpty());
        QCOMPARE(
            count(QStringLiteral("select count(*) from Member where MemberCode='M''1' and birthday is null")),
            1);
        QCOMPARE(
            DB().scalar(QStringLiteral("select theContent from s_log where theModel='会员管理' and Dotype=?"),
                        {QStringLiteral("新增")})
                .toString(),
            QStringLiteral("会员资料：M'1 王\"小二 🎤"));
        // The dialog never touches the balances.
        DB().exec(QStringLiteral("update Member set chongzhi=?, sumValue=? where MemberCode='M''1'"),
                  {Money::yuan(50), Money::yuan(70)});

        // Renaming keeps the photo and leaves the top-ups on the old code.
        addTopUp(QStringLiteral("c1"), QStringLiteral("M'1"), Money::yuan(50),
                 QStringLiteral("2026-11-20 10:00"));
        back.code = QStringLiteral("M2");
        back.birthday = QDate(1990, 2, 28);
        QVERIFY(s.save(QStringLiteral("M'1"), back, {}).saved);
        QVERIFY(!s.load(QStringLiteral("M'1")));
        QCOMPARE(s.load(QStringLiteral("M2"))->birthday, QDate(1990, 2, 28));
        QVERIFY(!s.photo(QStringLiteral("M2")).isEmpty());
        QCOMPARE(balanceOf(QStringLiteral("M2")), Money::yuan(50));
        QCOMPARE(count(QStringLiteral("select count(*) from chongzhi where MemberCode='M''1'")), 1);
        QCOMPARE(count(QStringLiteral("select count(*) from s_log where Dotype=?"), {QStringLiteral("修改")}),
                 1);

        // Pasted bytes are kept; clearing removes them.
        QVERIFY(s.save(QStringLiteral("M2"), back, {MemberPhoto::Data, {}, QByteArray("png")}).saved);
        QCOMPARE(s.photo(QStringLiteral("M2")), QByteArray("png"));
        QVERIFY(s.save(QStringLiteral("M2"), back, {MemberPhoto::Clear, {}, {}}).saved);
        QVERIFY(s.photo(QStringLiteral("M2")).isEmpty());

        // A member deleted meanwhile is not written back.
        DB().exec(QStringLiteral("delete from Member"));
        const MemberSaved gone = s.save(QStringLiteral("M2"), back, {});
        QVERIFY(!gone.saved);
        QVERIFY(!gone.refusal);
        QCOMPARE(count(QStringLiteral("select count(*) from Member")), 0);
    }

    void duplicate_code_data() {
        QTest::addColumn<bool>("adding");
        QTest::newRow("adding a taken code") << true;
        QTest::newRow("renaming onto a taken code") << false;
    }
    void duplicate_code() {
        QFETCH(bool, adding);
        TestVenue v;
        OPEN_VENUE(v);
        addClass(QStringLiteral("s1"), QStringLiteral("普通"), 0, 10);
        addMember(QStringLiteral("8001"), QStringLiteral("张伟"));
        addMember(QStringLiteral("8002"), QStringLiteral("王芳"));
        const MemberSaved r =
            MemberService().save(adding ? QString() : QStringLiteral("8002"),
                                 person(QStringLiteral("8001"), QStringLiteral("李娜")), {});
        QVERIFY(!r.saved);
        QVERIFY(r.refusal);
        QVERIFY2(r.refusal->message.startsWith(
                     QStringLiteral("会员编号为： 8001 的会员已存在，请重新输入会员编号！\n错误信息： ")),
                 qPrintable(r.refusal->message));
        QVERIFY(r.refusal->message.endsWith(QStringLiteral(") in procedure SaveData of Form frmMember")));
        QCOMPARE(r.refusal->icon, Msg::Icon::Exclamation);
        QCOMPARE(count(QStringLiteral("select count(*) from Member where MemberName='李娜'")), 0);
        QCOMPARE(count(QStringLiteral("select count(*) from s_log where theModel='会员管理'")), 0);
    }

    // Deleting asks only when bills carry the member, and then takes its top-ups along;
    // the bills stay either way, and a member without bills leaves its top-ups behind.
    void remove_data() {
        QTest::addColumn<bool>("bills");
        QTest::addColumn<bool>("confirmed");
        QTest::addColumn<int>("outcome");
        QTest::addColumn<int>("membersLeft");
        QTest::addColumn<int>("topUpsLeft");
        QTest::newRow("no bills: gone without a question, top-ups stay")
            << false << false << int(MemberDelete::Deleted) << 1 << 3;
        QTest::newRow("bills, not yet asked") << true << false << int(MemberDelete::NeedsQuestion) << 2 << 3;
        QTest::newRow("bills, confirmed: top-ups go, bills stay")
            << true << true << int(MemberDelete::Deleted) << 1 << 1;
    }
    void remove() {
        QFETCH(bool, bills);
        QFETCH(bool, confirmed);
        QFETCH(int, outcome);
        QFETCH(int, membersLeft);
        QFETCH(int, topUpsLeft);
        TestVenue v;
        OPEN_VENUE(v);
        addClass(QStringLiteral("s1"), QStringLiteral("普通"), 0, 10);
        const QString code = QStringLiteral("M'1");
        addMember(code, QStringLiteral("张三"));
        addMember(QStringLiteral("M2"), QStringLiteral("李四"));
        addTopUp(QStringLiteral("c1"), code, Money::yuan(10), QStringLiteral("2026-11-20 10:00"));
        addTopUp(QStringLiteral("c2"), code, Money::yuan(20), QStringLiteral("2026-11-20 11:00"));
        addTopUp(QStringLiteral("c3"), QStringLiteral("M2"), Money::yuan(30),
                 QStringLiteral("2026-11-20 12:00"));
        if (bills) addBill(QStringLiteral("e1"), code, code);
        addBill(QStringLiteral("e2"), QStringLiteral("M2"));
        MemberService s;
        QCOMPARE(int(s.remove(code, confirmed)), outcome);
        QCOMPARE(count(QStringLiteral("select count(*) from Member")), membersLeft);
        QCOMPARE(count(QStringLiteral("select count(*) from chongzhi")), topUpsLeft);
        QCOMPARE(count(QStringLiteral("select count(*) from Expense")), bills ? 2 : 1);
        QCOMPARE(count(QStringLiteral("select count(*) from chongzhi where MemberCode='M2'")), 1);
        if (outcome == int(MemberDelete::Deleted))
            QCOMPARE(int(s.remove(code, true)), int(MemberDelete::NothingGone));
    }

    void classes_validate_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("init");
        QTest::addColumn<QString>("step");
        QTest::addColumn<QString>("discount");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        QTest::newRow("no name") << " "
                                 << "0"
                                 << "0"
                                 << "1"
                                 << "请输入分类名称！"
                                 << "txtSetupName";
        QTest::newRow("points not a number") << "金卡"
                                             << "十"
                                             << "0"
                                             << "1"
                                             << "请输入初始积分！"
                                             << "txtInitValue";
        QTest::newRow("empty money per point") << "金卡"
                                               << "0"
                                               << ""
                                               << "1"
                                               << "请输入积分方法！"
                                               << "txtStepValue";
        QTest::newRow("discount with a unit") << "金卡"
                                              << "0"
                                              << "10"
                                              << "9折"
                                              << "请输入折扣！"
                                              << "txtDiscount";
        QTest::newRow("all wrong: name first") << ""
                                               << "x"
                                               << "x"
                                               << "x"
                                               << "请输入分类名称！"
                                               << "txtSetupName";
        QTest::newRow("numbers out of any range pass") << "金卡"
                                                       << "-5"
                                                       << "0"
                                                       << "12"
                                                       << ""
                                                       << "";
    }
    void classes_validate() {
        QFETCH(QString, name);
        QFETCH(QString, init);
        QFETCH(QString, step);
        QFETCH(QString, discount);
        QFETCH(QString, message);
        QFETCH(QString, field);
        const Refused r = MemberClassService::validate({name, init, step, discount, {}});
        QCOMPARE(r ? r->message : QString(), message);
        QCOMPARE(r ? r->field : QString(), field);
    }

    void classes_save_and_load() {
        TestVenue v;
        OPEN_VENUE(v);
        MemberClassService s;
        const MemberClassSaved a =
            s.save({}, {QStringLiteral("金'卡"), QStringLiteral("100"), QStringLiteral("2.5"),
                        QStringLiteral("0.9"), QStringLiteral("备注")});
        QVERIFY(a.ok());
        const MemberClassInput back = *s.load(a.id);
        QCOMPARE(back.name, QStringLiteral("金'卡"));
        QCOMPARE(back.initValue, QStringLiteral("100"));
        QCOMPARE(back.discount, QStringLiteral("0.90"));
        // The editor shows money per point as a whole number.
        QCOMPARE(back.stepValue, QStringLiteral("3"));
        QCOMPARE(*s.initValue(a.id), 100.0);
        QVERIFY(!s.initValue(QStringLiteral("gone")));

        DB().exec(QStringLiteral("delete from MemberSetup"));
        // Editing a class deleted meanwhile writes nothing.
        QCOMPARE(s.save(a.id, back).id, QString());
        QCOMPARE(count(QStringLiteral("select count(*) from MemberSetup")), 0);
    }

    void points_data() {
        QTest::addColumn<double>("paid");
        QTest::addColumn<double>("step");
        QTest::addColumn<qint64>("points");
        QTest::newRow("whole") << 100.0 << 10.0 << qint64(10);
        QTest::newRow("half rounds to even, down") << 25.0 << 10.0 << qint64(2);
        QTest::newRow("half rounds to even, up") << 35.0 << 10.0 << qint64(4);
        QTest::newRow("below a half") << 14.99 << 10.0 << qint64(1);
        QTest::newRow("class earns none") << 500.0 << 0.0 << qint64(0);
        QTest::newRow("beyond 16 bits") << 1000000.0 << 1.0 << qint64(1000000);
        QTest::newRow("fractional money per point") << 10.0 << 0.5 << qint64(20);
    }
    void points() {
        QFETCH(double, paid);
        QFETCH(double, step);
        QFETCH(qint64, points);
        QCOMPARE(MemberPoints(Money::fromDouble(paid), step), points);
    }

    void settle_data() {
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("pointsAfter");
        QTest::newRow("earning class") << 10.0 << 35.0;
        QTest::newRow("class without points still adds spending") << 0.0 << 5.0;
    }
    void settle() {
        QFETCH(double, step);
        QFETCH(double, pointsAfter);
        TestVenue v;
        OPEN_VENUE(v);
        addClass(QStringLiteral("s1"), QStringLiteral("金卡"), 0, step, 0.9);
        addMember(QStringLiteral("M'1"), QStringLiteral("张三"), QStringLiteral("s1"), Money::yuan(500));
        DB().exec(QStringLiteral("update Member set MemberValue=5, sumValue=? where MemberCode='M''1'"),
                  {Money::yuan(1000)});
        MemberService s;
        const MemberCard c = *s.card(QStringLiteral("M'1"));
        QCOMPARE(c.discount, 0.9);
        QCOMPARE(c.stepValue, step);
        QCOMPARE(c.chongzhi, Money::yuan(500));
        // A top-up between reading the card and settling is kept.
        DB().exec(QStringLiteral("update Member set chongzhi=chongzhi+? where MemberCode='M''1'"),
                  {Money::yuan(100)});
        QCOMPARE(s.settle(QStringLiteral("M'1"), Money::fromDouble(300.5), Money::fromDouble(120.25)),
                 MemberService::Settled::Done);
        // More than the card holds now takes nothing.
        QCOMPARE(s.settle(QStringLiteral("M'1"), Money::yuan(1), Money::yuan(480)),
                 MemberService::Settled::BalanceShort);
        const MemberCard after = *s.card(QStringLiteral("M'1"));
        QCOMPARE(after.points, pointsAfter);
        QCOMPARE(after.sumValue, Money::fromDouble(1300.5));
        QCOMPARE(after.chongzhi, Money::fromDouble(479.75));
        QCOMPARE(s.settle(QStringLiteral("gone"), Money::yuan(1), {}), MemberService::Settled::MemberGone);
        QVERIFY(!s.card(QStringLiteral("gone")));
    }

    void passwords_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("now");
        QTest::addColumn<QString>("fresh");
        QTest::addColumn<QString>("repeat");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        const QString repeat = QStringLiteral("您输入的新密码和重复密码不一样，请重新输入！");
        const QString wrong = QStringLiteral("您输入的当前密码不正确，请重新输入！");
        QTest::newRow("member: repeat differs, checked before the current") << 2 << "hash:old"
                                                                            << "bad"
                                                                            << "n1"
                                                                            << "n2" << repeat << "txtpw";
        QTest::newRow("member: wrong current") << 2 << "hash:old"
                                               << "Old"
                                               << "n1"
                                               << "n1" << wrong << "txtNowPw";
        QTest::newRow("member: right current") << 2 << "hash:old"
                                               << "old"
                                               << "新'1"
                                               << "新'1"
                                               << ""
                                               << "";
        QTest::newRow("member without password: empty current") << 2 << ""
                                                                << ""
                                                                << "n1"
                                                                << "n1"
                                                                << ""
                                                                << "";
        QTest::newRow("member without password: any other current") << 2 << ""
                                                                    << "x"
                                                                    << "n1"
                                                                    << "n1" << wrong << "txtNowPw";
        QTest::newRow("member written by hand in plain text") << 2 << "old"
                                                              << "old"
                                                              << "n1"
                                                              << "n1"
                                                              << ""
                                                              << "";
        QTest::newRow("member: empty new password means none") << 2 << "hash:old"
                                                               << "old"
                                                               << ""
                                                               << ""
                                                               << ""
                                                               << "";
        QTest::newRow("operator: wrong current") << 1 << "hash:old"
                                                 << ""
                                                 << "n1"
                                                 << "n1" << wrong << "txtNowPw";
        QTest::newRow("operator: right current") << 1 << "hash:old"
                                                 << "old"
                                                 << "n1"
                                                 << "n1"
                                                 << ""
                                                 << "";
        QTest::newRow("operator: empty new password is hashed too") << 1 << "hash:old"
                                                                    << "old"
                                                                    << ""
                                                                    << ""
                                                                    << ""
                                                                    << "";
        QTest::newRow("other kinds act as operators") << 7 << "hash:old"
                                                      << "old"
                                                      << "n1"
                                                      << "n1"
                                                      << ""
                                                      << "";
    }
    void passwords() {
        QFETCH(int, kind);
        QFETCH(QString, stored);
        QFETCH(QString, now);
        QFETCH(QString, fresh);
        QFETCH(QString, repeat);
        QFETCH(QString, message);
        QFETCH(QString, field);
        TestVenue v;
        OPEN_VENUE(v);
        const QString pw = stored.startsWith(QLatin1String("hash:")) ? Password::hash(stored.mid(5)) : stored;
        addClass(QStringLiteral("s1"), QStringLiteral("普通"), 0, 10);
        addMember(QStringLiteral("M'1"), QStringLiteral("张三"), QStringLiteral("s1"), {}, 0, pw);
        DB().exec(
            QStringLiteral("insert into Operator (OperatorID, LoginName, operatorname, pw, State) values "
                           "('o1', 'cashier', '收银员', ?, 0)"),
            {pw});
        const bool member = kind == 2;
        const QString id = member ? QStringLiteral("M'1") : QStringLiteral("o1");
        const Refused r = ChangePassword({kind, id, now, fresh, repeat});
        QCOMPARE(r ? r->message : QString(), message);
        QCOMPARE(r ? r->field : QString(), field);
        const QString after =
            DB().scalar(member ? QStringLiteral("select pw from Member")
                               : QStringLiteral("select pw from Operator where OperatorID='o1'"))
                .toString();
        if (r) {
            QCOMPARE(after, pw);
            return;
        }
        if (member && fresh.isEmpty()) {
            QCOMPARE(after, QString());
        } else {
            QVERIFY(after.startsWith(QLatin1String("$argon2id")));
            QVERIFY(Password::verify(after, fresh));
            QVERIFY(after != fresh); // never the password as typed
        }
        if (member) {
            QVERIFY(MemberService().CheckMemberPassword(id, fresh));
            QVERIFY(!MemberService().CheckMemberPassword(id, now + QStringLiteral("x")));
        } else {
            QCOMPARE(SignIn(QStringLiteral("cashier"), fresh), SignInOutcome::Ok);
        }
    }

    void chongzhi_member_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("message");
        QTest::newRow("unknown code") << "nobody"
                                      << "没找到这个会员！请检查您输入的会员编号是否正确！";
        QTest::newRow("stopped member") << "S1"
                                        << "不能操作此会员的数据，因为此会员已暂停服务！";
        QTest::newRow("state 2 passes") << "S2"
                                        << "";
        QTest::newRow("quote in the code") << "M'1"
                                           << "";
    }
    void chongzhi_member() {
        QFETCH(QString, code);
        QFETCH(QString, message);
        TestVenue v;
        OPEN_VENUE(v);
        addClass(QStringLiteral("s1"), QStringLiteral("普通"), 0, 10);
        addMember(QStringLiteral("M'1"), QStringLiteral("张三"), QStringLiteral("s1"),
                  Money::fromDouble(88.5));
        addMember(QStringLiteral("S1"), QStringLiteral("停一"), QStringLiteral("s1"), {}, 1);
        addMember(QStringLiteral("S2"), QStringLiteral("停二"), QStringLiteral("s1"), Money::yuan(7), 2);
        const ChongzhiMemberLoad l = StoredValueService().loadMember(code);
        QCOMPARE(l.refusal ? l.refusal->message : QString(), message);
        QCOMPARE(l.member.has_value(), message.isEmpty());
        if (l.refusal) {
            QCOMPARE(l.refusal->field, QStringLiteral("txtMemberCode"));
            QCOMPARE(l.refusal->icon, Msg::Icon::Exclamation);
        } else {
            QCOMPARE(l.member->code, code);
            QCOMPARE(l.member->balance,
                     code == QLatin1String("S2") ? Money::yuan(7) : Money::fromDouble(88.5));
        }
    }

    void chongzhi_validate_data() {
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("factPay");
        QTest::addColumn<QString>("thisMemoney");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("field");
        QTest::newRow("no member held") << ""
                                        << "100"
                                        << "100"
                                        << "请输入正确的会员编号！"
                                        << "txtMemberCode";
        QTest::newRow("received not a number") << "M1"
                                               << "一百"
                                               << "100"
                                               << "请输入实收金额！"
                                               << "txtFactPay";
        QTest::newRow("received empty") << "M1"
                                        << ""
                                        << "100"
                                        << "请输入实收金额！"
                                        << "txtFactPay";
        QTest::newRow("credited not a number") << "M1"
                                               << "100"
                                               << "100元"
                                               << "请输入充值金额！"
                                               << "txtThisMemoney";
        QTest::newRow("both amounts bad: received first") << "M1"
                                                          << "x"
                                                          << "y"
                                                          << "请输入实收金额！"
                                                          << "txtFactPay";
        QTest::newRow("negative and zero pass") << "M1"
                                                << "0"
                                                << "-30"
                                                << ""
                                                << "";
    }
    void chongzhi_validate() {
        QFETCH(QString, member);
        QFETCH(QString, factPay);
        QFETCH(QString, thisMemoney);
        QFETCH(QString, message);
        QFETCH(QString, field);
        const Refused r = StoredValueService::validate({member, factPay, thisMemoney, {}});
        QCOMPARE(r ? r->message : QString(), message);
        QCOMPARE(r ? r->field : QString(), field);
    }

    void chongzhi_save_data() {
        QTest::addColumn<QString>("factPay");
        QTest::addColumn<QString>("thisMemoney");
        QTest::addColumn<double>("balanceAfter");
        QTest::newRow("credit more than received") << "80"
                                                   << "100" << 150.0;
        QTest::newRow("zero credit writes a row") << "0"
                                                  << "0" << 50.0;
        QTest::newRow("negative credit lowers") << "0"
                                                << "-30" << 20.0;
        QTest::newRow("four decimals kept") << "12.3456"
                                            << "12.3456" << 62.3456;
    }
    void chongzhi_save() {
        QFETCH(QString, factPay);
        QFETCH(QString, thisMemoney);
        QFETCH(double, balanceAfter);
        TestVenue v;
        OPEN_VENUE(v);
        addClass(QStringLiteral("s1"), QStringLiteral("普通"), 0, 10);
        addMember(QStringLiteral("M'1"), QStringLiteral("张三"), QStringLiteral("s1"), Money::yuan(50));
        const ChongzhiSaved s = StoredValueService().save(
            {QStringLiteral("M'1"), factPay, thisMemoney, QStringLiteral("开卡'送")});
        QVERIFY(s.ok());
        QVERIFY(!s.warning);
        QCOMPARE(balanceOf(QStringLiteral("M'1")), Money::fromDouble(balanceAfter));
        const Row r =
            DB().query(QStringLiteral("select * from chongzhi where chongzhiid=?"), {s.chongzhiID}).first();
        QCOMPARE(r.text(QStringLiteral("MemberCode")), QStringLiteral("M'1"));
        QCOMPARE(r.money(QStringLiteral("factpay")), Money::fromText(factPay));
        QCOMPARE(r.money(QStringLiteral("thismemoney")), Money::fromText(thisMemoney));
        QCOMPARE(r.text(QStringLiteral("Description")), QStringLiteral("开卡'送"));
        QCOMPARE(r.text(QStringLiteral("operatorname")), QStringLiteral("系统管理员"));
        QCOMPARE(r.text(QStringLiteral("OperatorTime")), QStringLiteral("2026-11-21 20:00"));
    }

    void chongzhi_for_a_member_gone() {
        TestVenue v;
        OPEN_VENUE(v);
        const ChongzhiSaved s = StoredValueService().save(
            {QStringLiteral("gone"), QStringLiteral("10"), QStringLiteral("10"), {}});
        QVERIFY(s.ok());
        QCOMPARE(s.warning->message,
                 QStringLiteral("充值失败，没找个此会员的资料！请核对此会员数据是否已被清除！"));
        QCOMPARE(count(QStringLiteral("select count(*) from chongzhi where MemberCode='gone'")), 1);
    }

    // Two cashiers topping up one card at the same moment: every top-up counts.
    void concurrent_topups() {
        TestVenue v;
        OPEN_VENUE(v);
        addClass(QStringLiteral("s1"), QStringLiteral("普通"), 0, 10);
        addMember(QStringLiteral("M1"), QStringLiteral("张三"), QStringLiteral("s1"), Money::yuan(100));
        constexpr int Each = 15;
        std::atomic<int> ready{0}, saved{0};
        auto cashier = [&](int n) {
            Db db(QStringLiteral("cashier%1").arg(n));
            db.open(v.config());
            ++ready;
            while (ready < 2)
                std::this_thread::yield();
            StoredValueService s(db);
            for (int i = 0; i < Each; ++i)
                if (s.save({QStringLiteral("M1"), QStringLiteral("1"), QString::number(n), {}}).ok()) ++saved;
            db.close();
        };
        std::thread a(cashier, 1), b(cashier, 2);
        a.join();
        b.join();
        QCOMPARE(saved.load(), 2 * Each);
        QCOMPARE(count(QStringLiteral("select count(*) from chongzhi")), 2 * Each);
        QCOMPARE(balanceOf(QStringLiteral("M1")), Money::yuan(100 + Each * 1 + Each * 2));
    }

    void period_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<QDate>("today");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::newRow("today") << 0 << QDate(2026, 11, 21) << "2026-11-21 00:00"
                               << "2026-11-22 00:00";
        QTest::newRow("week from Sunday, on a Saturday") << 1 << QDate(2026, 11, 21) << "2026-11-15 00:00"
                                                         << "2026-11-22 00:00";
        QTest::newRow("week on its Sunday") << 1 << QDate(2026, 11, 22) << "2026-11-22 00:00"
                                            << "2026-11-29 00:00";
        QTest::newRow("week across the year") << 1 << QDate(2027, 1, 1) << "2026-12-27 00:00"
                                              << "2027-01-03 00:00";
        QTest::newRow("month") << 2 << QDate(2026, 12, 15) << "2026-12-01 00:00"
                               << "2027-01-01 00:00";
        QTest::newRow("month from its last day") << 2 << QDate(2027, 1, 31) << "2027-01-01 00:00"
                                                 << "2027-02-01 00:00";
        QTest::newRow("any other index is today") << 5 << QDate(2026, 2, 28) << "2026-02-28 00:00"
                                                  << "2026-03-01 00:00";
    }
    void period() {
        QFETCH(int, index);
        QFETCH(QDate, today);
        QFETCH(QString, start);
        QFETCH(QString, end);
        const ChongzhiPeriod p = StoredValueService::period(index, today);
        QCOMPARE(TimeText(p.start), start);
        QCOMPARE(TimeText(p.end), end);
    }

    void chongzhi_search_data() {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QStringList>("ids");
        QTest::addColumn<double>("credited");
        QTest::newRow("end excluded, newest first") << "2026-11-21 00:00"
                                                    << "2026-11-22 00:00" << L({"c3", "c2", "c1"}) << 60.0;
        QTest::newRow("equal ends: that minute only") << "2026-11-21 23:59"
                                                      << "2026-11-21 23:59" << L({"c3"}) << 30.0;
        QTest::newRow("nothing") << "2026-11-01 00:00"
                                 << "2026-11-02 00:00" << QStringList() << 0.0;
    }
    void chongzhi_search() {
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(QStringList, ids);
        QFETCH(double, credited);
        TestVenue v;
        OPEN_VENUE(v);
        addClass(QStringLiteral("s1"), QStringLiteral("普通"), 0, 10);
        addMember(QStringLiteral("M1"), QStringLiteral("张三"));
        addTopUp(QStringLiteral("c0"), QStringLiteral("M1"), Money::yuan(1),
                 QStringLiteral("2026-11-20 23:59"));
        addTopUp(QStringLiteral("c1"), QStringLiteral("M1"), Money::yuan(10),
                 QStringLiteral("2026-11-21 00:00"));
        addTopUp(QStringLiteral("c2"), QStringLiteral("gone"), Money::yuan(20),
                 QStringLiteral("2026-11-21 12:00"));
        addTopUp(QStringLiteral("c3"), QStringLiteral("M1"), Money::yuan(30),
                 QStringLiteral("2026-11-21 23:59"));
        addTopUp(QStringLiteral("c4"), QStringLiteral("M1"), Money::yuan(40),
                 QStringLiteral("2026-11-22 00:00"));
        const ChongzhiTotals t = StoredValueService().search(ParseTime(start), ParseTime(end));
        QStringList got;
        for (const Row r : t.rows) {
            got << r.text(QStringLiteral("chongzhiid"));
            // A member deleted since leaves the name empty.
            QCOMPARE(r.text(QStringLiteral("membername")),
                     r.text(QStringLiteral("MemberCode")) == QLatin1String("gone") ? QString()
                                                                                   : QStringLiteral("张三"));
        }
        QCOMPARE(got, ids);
        QCOMPARE(t.thisMemoney, Money::fromDouble(credited));
        QCOMPARE(t.factPay, Money::fromDouble(credited));
    }
};

QTEST_MAIN(TestMembers)
#include "test_members.moc"
