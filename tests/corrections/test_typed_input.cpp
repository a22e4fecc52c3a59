// Hostile typed input: numbers a field cannot hold, infinities, and characters outside the
// basic plane at a box's length limit. Every money, quantity and count box is in one table.
#include "BusinessRules.h"
#include "CheckoutModel.h"
#include "MemberClassService.h"
#include "MemberService.h"
#include "OrderEntry.h"
#include "OrderService.h"
#include "PayLevel.h"
#include "RoomService.h"
#include "RoomUse.h"
#include "StoredValueService.h"
#include "TestKit.h"
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

namespace {
const QString TwentyNines = u"99999999999999999999"_s;
const QString Overflow = u"1e309"_s;
const QString Rare = u"𠀀"_s; // U+20000, two UTF-16 units

// A room in use with its bill, a member with stored value, goods of a type.
void seed() {
    addRoomType(u"t1"_s, u"小包"_s);
    addRoom(u"r1"_s, u"A1"_s, u"t1"_s, 1);
    addRoom(u"r2"_s, u"A2"_s, u"t1"_s);
    DB().exec(u"update The set ExpenseID='e1' where TheID='r1'"_s);
    DB().exec(
        u"insert into Expense (ExpenseID, TheID, OpenTime, State) values ('e1', 'r1', '2026-11-21 19:00', 1)"_s);
    DB().exec(u"insert into MemberSetup (SetupID, SetupName, discount) values ('s1', '金卡', 1)"_s);
    DB().exec(u"insert into Member (MemberCode, MemberName, SetupID, State, chongzhi) values "
              "('m1', '张三', 's1', 0, 1000000)"_s);
    DB().exec(u"insert into WareType (WareTypeID, wareTypeName) values ('w', '酒水')"_s);
    DB().exec(u"insert into Ware (WareID, WareTypeID, WareName, Mnemonics, Price) values "
              "('beer', 'w', '啤酒', 'pj', 100000)"_s);
}

// Everything a refused box could have written, as one text.
QString written() {
    return dump(u"select (select count(*) from Expense), (select count(*) from ExpenseDetail), "
                "(select count(*) from chongzhi), (select sum(chongzhi) from Member), "
                "(select sum(MemberValue) from Member), (select count(*) from Ware), "
                "(select count(*) from PayLevel), (select count(*) from MemberSetup), (select count(*) from "
                "The), "
                "(select count(*) from WareLevel), (select count(*) from Member)"_s) +
           GetSetup(u"AllDiscount"_s) + u'|' + GetSetup(u"LockTime"_s);
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
        m.expenseMoney = m.oughtMoney = m.factPay = m.chongzhi = u"100"_s;
        m.chongzhiD = m.freePay = u"0"_s;
        m.*box = v;
        if (box == &CheckoutModel::chongzhiD) m.chongzhi = v;
        const QDateTime t = TestVenue::fixedNow();
        return m.check(
            CloseMode::Paid, {}, [] { return true; }, t, t, 0);
    };
}

Refused quickEntry(const QString& v) {
    OrderEntry e;
    e.open(u"e1"_s);
    e.buildGoods(TestVenue::fixedNow(), AllDiscountRate::current());
    const QuickEntry q = e.quickEntry(u"pj "_s + v, true);
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
    const OpenHouseInput open{u"r2"_s, {}, u"4"_s, {}, u"0"_s, true, 1};
    const auto topUp = [](const ChongzhiInput& in) { return StoredValueService().save(in).refusal; };
    const ChongzhiInput money{u"m1"_s, u"100"_s, u"100"_s, {}};
    const auto memberClass = [](const MemberClassInput& in) {
        return MemberClassService().save({}, in).refusal;
    };
    const MemberClassInput silver{u"银卡"_s, u"0"_s, u"0"_s, u"1"_s, {}};
    const auto member = [](const MemberInput& in) { return MemberService().save({}, in, {}).refusal; };
    MemberInput m2;
    m2.code = u"m2"_s;
    m2.name = u"李四"_s;
    m2.setupID = u"s1"_s;
    const auto goods = [](const WareInput& in) { return WareService().saveWare({}, in).refusal; };
    WareInput cola;
    cola.wareTypeID = u"w"_s;
    cola.wareName = u"可乐"_s;
    cola.price = u"5"_s;
    const auto line = [](const OrderLineInput& in) { return OrderService().SaveLine(in).refusal; };
    const OrderLineInput beer{u"e1"_s, {}, u"beer"_s, u"10000"_s, u"0"_s, u"1"_s, {}, false};
    const auto period = [](const WareLevelInput& in) { return WareLevelService::validate(in); };
    WareLevelInput night;
    night.name = u"夜场"_s;
    night.end[0] = u"24"_s;
    const auto tariff = [](const PayLevelInput& in) { return PayLevelService::validate(in); };
    PayLevelInput day;
    day.name = u"标准"_s;
    day.end[0] = u"24"_s;
    for (auto* a : {&day.price, &day.minMoney, &day.priceA, &day.minMoneyA})
        a->fill(u"0"_s);
    const auto batch = [](const RoomBatchInput& in) { return RoomService().addRooms(in).refusal; };
    const RoomBatchInput run{u"B"_s, u"1"_s, u"3"_s, u"t1"_s, {}};
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

} // namespace

class TestTypedInput : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void reader_data() {
        columns<QString, bool, bool>("text", "money", "count");
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
        const auto [text, money, count] = fetch<QString, bool, bool>("text", "money", "count");
        QCOMPARE(ReadNumber(text, Range::Money).has_value(), money);
        QCOMPARE(ReadNumber(text, Range::Int32).has_value(), count);
        // Bad amounts never wrap into a negative sum.
        QVERIFY(Money::fromDouble(1e30).raw() > 0);
    }

    void hostileNumbers_data() {
        columns<int, QString>("box", "value");
        for (int i = 0; i < boxes().size(); ++i) {
            for (const QString& v : {TwentyNines, Overflow, QString(u"-"_s + TwentyNines)})
                QTest::addRow("%s %s", boxes()[i].name, qPrintable(v)) << i << v;
            // A quantity that fits, times the price of the line, must still be money a bill can hold.
            if (qstrcmp(boxes()[i].name, "frmExpenseDetail.txtNum") == 0)
                QTest::addRow("%s beyond money", boxes()[i].name) << i << u"900000000"_s;
        }
    }
    void hostileNumbers() {
        const auto [box, value] = fetch<int, QString>("box", "value");
        NEW_VENUE(venue);
        seed();
        const QString before = written();
        const Box& b = boxes()[box];
        const QStringList said = QString::fromUtf8(b.message).split(u'|');
        QCOMPARE(refusal(b.run(value)),
                 refusal(said.value(said.size() > 1 && value == Overflow ? 1 : 0).arg(value),
                         QLatin1String(b.field)));
        QCOMPARE(written(), before);
    }

    // Limits count characters: a rare character at the limit stays whole or goes whole.
    void lengthLimits() {
        NEW_VENUE(venue);
        for (QWidget* made : std::initializer_list<QWidget*>{
                 new frmLogin, new frmOpenHouse, new frmHouseChange, new frmExpenseAmalgamate, new frmHouse,
                 new frmHouseAddBat, new frmHouseAssort, new frmWare, new frmWareType, new frmWareLevel,
                 new frmEmployee, new frmChongzhi, new frmCloseHouse}) {
            const std::unique_ptr<QWidget> form(made);
            int limited = 0;
            for (QLineEdit* box : form->findChildren<QLineEdit*>()) {
                const QVariant limit = box->property("characterLimit");
                if (!limit.isValid()) continue;
                ++limited;
                const QString kept = QString(limit.toInt() - 1, u'x') + Rare;
                // Pasted whole, and typed one piece at a time.
                box->setText(kept + u"yz"_s);
                QCOMPARE(box->text(), kept);
                box->clear();
                for (const QString& piece : {QString(limit.toInt() - 1, u'x'), Rare, Rare})
                    box->insert(piece);
                QCOMPARE(box->text(), kept);
            }
            QVERIFY2(limited > 0, form->metaObject()->className());
        }
    }

    // The batch of rooms stores what its marker box shows, the number included.
    void rareMarkerKeepsTheNumber() {
        NEW_VENUE(venue);
        seed();
        frmHouseAddBat dlg;
        dlg.startAdd();
        child<QLineEdit>(dlg, "txtMarkerText")->setText(QString(19, u'A') + Rare + Rare);
        child<QLineEdit>(dlg, "txtHouseCode")->setText(u"1"_s);
        child<QLineEdit>(dlg, "txtEndCode")->setText(u"2"_s);
        auto* type = child<QComboBox>(dlg, "imgcmbAssort");
        type->setCurrentIndex(type->findData(u"t1"_s));
        dlg.cmdOK_Click();
        QCOMPARE(messages(), QStringList());
        QCOMPARE(count(u"select count(*) from The where TheCode=?"_s, {QString(19, u'A') + Rare + u'1'}), 1);
    }
};

QTEST_MAIN(TestTypedInput)
#include "test_typed_input.moc"
