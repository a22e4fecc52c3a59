#include "StockView.h"
#include "Val.h"

StockLine MakeStockLine(double nowNum, double minNum) {
    StockLine l;
    l.nowNum = RoundEven(nowNum);
    l.minNum = RoundEven(minNum);
    if (l.nowNum <= l.minNum) l.shortfall = l.minNum - l.nowNum;
    l.red = l.shortfall != 0;
    return l;
}

QString StockNumberText(qint64 n) {
    return QStringLiteral("%1").arg(n, 8);
}

QList<StockLine> StockOnHand(Db& db) {
    QList<StockLine> out;
    for (const Row r : db.query(QStringLiteral("select Ware.*,waretype.waretypename from Ware Left join "
                                               "WareType on ware.waretypeID=waretype.WareTypeid"))) {
        StockLine l = MakeStockLine(r.num(QStringLiteral("nownum")), r.num(QStringLiteral("minnum")));
        l.wareID = r.text(QStringLiteral("WareID"));
        l.wareName = r.text(QStringLiteral("WareName"));
        l.wareTypeName = r.text(QStringLiteral("waretypename"));
        out << l;
    }
    return out;
}
