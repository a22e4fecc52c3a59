#include "WareIn.h"
#include "AppState.h"
#include "Dialect.h"
#include "Format.h"
#include "Gateway.h"
#include "Val.h"
#include <QTreeWidget>

namespace {
// A document's day: the date at midnight, the time of day dropped, so that a period from one
// midnight to the next holds it.
QString DayText(const QDate& day) {
    return TimeText(QDateTime(day, QTime(0, 0)));
}
} // namespace

WareCost UpdateWareCost(double oldNum, Money oldPrice, double num, Money theMoney) {
    const float count = float(oldNum);
    Money oldValue;
    if (count == 0)
        oldValue = oldPrice;
    else if (oldPrice.isZero())
        oldValue = Money::fromDouble(count);
    else
        oldValue = oldPrice.times(count);
    const float newNum = count + float(num);
    WareCost c{newNum, Money()};
    if (newNum != 0)
        c.newPrice = Money::fromText(FormatNumber((oldValue + theMoney).toDouble() / double(newNum), QStringLiteral("0.00")));
    return c;
}

QString ReceiptPriceText(const QString& num, const QString& theMoney) {
    const double n = Val(num);
    if (n == 0) return QStringLiteral("0");
    return FormatNumber(Val(theMoney) / n, QStringLiteral("0.00"));
}

Refused CheckReceiptLine(const QString& supplierID, const QString& wareID, const QString& num,
                         const QString& theMoney) {
    if (supplierID.isEmpty()) return Refusal(QStringLiteral("请选择供应商！"), QStringLiteral("imgcmbSupplier"));
    if (wareID.isEmpty()) return Refusal(QStringLiteral("请输入商品助记符！"), QStringLiteral("txtMnemonics"));
    if (!ReadNumber(num, Range::Quantity)) return Refusal(QStringLiteral("请输入商品数量！"), QStringLiteral("txtNum"));
    if (!ReadNumber(theMoney, Range::Money))
        return Refusal(QStringLiteral("请输入商品金额！"), QStringLiteral("txtTheMoney"));
    return std::nullopt;
}

WareInLine MakeReceiptLine(const WareInGoods& ware, const QString& num, const QString& theMoney,
                            const QString& desc, bool out, const QString& supplierID, const QString& supplierName) {
    const double sign = out ? -1 : 1;
    WareInLine l{ware.wareID, ware.wareName, ware.wareUnit, sign * *ReadNumber(num, Range::Quantity),
                  Money::fromText(ReceiptPriceText(num, theMoney)),
                  Money::fromText(FormatNumber(sign * *ReadNumber(theMoney, Range::Money), QStringLiteral("0.00"))),
                  desc.left(50), supplierID, supplierName};
    return l;
}

void AddStockLine(QTreeWidget* list, const WareInLine& l) {
    auto* it = new QTreeWidgetItem({l.wareName, QString::number(l.num, 'g', 12), l.price.toString2(),
                                    l.theMoney.toString2(), l.wareDesc, l.supplierID, l.supplierName});
    it->setData(0, Qt::UserRole, l.wareID);
    for (int c : {1, 2, 3})
        it->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    list->addTopLevelItem(it);
}

QList<WareInLine> StockLines(const QTreeWidget* list) {
    QList<WareInLine> out;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* it = list->topLevelItem(i);
        out << WareInLine{it->data(0, Qt::UserRole).toString(), it->text(0), {}, it->text(1).toDouble(),
                          Money::fromText(it->text(2)), Money::fromText(it->text(3)), it->text(4), it->text(5),
                          it->text(6)};
    }
    return out;
}

QString ReceiptService::saveLoss(const WareInHeader& h, const QList<WareInLine>& lines) {
    return m_db.write([&] {
        const QString id = FreshKey(QStringLiteral("WareLoss"), QStringLiteral("WareLossID"), m_db);
        m_db.exec(QStringLiteral("insert into WareLoss (WareLossID, InTime, thejb, createname, theDesc, TheCode) "
                                 "values (?, ?, ?, ?, ?, ?)"),
                  {id, DayText(h.inTime), h.theJB, App().CurrentOperatorName,
                   h.theDesc, h.theCode});
        for (const WareInLine& l : lines) {
            m_db.exec(QStringLiteral("insert into WareLossList (WareLossListID, WareLossID, WareID, num, Price, "
                                     "theMoney, wareDesc) values (?, ?, ?, ?, ?, ?, ?)"),
                      {FreshKey(QStringLiteral("WareLossList"), QStringLiteral("WareLossListID"), m_db), id,
                       l.wareID, l.num, l.price, l.theMoney, l.wareDesc});
            // AdjustWareNum: an increment in the store, whatever sells meanwhile.
            if (App().IsUseWareHouse == 1)
                m_db.exec(QStringLiteral("Update Ware Set nownum=coalesce(nownum,0)+? where wareid=?"),
                          {double(float(l.num)), l.wareID});
        }
        return id;
    });
}

QString LossMoneyText(const QString& price, const QString& num) {
    const double n = Val(num);
    if (n == 0) return QStringLiteral("0");
    return FormatNumber(Val(price) * n, QStringLiteral("0.00"));
}

Refused CheckLossLine(const QString& wareID, const QString& num) {
    if (wareID.isEmpty()) return Refusal(QStringLiteral("请输入商品助记符！"), QStringLiteral("txtMnemonics"));
    if (!ReadNumber(num, Range::Quantity)) return Refusal(QStringLiteral("请输入商品数量！"), QStringLiteral("txtNum"));
    return std::nullopt;
}

WareInLine MakeLossLine(const WareInGoods& ware, const QString& num, const QString& desc) {
    const double n = *ReadNumber(num, Range::Quantity);
    return {ware.wareID, ware.wareName, ware.wareUnit, n, ware.price,
            Money::fromText(LossMoneyText(ware.price.toString2(), num)), desc.left(50), {}, {}};
}

Rows ReceiptService::suppliers() const {
    return m_db.query(QStringLiteral("Select SupplierID, SupplierName from Supplier"));
}

std::optional<WareInGoods> ReceiptService::findWare(const QString& mnemonic) const {
    const Rows r = m_db.query(QStringLiteral("select ware.*,waretype.WareTypeName from Ware left join wareType on "
                                             "ware.waretypeID=waretype.waretypeID where ware.Mnemonics = ?"),
                              {mnemonic});
    if (r.isEmpty()) return std::nullopt;
    return WareInGoods{r.first().text(QStringLiteral("WareID")), r.first().text(QStringLiteral("WareName")),
                       r.first().text(QStringLiteral("WareUnit")), r.first().money(QStringLiteral("Price"))};
}

QString ReceiptService::save(const WareInHeader& h, const QList<WareInLine>& lines) {
    return m_db.write([&] {
        const QString id = FreshKey(QStringLiteral("WareIn"), QStringLiteral("wareInID"), m_db);
        m_db.exec(QStringLiteral("insert into WareIn (wareInID, InTime, thejb, createname, theDesc, TheCode, "
                                 "SupplierID) values (?, ?, ?, ?, ?, ?, ?)"),
                  {id, DayText(h.inTime), h.theJB, App().CurrentOperatorName,
                   h.theDesc, h.theCode, h.supplierID.isEmpty() ? Param(nullptr) : Param(h.supplierID)});
        for (const WareInLine& l : lines) {
            m_db.exec(QStringLiteral("insert into WareInList (WareInListID, wareInID, WareID, num, Price, theMoney, "
                                     "wareDesc, SupplierID) values (?, ?, ?, ?, ?, ?, ?, ?)"),
                      {FreshKey(QStringLiteral("WareInList"), QStringLiteral("WareInListID"), m_db), id, l.wareID,
                       l.num, l.price, l.theMoney, l.wareDesc,
                       l.supplierID.isEmpty() ? Param(nullptr) : Param(l.supplierID)});
            if (App().IsUseWareHouse != 1) continue;
            const Rows ware = m_db.query(
                QStringLiteral("select nownum, ProcurePrice from Ware where WareID=?") + m_db.dialect().forUpdate(),
                {l.wareID});
            if (ware.isEmpty()) continue; // an article deleted meanwhile has no stock to keep
            const WareCost c = UpdateWareCost(ware.first().num(QStringLiteral("nownum")),
                                              ware.first().money(QStringLiteral("ProcurePrice")), float(l.num),
                                              l.theMoney);
            m_db.exec(QStringLiteral("Update Ware Set nownum=?,ProcurePrice=? where  wareid=?"),
                      {c.newNum, c.newPrice, l.wareID});
        }
        return id;
    });
}
