#include "WareService.h"
#include "AppState.h"
#include "Dialect.h"
#include "Gateway.h"
#include "NewID.h"
#include "Val.h"
#include <cmath>

namespace {
// Beyond this a money amount no longer fits the 64-bit count of 1/10000 yuan with room to spare.
constexpr double MaxMoney = 1e12;

bool fitsMoney(const QString& text) {
    return ValFits(text, Range::Money) && std::fabs(Val(text)) < MaxMoney;
}

QString number(double v) {
    return QString::number(v, 'g', 15);
}

WareSaved typeFailed(const QString& reason) {
    return {{},
            Refusal{WareText::typeTaken() + QStringLiteral("\n错误信息： ") + reason,
                    QStringLiteral("txtWareTypeID"), Msg::Icon::Exclamation}};
}
} // namespace

bool WareService::stockManaged() {
    return App().IsUseWareHouse == 1;
}

Rows WareService::wareTypes() const {
    return m_db.query(QStringLiteral("Select * from wareType order by WareTypeID"));
}

std::optional<WareTypeInput> WareService::loadWareType(const QString& id) const {
    const Rows r = m_db.query(QStringLiteral("select * from WareType where WareTypeID=?"), {id});
    if (r.isEmpty()) return std::nullopt;
    const Row row = r.first();
    WareTypeInput in;
    in.wareTypeID = row.text(QStringLiteral("WareTypeID"));
    in.wareTypeName = row.text(QStringLiteral("wareTypeName"));
    in.isDoDiscount = row.num(QStringLiteral("isDoDiscount")) == 1;
    in.isNomember = row.num(QStringLiteral("isNomember")) == 1;
    in.isHC = row.num(QStringLiteral("isHC")) == 1;
    in.isBT = row.num(QStringLiteral("isBT")) == 1;
    return in;
}

Refused WareService::validateWareType(const WareTypeInput& in) {
    if (in.wareTypeID.trimmed().isEmpty())
        return Refusal(QStringLiteral("请输入分类编号！"), QStringLiteral("txtWareTypeID"));
    if (in.wareTypeName.trimmed().isEmpty())
        return Refusal(QStringLiteral("请输入分类名称！"), QStringLiteral("txtWareTypeName"));
    return std::nullopt;
}

WareSaved WareService::saveWareType(const WareTypeInput& in, bool adding) {
    if (Refused r = validateWareType(in)) return {{}, r};
    // The key is stored as typed; only the emptiness check looks at it trimmed.
    const Params values{in.wareTypeName, int(in.isDoDiscount), int(in.isNomember),
                        int(in.isHC),    int(in.isBT),         in.wareTypeID};
    try {
        return m_db.write([&]() -> WareSaved {
            if (adding) {
                if (m_db.scalar(QStringLiteral("select count(*) from WareType where WareTypeID=?"),
                                {in.wareTypeID})
                        .toLongLong() > 0)
                    return typeFailed(QStringLiteral("分类编号 ") + in.wareTypeID +
                                      QStringLiteral(" 已被其它分类使用"));
                m_db.exec(QStringLiteral(
                              "insert into WareType (wareTypeName, isDoDiscount, isNomember, isHC, isBT, "
                              "WareTypeID) values (?, ?, ?, ?, ?, ?)"),
                          values);
            } else if (m_db.exec(
                           QStringLiteral("update WareType set wareTypeName=?, isDoDiscount=?, isNomember=?, "
                                          "isHC=?, isBT=? where WareTypeID=?"),
                           values) == 0) {
                return typeFailed(QStringLiteral("没有找到这个商品分类的数据"));
            }
            return {in.wareTypeID, std::nullopt};
        });
    } catch (const DbError& e) {
        // The same key saved on another workstation meanwhile, or the store refusing otherwise.
        return typeFailed(e.description);
    }
}

Refused WareService::deleteWareType(const QString& id) {
    try {
        // Articles of the type: refused here, and the foreign key refuses too.
        const int n = m_db.write([&] {
            return m_db.exec(QStringLiteral("delete from WareType where WareTypeID=? and not exists "
                                            "(select 1 from Ware where Ware.WareTypeID=?)"),
                             {id, id});
        });
        if (n == 0 && m_db.scalar(QStringLiteral("select count(*) from WareType where WareTypeID=?"), {id})
                              .toLongLong() > 0)
            return Refusal::warning(WareText::inUse());
        return std::nullopt;
    } catch (const DbError&) {
        return Refusal::warning(WareText::inUse());
    }
}

std::optional<WareInput> WareService::loadWare(const QString& id) const {
    const Rows r = m_db.query(QStringLiteral("select * from Ware where WareID=?"), {id});
    if (r.isEmpty()) return std::nullopt;
    const Row row = r.first();
    WareInput in;
    in.wareTypeID = row.text(QStringLiteral("WareTypeID"));
    in.wareName = row.text(QStringLiteral("WareName"));
    in.mnemonics = row.text(QStringLiteral("Mnemonics"));
    in.price = row.money(QStringLiteral("Price")).toPlain();
    in.procurePrice = row.money(QStringLiteral("ProcurePrice")).toPlain();
    in.wareUnit = row.text(QStringLiteral("wareUnit"));
    in.minNum = number(row.num(QStringLiteral("minnum")));
    in.tiCheng = row.money(QStringLiteral("tiCheng")).toPlain();
    in.nowNum = number(row.num(QStringLiteral("nownum")));
    return in;
}

Refused WareService::validateWare(const WareInput& in) {
    if (in.wareName.trimmed().isEmpty())
        return Refusal(QStringLiteral("请输入品项名称！"), QStringLiteral("txtWareName"));
    if (Val(in.price) == 0) return Refusal(QStringLiteral("请输入品项单价！"), QStringLiteral("txtPrice"));
    if (!IsNumeric(in.procurePrice))
        return Refusal(QStringLiteral("品项成本只能输入数字！"), QStringLiteral("txtProcurePrice"));
    if (!IsNumeric(in.tiCheng))
        return Refusal(QStringLiteral("员工提成只能输入数字！"), QStringLiteral("txtTicheng"));
    if (in.wareTypeID.isEmpty())
        return Refusal(QStringLiteral("请选择品项所属分类！"), QStringLiteral("imgcmbWareType"));
    // Amounts that would not fit the stored money.
    if (!fitsMoney(in.price))
        return Refusal(QStringLiteral("品项单价超出范围！"), QStringLiteral("txtPrice"));
    if (!fitsMoney(in.procurePrice))
        return Refusal(QStringLiteral("品项成本超出范围！"), QStringLiteral("txtProcurePrice"));
    if (!fitsMoney(in.tiCheng))
        return Refusal(QStringLiteral("员工提成超出范围！"), QStringLiteral("txtTicheng"));
    if (!ValFits(in.minNum, Range::Quantity))
        return Refusal(QStringLiteral("最低库存超出范围！"), QStringLiteral("txtMinNum"));
    return std::nullopt;
}

WareSaved WareService::saveWare(const QString& id, const WareInput& in) {
    if (Refused r = validateWare(in)) return {{}, r};
    const Params values{
        in.wareName, in.mnemonics,   Money::fromText(in.price),   Money::fromText(in.procurePrice),
        in.wareUnit, Val(in.minNum), Money::fromText(in.tiCheng), in.wareTypeID};
    try {
        return m_db.write([&]() -> WareSaved {
            if (id.isEmpty()) {
                const QString key = FreshKey(QStringLiteral("Ware"), QStringLiteral("WareID"), m_db);
                Params p = values;
                p << key;
                m_db.exec(
                    QStringLiteral("insert into Ware (WareName, Mnemonics, Price, ProcurePrice, wareUnit, "
                                   "minnum, tiCheng, WareTypeID, WareID) values (?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                    p);
                return {key, std::nullopt};
            }
            Params p = values;
            p << id;
            if (m_db.exec(QStringLiteral("update Ware set WareName=?, Mnemonics=?, Price=?, ProcurePrice=?, "
                                         "wareUnit=?, minnum=?, tiCheng=?, WareTypeID=? where WareID=?"),
                          p) == 0) {
                WareSaved gone;
                gone.gone = true;
                return gone;
            }
            return {id, std::nullopt};
        });
    } catch (const DbError& e) {
        return {{},
                Refusal{e.message(QStringLiteral("SaveData"), QStringLiteral("frmWare")),
                        {},
                        Msg::Icon::Critical}};
    }
}

Refused WareService::deleteWare(const QString& id) {
    try {
        // Goods on a bill, a sale, a receipt or a loss keep their name for those lines.
        const int n = m_db.write([&] {
            return m_db.exec(
                QStringLiteral("delete from Ware where WareID=? "
                               "and not exists (select 1 from ExpenseDetail where ExpenseDetail.WareID=?) "
                               "and not exists (select 1 from OutsaleDetail where OutsaleDetail.WareID=?) "
                               "and not exists (select 1 from WareInList where WareInList.WareID=?) "
                               "and not exists (select 1 from WareLossList where WareLossList.WareID=?)"),
                {id, id, id, id, id});
        });
        if (n == 0 &&
            m_db.scalar(QStringLiteral("select count(*) from Ware where WareID=?"), {id}).toLongLong() > 0)
            return Refusal::warning(WareText::inUse());
        return std::nullopt;
    } catch (const DbError&) {
        return Refusal::warning(WareText::inUse());
    }
}

Rows WareService::goodsList(const QString& typeID) const {
    const QString sql = QStringLiteral("select Ware.*, WareType.wareTypeName from Ware left join WareType on "
                                       "Ware.WareTypeID=WareType.WareTypeID");
    if (typeID.isEmpty()) return m_db.query(sql + QStringLiteral(" order by Ware.WareID"));
    return m_db.query(sql + QStringLiteral(" where Ware.WareTypeID=? order by Ware.WareID"), {typeID});
}
