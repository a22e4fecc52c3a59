#include "Demo.h"
#include "Clock.h"
#include "Db.h"
#include "Format.h"
#include "NewID.h"
#include "Password.h"

namespace {
QString id(int n) { return Now().toString(QStringLiteral("yyyyMMdd")) + QStringLiteral("9%1").arg(n, 7, 10, QLatin1Char('0')); }

void tariff(Db& db, const QString& key, const QString& name, const QString& desc, int payType, const double p[3],
            const double min[3], const double buyHours, const double buy[3]) {
    db.exec(QStringLiteral(
                "INSERT INTO PayLevel (PayLevelID, PayLevelName, Description, payType, AfterTime, Unit, NotOne, "
                "PrivilegeTime, start1, end1, start2, end2, start3, end3, start4, end4, Price1, Price2, Price3, Price4, "
                "MinMoney1, MinMoney2, MinMoney3, MinMoney4, PriceA1, PriceA2, PriceA3, PriceA4, MinMoneyA1, MinMoneyA2, "
                "MinMoneyA3, MinMoneyA4, MinMoney) VALUES (?,?,?,?,5,30,1,10, 0,12,12,18,18,24,0,0, ?,?,?,0, ?,?,?,0, "
                "?,?,?,0, ?,?,?,0, 0)"),
            {key, name, desc, payType, p[0], p[1], p[2], min[0], min[1], min[2], buyHours, buyHours, buyHours, buy[0],
             buy[1], buy[2]});
}
} // namespace

void AddDemoVenue(Db& db) {
    if (db.scalar(QStringLiteral("SELECT count(*) FROM TheAssort WHERE AssortName=?"), {QStringLiteral("豪华包")}).toInt() > 0)
        return;
    db.write([&] {
        int n = 0;
        db.exec(QStringLiteral("UPDATE CompanyInfo SET CompanyName=?, companyaddress=?, phone=?"),
                {QStringLiteral("星澜KTV（演示店）"), QStringLiteral("滨江路88号"), QStringLiteral("0571-88886666")});

        const QString std = QStringLiteral("00000000000000001");
        const QString lux = id(++n), hall = id(++n);
        const double luxP[3] = {100, 150, 200}, luxMin[3] = {0, 300, 500}, luxBuy[3] = {300, 450, 600};
        const double hallP[3] = {30, 40, 50}, hallMin[3] = {0, 0, 0}, hallBuy[3] = {88, 128, 168};
        tariff(db, lux, QStringLiteral("豪华包计费"), QStringLiteral("豪华包按时间计费，晚场最低消费500元"), 1, luxP,
               luxMin, 3, luxBuy);
        tariff(db, hall, QStringLiteral("卡座套餐"), QStringLiteral("大厅卡座固定收费，买断4小时"), 0, hallP, hallMin, 4,
               hallBuy);

        struct Type {
            QString name, tariff, prefix;
            int count;
        };
        const QList<Type> types = {{QStringLiteral("小包"), std, QStringLiteral("A"), 8},
                                   {QStringLiteral("中包"), std, QStringLiteral("B"), 6},
                                   {QStringLiteral("豪华包"), lux, QStringLiteral("V"), 4},
                                   {QStringLiteral("大厅卡座"), hall, QStringLiteral("K"), 6}};
        for (const Type& t : types) {
            const QString assort = id(++n);
            db.exec(QStringLiteral("INSERT INTO TheAssort (AssortID, AssortName, PayLevelID) VALUES (?,?,?)"),
                    {assort, t.name, t.tariff});
            for (int i = 1; i <= t.count; ++i)
                db.exec(QStringLiteral("INSERT INTO The (TheID, TheCode, AssortID, theDesc, State, ExpenseID, Other1) "
                                       "VALUES (?,?,?,?,0,'','')"),
                        {id(++n), t.prefix + QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0')), assort,
                         t.name + QStringLiteral("，可容纳%1人").arg(t.prefix == QLatin1String("V") ? 20 : 8)});
        }

        struct WType {
            const char *id, *name;
            int discount, nomember, hc, bt;
        };
        const WType wtypes[] = {{"01", "啤酒", 1, 0, 0, 1},  {"02", "洋酒", 1, 0, 0, 1}, {"03", "饮料", 1, 0, 0, 1},
                                {"04", "小吃", 1, 0, 1, 0},  {"05", "果盘", 1, 0, 1, 0}, {"06", "服务", 0, 1, 0, 0}};
        for (const WType& w : wtypes)
            db.exec(QStringLiteral("INSERT INTO WareType (WareTypeID, wareTypeName, isDoDiscount, isNomember, isHC, isBT) "
                                   "VALUES (?,?,?,?,?,?)"),
                    {QString::fromUtf8(w.id), QString::fromUtf8(w.name), w.discount, w.nomember, w.hc, w.bt});
        // Types that allow period discounts get their periods: full price by day, 10% off at night.
        for (const WType& w : wtypes)
            if (w.discount == 1)
                db.exec(QStringLiteral("INSERT INTO WareLevel (WareLevelID, WareLevelName, start1, end1, Discount1, "
                                       "start2, end2, Discount2) VALUES (?, ?, 0, 18, 1, 18, 24, 0.9)"),
                        {QString::fromUtf8(w.id), QString::fromUtf8(w.name) + QStringLiteral("时段")});

        struct Ware {
            const char *type, *code, *name, *mn, *unit;
            double price, cost, stock;
        };
        const Ware wares[] = {
            {"01", "1001", "青岛啤酒", "qdpj", "瓶", 15, 5.5, 240},     {"01", "1002", "百威啤酒", "bwpj", "瓶", 20, 7, 240},
            {"01", "1003", "科罗娜", "klr", "瓶", 25, 9, 120},          {"01", "1004", "嘉士伯", "jsb", "瓶", 20, 7.5, 120},
            {"02", "2001", "芝华士12年", "zhs", "瓶", 680, 260, 12},     {"02", "2002", "轩尼诗VSOP", "xnsV", "瓶", 980, 420, 6},
            {"02", "2003", "杰克丹尼", "jkdn", "瓶", 520, 190, 10},      {"03", "3001", "可口可乐", "kkkl", "罐", 8, 2.2, 200},
            {"03", "3002", "雪碧", "xb", "罐", 8, 2.2, 200},            {"03", "3003", "红牛", "hn", "罐", 15, 4.5, 120},
            {"03", "3004", "矿泉水", "kqs", "瓶", 6, 1, 300},           {"03", "3005", "柠檬茶", "nmc", "壶", 38, 6, 0},
            {"04", "4001", "薯条", "st", "份", 28, 6, 0},              {"04", "4002", "爆米花", "bmh", "份", 25, 4, 0},
            {"04", "4003", "鸡米花", "jmh", "份", 38, 10, 0},           {"04", "4004", "开心果", "kxg", "碟", 32, 12, 40},
            {"04", "4005", "鱿鱼丝", "yys", "碟", 30, 9, 40},           {"05", "5001", "小果盘", "xgp", "份", 58, 18, 0},
            {"05", "5002", "大果盘", "dgp", "份", 98, 30, 0},           {"05", "5003", "西瓜拼盘", "xgpp", "份", 48, 12, 0},
            {"06", "6001", "生日蛋糕服务", "srdgfw", "次", 50, 0, 0},   {"06", "6002", "开瓶服务", "kpfw", "次", 20, 0, 0},
        };
        for (const Ware& w : wares)
            db.exec(QStringLiteral("INSERT INTO Ware (WareID, WareTypeID, WareCode, WareName, Mnemonics, wareUnit, Price, "
                                   "ProcurePrice, nownum, minnum, tiCheng) VALUES (?,?,?,?,?,?,?,?,?,?,?)"),
                    {id(++n), QString::fromUtf8(w.type), QString::fromUtf8(w.code), QString::fromUtf8(w.name),
                     QString::fromUtf8(w.mn), QString::fromUtf8(w.unit), Money::fromDouble(w.price),
                     Money::fromDouble(w.cost), w.stock, w.stock > 0 ? 10.0 : 0.0,
                     Money::fromDouble(w.price >= 100 ? 10 : 0)});

        const QString normal = id(++n), gold = id(++n);
        db.exec(QStringLiteral("INSERT INTO MemberSetup (SetupID, SetupName, Description, InitValue, StepValue, discount) "
                               "VALUES (?,?,?,?,?,?)"),
                {normal, QStringLiteral("普通会员"), QStringLiteral("消费10元积1分，95折"), 0.0, 10.0, 0.95});
        db.exec(QStringLiteral("INSERT INTO MemberSetup (SetupID, SetupName, Description, InitValue, StepValue, discount) "
                               "VALUES (?,?,?,?,?,?)"),
                {gold, QStringLiteral("金卡会员"), QStringLiteral("开卡送100分，消费5元积1分，88折"), 100.0, 5.0, 0.88});
        struct Mem {
            const char *code, *name, *sex, *phone;
            bool gold;
            double stored;
        };
        const Mem members[] = {{"8001", "张伟", "男", "13800000001", false, 0},
                               {"8002", "王芳", "女", "13800000002", false, 200},
                               {"8003", "李娜", "女", "13800000003", true, 1500},
                               {"8004", "刘洋", "男", "13800000004", true, 800},
                               {"8005", "陈静", "女", "13800000005", false, 0}};
        const QString emptyHash = Password::hash(QString());
        for (const Mem& m : members)
            db.exec(QStringLiteral("INSERT INTO Member (MemberCode, MemberName, Sex, movephone, pw, AddDate, SetupID, "
                                   "State, MemberValue, chongzhi, sumValue) VALUES (?,?,?,?,?,?,?,0,?,?,0)"),
                    {QString::fromUtf8(m.code), QString::fromUtf8(m.name), QString::fromUtf8(m.sex),
                     QString::fromUtf8(m.phone), emptyHash, TimeText(Now()), m.gold ? gold : normal,
                     m.gold ? 100.0 : 0.0, Money::fromDouble(m.stored)});

        struct Emp {
            const char *code, *name, *sex, *phone;
        };
        const Emp emps[] = {{"001", "赵敏", "女", "13900000001"},
                            {"002", "孙磊", "男", "13900000002"},
                            {"003", "周婷", "女", "13900000003"},
                            {"004", "吴昊", "男", "13900000004"}};
        for (const Emp& e : emps)
            db.exec(QStringLiteral("INSERT INTO Employee (EmployeeID, Employeecode, EmployeeName, Sex, EmployeePhone, "
                                   "State) VALUES (?,?,?,?,?,0)"),
                    {id(++n), QString::fromUtf8(e.code), QString::fromUtf8(e.name), QString::fromUtf8(e.sex),
                     QString::fromUtf8(e.phone)});
    });
}
