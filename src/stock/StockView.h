#pragma once
#include "Db.h"
#include <QString>

// One row of the stock on hand: quantities rounded for this view only, as 64-bit counts.
struct StockLine {
    QString wareID, wareName, wareTypeName;
    qint64 minNum = 0, nowNum = 0;
    qint64 shortfall = 0; // what to restock: minnum − nownum when at or below the minimum
    bool red = false;     // a shortfall to make up
};

StockLine MakeStockLine(double nowNum, double minNum);
// "@@@@@@@@": right-aligned in eight characters.
QString StockNumberText(qint64 n);

// Every article with its type, in the store's order.
QList<StockLine> StockOnHand(Db& db = DB());

inline QString StockSwitchedOffText() {
    return QStringLiteral("您未启用库存管理，请先在点击工具栏的“营业设置”，在“其它设置”中选择“使用库存管理”。"
                          "设置完成后，系统将根据您的进货及销售情况自动计算商品的成本及库存数量！");
}
