#include "PayLevel.h"
#include "Gateway.h"
#include "AppState.h"
#include "Clock.h"
#include "Log.h"
#include "NewID.h"
#include "Val.h"

QList<int> PeriodChain::choices(int i) const {
    QList<int> out;
    const int from = i == 0 ? 0 : end[size_t(i - 1)];
    if (i > 0 && (from == 0 || from >= 24)) return out;
    for (int h = from + 1; h <= 24; ++h) out << h;
    return out;
}

void PeriodChain::choose(int i, int hour) {
    end[size_t(i)] = hour;
    for (int k = i + 1; k < 4; ++k) {
        end[size_t(k)] = 0;
        start[size_t(k)] = 0;
    }
    if (i + 1 < 4) start[size_t(i + 1)] = hour;
}

namespace {
QString num(double v) { return QString::number(v, 'g', 15); }
QString field(const char* base, int i) { return QString::fromLatin1(base) + QString::number(i + 1); }
} // namespace

namespace PayLevelService {
Refused validate(const PayLevelInput& in) {
    if (in.name.trimmed().isEmpty()) return Refusal{QStringLiteral("请计费标准名称！"), QStringLiteral("txtPayLevelName")};
    if (!ReadNumber(in.afterTime, Range::Int16))
        return Refusal{QStringLiteral("请输入开始计费时间！"), QStringLiteral("txtAfterTime")};
    if (Val(in.end[0]) == 0) return Refusal{QStringLiteral("请选择时段1结束时间！"), QStringLiteral("cmbEnd1")};
    bool has24 = false;
    for (const QString& e : in.end) has24 = has24 || Val(e) == 24;
    if (!has24) return Refusal{QStringLiteral("必须设置一个时段的结束时间为24点！"), QString()};
    for (int i = 0; i < 4; ++i)
        if (!ReadNumber(in.minMoneyA[size_t(i)], Range::Money))
            return Refusal{QStringLiteral("最低消费金额必须输入数字！输入0表示不计费。"), field("txtMinMoneyA", i)};
    for (int i = 0; i < 4; ++i)
        if (!ReadNumber(in.minMoney[size_t(i)], Range::Money))
            return Refusal{QStringLiteral("最低消费金额必须输入数字！输入0表示没有最低消费要求。"), field("txtMinMoney", i)};
    // Prices and buy-out hours read as Val (text is 0), but never as a number they cannot hold.
    for (int i = 0; i < 4; ++i)
        if (!ValFits(in.priceA[size_t(i)], Range::Quantity))
            return Refusal{QStringLiteral("买断时间必须输入数字！"), field("txtPriceA", i)};
    for (int i = 0; i < 4; ++i)
        if (!ValFits(in.price[size_t(i)], Range::Money))
            return Refusal{QStringLiteral("计时价格必须输入数字！"), field("txtPrice", i)};
    // A unit of 0 or below would price nothing sensible: refused alike.
    if (!ValFits(in.unit, Range::Int16) || Val(in.unit) <= 0 || RoundEven(Val(in.unit)) <= 0)
        return Refusal{QStringLiteral("请输入计费单位！"), QStringLiteral("txtUnit")};
    if (!ReadNumber(in.privilegeTime, Range::Int32))
        return Refusal{QStringLiteral("请输入优惠时间！"), QStringLiteral("txtPrivilegeTime")};
    return std::nullopt;
}

QString save(const QString& id, const PayLevelInput& in, Db& db) {
    return db.write([&]() -> QString {
        QString key = id;
        if (key.isEmpty()) {
            key = FreshKey(QStringLiteral("PayLevel"), QStringLiteral("PayLevelID"), db);
            db.exec(QStringLiteral("INSERT INTO PayLevel (PayLevelID, Unit) VALUES (?, 10)"), {key});
        } else if (db.scalar(QStringLiteral("select count(*) from PayLevel where PayLevelID=?"), {key}).toInt() == 0) {
            return QString();
        }
        Params p{in.name.trimmed(), in.description, in.payType, RoundEven(Val(in.afterTime)),
                 RoundEven(Val(in.unit)), in.notOne, Val(in.privilegeTime)};
        // Starts follow the chain of ends: 0, then each end before.
        double prev = 0;
        for (int i = 0; i < 4; ++i) {
            const double e = Val(in.end[size_t(i)]);
            p << (i == 0 || prev > 0 ? prev : 0.0) << e;
            prev = e;
        }
        for (const auto* arr : {&in.price, &in.minMoney, &in.priceA, &in.minMoneyA})
            for (const QString& v : *arr) p << Val(v);
        p << key;
        db.exec(QStringLiteral("UPDATE PayLevel SET PayLevelName=?, Description=?, payType=?, AfterTime=?, Unit=?, NotOne=?, "
                               "PrivilegeTime=?, start1=?, end1=?, start2=?, end2=?, start3=?, end3=?, start4=?, end4=?, "
                               "Price1=?, Price2=?, Price3=?, Price4=?, MinMoney1=?, MinMoney2=?, MinMoney3=?, MinMoney4=?, "
                               "PriceA1=?, PriceA2=?, PriceA3=?, PriceA4=?, MinMoneyA1=?, MinMoneyA2=?, MinMoneyA3=?, "
                               "MinMoneyA4=? WHERE PayLevelID=?"),
                p);
        WriteLog(Now(), App().CurrentOperatorName, QStringLiteral("营业设置"), QStringLiteral("计费标准设置"), 2, true,
                 QStringLiteral("编辑计费标准 ") + in.name.trimmed(), db);
        return key;
    });
}

PayLevelInput load(const QString& id, bool* found, Db& db) {
    PayLevelInput in;
    const Rows r = db.query(QStringLiteral("select * from PayLevel where PayLevelID=?"), {id});
    if (found) *found = !r.isEmpty();
    if (r.isEmpty()) return in;
    const Row row = r.first();
    in.name = row.text(QStringLiteral("PayLevelName"));
    in.description = row.text(QStringLiteral("Description"));
    in.payType = int(row.integer(QStringLiteral("payType"))) == 0 ? 0 : 1;
    in.afterTime = row.text(QStringLiteral("AfterTime"));
    in.unit = row.text(QStringLiteral("Unit"));
    in.notOne = int(row.integer(QStringLiteral("NotOne")));
    in.privilegeTime = num(row.num(QStringLiteral("PrivilegeTime")));
    for (int i = 0; i < 4; ++i) {
        const double e = row.num(field("end", i));
        in.end[size_t(i)] = e > 0 ? num(e) : QString();
        in.price[size_t(i)] = num(row.num(field("Price", i)));
        in.minMoney[size_t(i)] = num(row.num(field("MinMoney", i)));
        in.priceA[size_t(i)] = num(row.num(field("PriceA", i)));
        in.minMoneyA[size_t(i)] = num(row.num(field("MinMoneyA", i)));
    }
    return in;
}

Refused remove(const QString& id, Db& db) {
    const Refusal inUse{QStringLiteral("不能删除此数据，因为它已经使用！"), QString(), Msg::Icon::Exclamation};
    try {
        return db.write([&]() -> Refused {
            if (db.scalar(QStringLiteral("select count(*) from Expense where PayLevelID=? and State=1"), {id}).toInt() > 0)
                return inUse;
            db.exec(QStringLiteral("delete from PayLevel where PayLevelID=?"), {id});
            return std::nullopt;
        });
    } catch (const DbError&) {
        return inUse; // a room type still points at it
    }
}

QStringList rowTexts(const Row& row) {
    QStringList t;
    t << row.text(QStringLiteral("PayLevelName"));
    t << row.money(QStringLiteral("MinMoney")).toPlain() + QStringLiteral("元");
    t << (row.integer(QStringLiteral("payType")) == 1 ? QStringLiteral("按时间计费") : QStringLiteral("固定费率"));
    for (int i = 0; i < 4; ++i) {
        const QString end = num(row.num(field("end", i)));
        t << num(row.num(field("start", i))) + QLatin1Char('-') + end + QStringLiteral("点 买断价格:") +
                 num(row.num(field("MinMoneyA", i))) + QStringLiteral("元 计时价格:") + num(row.num(field("Price", i)));
        if (end == QLatin1String("24")) break;
    }
    return t;
}
} // namespace PayLevelService
