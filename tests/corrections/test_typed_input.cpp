// Hostile typed input: numbers a field cannot hold, infinities, and characters outside the
// basic plane at a box's length limit. Every money, quantity and count box is in one table.
#include "BusinessRules.h"
#include "CheckoutModel.h"
#include "FormProbe.h"
#include "MemberClassService.h"
#include "MemberService.h"
#include "OrderEntry.h"
#include "OrderService.h"
#include "PayLevel.h"
#include "RoomService.h"
#include "RoomUse.h"
#include "Settings.h"
#include "StoredValueService.h"
#include "TestVenue.h"
#include "Val.h"
#include "WareLevel.h"
#include "WareService.h"
#include "frmChongzhi.h"
#include "frmCloseHouse.h"
#include "frmEmployee.h"
#include "frmExpenseAmalgamate.h"
#include "frmHouse.h"
#include "frmHouseAddBat.h"
#include "frmHouseAssort.h"
#include "frmHouseChange.h"
#include "frmLogin.h"
#include "frmMain.h"
#include "frmOpenHouse.h"
#include "frmWare.h"
#include "frmWareLevel.h"
#include "frmWareType.h"
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <functional>
#include <map>

namespace {
const QString TwentyNines = QStringLiteral("99999999999999999999");
const QString Overflow = QStringLiteral("1e309");
const QString Rare = QStringLiteral("𠀀"); // U+20000, two UTF-16 units

// A room in use with its bill, a member with stored value, goods of a type.
void seed() {
    DB().exec(QStringLiteral("insert into TheAssort (AssortID, AssortName, PayLevelID) values "
                             "('t1', '小包', '00000000000000001')"));
    DB().exec(QStringLiteral("insert into The (TheID, TheCode, AssortID, State, ExpenseID) values "
                             "('r1', 'A1', 't1', 1, 'e1'), ('r2', 'A2', 't1', 0, '')"));
    DB().exec(QStringLiteral("insert into Expense (ExpenseID, TheID, OpenTime, State) values "
                             "('e1', 'r1', '2026-11-21 19:00', 1)"));
    DB().exec(
        QStringLiteral("insert into MemberSetup (SetupID, SetupName, discount) values ('s1', '金卡', 1)"));
    DB().exec(QStringLiteral("insert into Member (MemberCode, MemberName, SetupID, State, chongzhi) values "
                             "('m1', '张三', 's1', 0, 1000000)"));
    DB().exec(QStringLiteral("insert into WareType (WareTypeID, wareTypeName) values ('w', '酒水')"));
    DB().exec(QStringLiteral("insert into Ware (WareID, WareTypeID, WareName, Mnemonics, Price) values "
                             "('beer', 'w', '啤酒', 'pj', 100000)"));
}

// Everything a refused box could have written, as one text.
QString written() {
    QStringList out;
    for (const char* sql :
         {"select count(*) from Expense", "select count(*) from ExpenseDetail",
          "select count(*) from chongzhi", "select sum(chongzhi) from Member",
          "select sum(MemberValue) from Member", "select count(*) from Ware", "select count(*) from PayLevel",
          "select count(*) from MemberSetup", "select count(*) from The", "select count(*) from WareLevel",
          "select count(*) from Member"})
        out << DB().scalar(QString::fromLatin1(sql)).toString();
    out << GetSetup(QStringLiteral("AllDiscount")) << GetSetup(QStringLiteral("LockTime"));
    return out.join(QLatin1Char('|'));
}

// Each box: its field, what it says to a number it cannot hold (%1: the text typed; after a
// "|" what it says to an infinity), and the check its form runs on OK with the box holding v.
using Check = std::function<Refused(const QString& v)>;
struct Box {
    const char* name;
    const char* field;
    const char* message;
    Check run;
};

template <class In, class F> Check with(In base, QString In::*box, F check) {
    return [=](const QString& v) {
        In in = base;
        in.*box = v;
        return check(in);
    };
}
template <class In, class F> Check withFirst(In base, std::array<QString, 4> In::*box, F check) {
    return [=](const QString& v) {
        In in = base;
        (in.*box)[0] = v;
        return check(in);
    };
}

Check pay(QString CheckoutModel::*box) {
    return [box](const QString& v) {
        CheckoutModel m;
        m.expenseMoney = m.oughtMoney = m.factPay = m.chongzhi = QStringLiteral("100");
        m.chongzhiD = m.freePay = QStringLiteral("0");
        m.*box = v;
        if (box == &CheckoutModel::chongzhiD) m.chongzhi = v;
        const QDateTime t = TestVenue::fixedNow();
        return m.check(
            CloseMode::Paid, {}, [] { return true; }, t, t, 0);
    };
}

Refused quickEntry(const QString& v) {
    OrderEntry e;
    e.open(QStringLiteral("e1"));
    e.buildGoods(TestVenue::fixedNow(), AllDiscountRate::current());
    const QuickEntry q = e.quickEntry(QStringLiteral("pj ") + v, true);
    if (q.next != QuickEntry::Next::BadQuantity) return std::nullopt;
    return Refusal{q.message};
}

// The board's refresh seconds: a bad time is told and turns the refresh off.
Refused refreshTime(const QString& v) {
    frmMain w;
    auto* box = child<QLineEdit>(w, "txtTime");
    box->setText(v);
    w.txtTime_LostFocus();
    const QStringList said = messages();
    if (said.isEmpty() || box->text() != QLatin1String("0") || w.refreshTimer()->isActive())
        return std::nullopt;
    return Refusal{said.first(), box->objectName()};
}

QList<Box> makeBoxes() {
    const auto opening = [](const OpenHouseInput& in) { return RoomUseService().open(in).refusal; };
    const OpenHouseInput open{
        QStringLiteral("r2"), {}, QStringLiteral("4"), {}, QStringLiteral("0"), true, 1};
    const auto topUp = [](const ChongzhiInput& in) { return StoredValueService().save(in).refusal; };
    const ChongzhiInput money{QStringLiteral("m1"), QStringLiteral("100"), QStringLiteral("100"), {}};
    const auto memberClass = [](const MemberClassInput& in) {
        return MemberClassService().save({}, in).refusal;
    };
    const MemberClassInput silver{
        QStringLiteral("银卡"), QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("1"), {}};
    const auto member = [](const MemberInput& in) { return MemberService().save({}, in, {}).refusal; };
    MemberInput m2;
    m2.code = QStringLiteral("m2");
    m2.name = QStringLiteral("李四");
    m2.setupID = QStringLiteral("s1");
    const auto goods = [](const WareInput& in) { return WareService().saveWare({}, in).refusal; };
    WareInput cola;
    cola.wareTypeID = QStringLiteral("w");
    cola.wareName = QStringLiteral("可乐");
    cola.price = QStringLiteral("5");
    const auto line = [](const OrderLineInput& in) { return OrderService().SaveLine(in).refusal; };
    const OrderLineInput beer{QStringLiteral("e1"),
                              {},
                              QStringLiteral("beer"),
                              QStringLiteral("10"),
                              QStringLiteral("0"),
                              QStringLiteral("1"),
                              {},
                              false};
    const auto period = [](const WareLevelInput& in) { return WareLevelService::validate(in); };
    WareLevelInput night;
    night.name = QStringLiteral("夜场");
    night.end[0] = QStringLiteral("24");
    const auto tariff = [](const PayLevelInput& in) { return PayLevelService::validate(in); };
    PayLevelInput day;
    day.name = QStringLiteral("标准");
    day.end[0] = QStringLiteral("24");
    for (auto* a : {&day.price, &day.minMoney, &day.priceA, &day.minMoneyA})
        a->fill(QStringLiteral("0"));
    const auto batch = [](const RoomBatchInput& in) { return RoomService().addRooms(in).refusal; };
    const RoomBatchInput run{
        QStringLiteral("B"), QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("t1"), {}};
    // clang-format off
    return {
        {"frmOpenHouse.txtNum", "txtNum", "请输入顾客人数！", with(open, &OpenHouseInput::customerNum, opening)},
        {"frmOpenHouse.txtStartMoney", "txtStartMoney", "请输入门票金额！", with(open, &OpenHouseInput::startMoney, opening)},
        {"frmChongzhi.txtFactPay", "txtFactPay", "请输入实收金额！", with(money, &ChongzhiInput::factPay, topUp)},
        {"frmChongzhi.txtThisMemoney", "txtThisMemoney", "请输入充值金额！", with(money, &ChongzhiInput::thisMemoney, topUp)},
        {"frmMemberSetup.txtInitValue", "txtInitValue", "请输入初始积分！", with(silver, &MemberClassInput::initValue, memberClass)},
        {"frmMemberSetup.txtStepValue", "txtStepValue", "请输入积分方法！", with(silver, &MemberClassInput::stepValue, memberClass)},
        {"frmMemberSetup.txtDiscount", "txtDiscount", "请输入折扣！", with(silver, &MemberClassInput::discount, memberClass)},
        {"frmMember.txtMemberValue", "txtMemberValue", "会员积分只能输入数字！", with(m2, &MemberInput::memberValue, member)},
        {"frmCloseHouse.txtOughtMoney", "txtOughtMoney", "您输入的结算金额有误，请重新输入！", pay(&CheckoutModel::oughtMoney)},
        {"frmCloseHouse.txtFactPay", "txtFactPay", "您输入的顾客支付金额有误，请重新输入！", pay(&CheckoutModel::factPay)},
        {"frmCloseHouse.txtChongzhiD", "txtChongzhiD", "您输入的储值卡消费金额金额有误，请重新输入！", pay(&CheckoutModel::chongzhiD)},
        {"frmCloseHouse.txtFreePay", "txtFreePay", "您输入的赠券金额有误，请重新输入！", pay(&CheckoutModel::freePay)},
        {"frmExpenseDetail.txtNum", "txtNum", "您输入%1数量有误，请重新输入！", with(beer, &OrderLineInput::num, line)},
        {"frmExpenseDetail.txtInput", "", "您输入%1数量有误，请重新输入！", quickEntry},
        // The goods form keeps its words for an amount it cannot store; an infinity is no number.
        {"frmWare.txtPrice", "txtPrice", "品项单价超出范围！|请输入品项单价！", with(cola, &WareInput::price, goods)},
        {"frmWare.txtProcurePrice", "txtProcurePrice", "品项成本超出范围！|品项成本只能输入数字！", with(cola, &WareInput::procurePrice, goods)},
        {"frmWare.txtTicheng", "txtTicheng", "员工提成超出范围！|员工提成只能输入数字！", with(cola, &WareInput::tiCheng, goods)},
        {"frmWare.txtMinNum", "txtMinNum", "最低库存超出范围！", with(cola, &WareInput::minNum, goods)},
        {"frmWareLevel.txtDiscount1", "txtDiscount1", "折扣只能输入数字！", withFirst(night, &WareLevelInput::discount, period)},
        {"frmPayLevel.txtAfterTime", "txtAfterTime", "请输入开始计费时间！", with(day, &PayLevelInput::afterTime, tariff)},
        {"frmPayLevel.txtMinMoneyA1", "txtMinMoneyA1", "最低消费金额必须输入数字！输入0表示不计费。", withFirst(day, &PayLevelInput::minMoneyA, tariff)},
        {"frmPayLevel.txtMinMoney1", "txtMinMoney1", "最低消费金额必须输入数字！输入0表示没有最低消费要求。", withFirst(day, &PayLevelInput::minMoney, tariff)},
        {"frmPayLevel.txtPriceA1", "txtPriceA1", "买断时间必须输入数字！", withFirst(day, &PayLevelInput::priceA, tariff)},
        {"frmPayLevel.txtPrice1", "txtPrice1", "计时价格必须输入数字！", withFirst(day, &PayLevelInput::price, tariff)},
        {"frmPayLevel.txtUnit", "txtUnit", "请输入计费单位！", with(day, &PayLevelInput::unit, tariff)},
        {"frmPayLevel.txtPrivilegeTime", "txtPrivilegeTime", "请输入优惠时间！", with(day, &PayLevelInput::privilegeTime, tariff)},
        {"frmHouseAddBat.txtHouseCode", "txtHouseCode", "手牌编号只能输入数字！", with(run, &RoomBatchInput::startCode, batch)},
        {"frmHouseAddBat.txtEndCode", "txtEndCode", "手牌的结束编号只能输入数字！", with(run, &RoomBatchInput::endCode, batch)},
        {"frmOption.txtAllDiscount", "txtAllDiscount", "折扣比率只能输入数字，请输入正确的折扣比率！",
         [](const QString& v) { return BusinessRules::applyDiscount({true, v, 0}); }},
        {"frmOption.txtLockTime", "txtLockTime", "锁定时间只能输入数字！", [](const QString& v) { return BusinessRules::saveCheckout(0, v); }},
        {"frmMain.txtTime", "txtTime", "您设置的刷新时间小于3秒，系统将取消自动刷新功能！", refreshTime},
    };
    // clang-format on
}

const QList<Box>& boxes() {
    static const QList<Box> all = makeBoxes();
    return all;
}

// Every line edit of a form whose length is limited, with its limit in characters.
QList<QPair<QLineEdit*, int>> limitedBoxes(QWidget* form) {
    QList<QPair<QLineEdit*, int>> out;
    for (QLineEdit* box : form->findChildren<QLineEdit*>()) {
        const QVariant limit = box->property("characterLimit");
        if (limit.isValid()) out.append({box, limit.toInt()});
    }
    return out;
}

bool wholeCharacters(const QString& s) {
    for (qsizetype i = 0; i < s.size(); ++i) {
        if (s[i].isHighSurrogate() && i + 1 < s.size() && s[i + 1].isLowSurrogate())
            ++i;
        else if (s[i].isSurrogate())
            return false;
    }
    return true;
}
} // namespace

class TestTypedInput : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void reader_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("money");
        QTest::addColumn<bool>("count");
        QTest::newRow("plain") << "12.5" << true << true;
        QTest::newRow("largest money") << "1000000000000" << true << false;
        QTest::newRow("beyond money") << "1000000000001" << false << false;
        QTest::newRow("largest count") << "2147483647" << true << true;
        QTest::newRow("beyond count") << "2147483648" << true << false;
        QTest::newRow("twenty nines") << "99999999999999999999" << false << false;
        QTest::newRow("negative twenty nines") << "-99999999999999999999" << false << false;
        QTest::newRow("infinity") << "1e309" << false << false;
        QTest::newRow("tiny is zero") << "1e-400" << true << true;
        QTest::newRow("words") << "inf" << false << false;
    }
    void reader() {
        QFETCH(QString, text);
        QFETCH(bool, money);
        QFETCH(bool, count);
        QCOMPARE(ReadNumber(text, Range::Money).has_value(), money);
        QCOMPARE(ReadNumber(text, Range::Int32).has_value(), count);
        // Bad amounts never wrap into a negative sum.
        QVERIFY(Money::fromDouble(1e30).raw() > 0);
    }

    void hostileNumbers_data() {
        QTest::addColumn<int>("box");
        QTest::addColumn<QString>("value");
        for (int i = 0; i < boxes().size(); ++i)
            for (const QString& v : {TwentyNines, Overflow, QString(QStringLiteral("-") + TwentyNines)})
                QTest::newRow(qPrintable(QString::fromUtf8(boxes()[i].name) + QLatin1Char(' ') + v))
                    << i << v;
    }
    void hostileNumbers() {
        QFETCH(int, box);
        QFETCH(QString, value);
        TestVenue venue;
        OPEN_VENUE(venue);
        seed();
        const QString before = written();
        const Box& b = boxes()[box];
        const Refused r = b.run(value);
        QVERIFY2(r.has_value(), "accepted");
        const QStringList said = QString::fromUtf8(b.message).split(QLatin1Char('|'));
        QCOMPARE(r->message, said.value(said.size() > 1 && value == Overflow ? 1 : 0).arg(value));
        QCOMPARE(r->field, QString::fromLatin1(b.field));
        QCOMPARE(written(), before);
    }

    // Limits count characters: a rare character at the limit stays whole or goes whole.
    void lengthLimits_data() {
        QTest::addColumn<QString>("form");
        for (const char* f : {"frmLogin", "frmOpenHouse", "frmHouseChange", "frmExpenseAmalgamate",
                              "frmHouse", "frmHouseAddBat", "frmHouseAssort", "frmWare", "frmWareType",
                              "frmWareLevel", "frmEmployee", "frmChongzhi", "frmCloseHouse"})
            QTest::newRow(f) << QString::fromLatin1(f);
    }
    void lengthLimits() {
        QFETCH(QString, form);
        TestVenue venue;
        OPEN_VENUE(venue);
        // clang-format off
        const std::map<std::string, std::function<QWidget*()>> make = {
            {"frmLogin", [] { return new frmLogin; }}, {"frmOpenHouse", [] { return new frmOpenHouse; }},
            {"frmHouseChange", [] { return new frmHouseChange; }}, {"frmExpenseAmalgamate", [] { return new frmExpenseAmalgamate; }},
            {"frmHouse", [] { return new frmHouse; }}, {"frmHouseAddBat", [] { return new frmHouseAddBat; }},
            {"frmHouseAssort", [] { return new frmHouseAssort; }}, {"frmWare", [] { return new frmWare; }},
            {"frmWareType", [] { return new frmWareType; }}, {"frmWareLevel", [] { return new frmWareLevel; }},
            {"frmEmployee", [] { return new frmEmployee; }}, {"frmChongzhi", [] { return new frmChongzhi; }},
            {"frmCloseHouse", [] { return new frmCloseHouse; }},
        };
        // clang-format on
        std::unique_ptr<QWidget> w(make.at(form.toStdString())());
        const auto limited = limitedBoxes(w.get());
        QVERIFY(!limited.isEmpty());
        for (const auto& [box, limit] : limited) {
            const QString name = box->objectName();
            // Pasted whole, and typed one piece at a time.
            box->setText(QString(limit - 1, QLatin1Char('x')) + Rare + QStringLiteral("yz"));
            QVERIFY2(wholeCharacters(box->text()), qPrintable(name));
            QCOMPARE(box->text(), QString(limit - 1, QLatin1Char('x')) + Rare);
            box->clear();
            box->insert(QString(limit - 1, QLatin1Char('x')));
            box->insert(Rare);
            box->insert(Rare);
            QCOMPARE(box->text().toUcs4().size(), limit);
            QVERIFY2(box->text().endsWith(Rare), qPrintable(name));
        }
    }

    // A quantity that fits, times a price, must still be money a bill can hold.
    void lineAmountBeyondMoney() {
        TestVenue venue;
        OPEN_VENUE(venue);
        seed();
        const QString before = written();
        const Refused r = OrderService()
                              .SaveLine({QStringLiteral("e1"),
                                         {},
                                         QStringLiteral("beer"),
                                         QStringLiteral("10000"),
                                         QStringLiteral("0"),
                                         QStringLiteral("900000000"),
                                         {},
                                         false})
                              .refusal;
        QVERIFY(r.has_value());
        QCOMPARE(r->message, QStringLiteral("您输入900000000数量有误，请重新输入！"));
        QCOMPARE(written(), before);
    }

    // The batch of rooms stores what its marker box shows, the number included.
    void rareMarkerKeepsTheNumber() {
        TestVenue venue;
        OPEN_VENUE(venue);
        seed();
        frmHouseAddBat dlg;
        dlg.startAdd();
        auto* marker = child<QLineEdit>(dlg, "txtMarkerText");
        marker->setText(QString(19, QLatin1Char('A')) + Rare + Rare);
        child<QLineEdit>(dlg, "txtHouseCode")->setText(QStringLiteral("1"));
        child<QLineEdit>(dlg, "txtEndCode")->setText(QStringLiteral("2"));
        auto* type = child<QComboBox>(dlg, "imgcmbAssort");
        type->setCurrentIndex(type->findData(QStringLiteral("t1")));
        dlg.cmdOK_Click();
        QCOMPARE(messages(), QStringList());
        const QString first = QString(19, QLatin1Char('A')) + Rare + QLatin1Char('1');
        QCOMPARE(DB().scalar(QStringLiteral("select count(*) from The where TheCode=?"), {first}).toInt(), 1);
    }
};

QTEST_MAIN(TestTypedInput)
#include "test_typed_input.moc"
