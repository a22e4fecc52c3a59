#include "Designs.h"

namespace {
void head(Receipt& r, const CompanyHead& c, const QString& title, const QString& subtitle = {}) {
    r.label(QStringLiteral("lblCompanyName"), c.name, Align::Center, true);
    r.title(title);
    if (!subtitle.isEmpty()) r.title(subtitle, false);
    r.field(QStringLiteral("地址："), QStringLiteral("lblAddress"), c.address);
    r.field(QStringLiteral("电话："), QStringLiteral("lblPhone"), c.phone);
}

// Kitchen lines (name, number, note) as the table's cells: the note goes in the second band.
QList<QStringList> notesUnder(const QList<QStringList>& lines) {
    QList<QStringList> out;
    for (const QStringList& l : lines)
        out << QStringList{l.value(0), l.value(1), QString(), l.value(2)};
    return out;
}

// Goods lines: the name takes what the numbers leave.
QList<ReceiptColumn> goodsColumns(const QString& third) {
    return {{QStringLiteral("消费项目"), 0, Align::Left},
            {QStringLiteral("数量"), 6, Align::Right},
            {third, 9, Align::Right}};
}
} // namespace

QString BillDesignName(bool roomCharge, BillStyle style) {
    QString name = roomCharge ? QStringLiteral("DREndExpense") : QStringLiteral("DREndExpenseNoHouse");
    if (style == BillStyle::Brief) name += QStringLiteral("_c");
    return name;
}

Receipt DesignBill(const BillData& d, bool roomCharge, BillStyle style) {
    const bool detailed = style == BillStyle::Detailed;
    const QString title = roomCharge ? QStringLiteral("结 帐 单") : QStringLiteral("消费明细");
    Receipt r(BillDesignName(roomCharge, style),
              (roomCharge ? QStringLiteral("结帐单 ") : QStringLiteral("消费明细 ")) + d.expenseID);
    head(r, d.company, title);
    r.label(QStringLiteral("lblYM"), d.ym);
    r.rule();
    r.field(QStringLiteral("单据"), QStringLiteral("lblID"), d.expenseID);
    r.field(QStringLiteral("包厢"), QStringLiteral("lblTheCode"), d.theCode);
    if (detailed) r.field(QStringLiteral("开单"), QStringLiteral("lblOpenTime"), d.openTime);
    r.field(QStringLiteral("结帐"), QStringLiteral("lblCloseTime"), d.closeTime);
    if (detailed) r.field(QStringLiteral("时间"), QStringLiteral("lblExpendTime"), d.expendTime);
    r.rule();
    r.table(goodsColumns(QStringLiteral("金额")), d.lines);
    r.rule();
    // A room fee left unfilled shows the label's design-time caption.
    if (roomCharge)
        r.total(QStringLiteral("包厢费"), QStringLiteral("lblPayLevel"),
                d.payLevel.isEmpty() ? QStringLiteral("0.00") : d.payLevel);
    r.total(QStringLiteral("消费金额"), QStringLiteral("lblOughtMoney"), d.oughtMoney);
    r.total(QStringLiteral("优惠"), QStringLiteral("lblNoMoney"), d.noMoney);
    r.total(QStringLiteral("实收"), QStringLiteral("lblFactPay"), d.factPay, true);
    r.rule();
    r.field(QStringLiteral("收银员"), QStringLiteral("lblCloseOperator"), d.closeOperator);
    return r;
}

Receipt DesignStartExpense(const StartTicketData& d) {
    Receipt r(QStringLiteral("DRStartExpense"), QStringLiteral("接待单据 ") + d.id);
    head(r, d.company, QStringLiteral("欢 迎 光 临"), QStringLiteral("接 待 单 据"));
    r.rule();
    r.field(QStringLiteral("单号"), QStringLiteral("lblID"), d.id);
    r.field(QStringLiteral("开单"), QStringLiteral("lblOpenTime"), d.openTime);
    r.field(QStringLiteral("接待"), QStringLiteral("lblOpenOperator"), d.openOperator);
    r.large(QStringLiteral("包厢号"), QStringLiteral("lblTheCode"), d.theCode);
    r.field(QStringLiteral("门票"), QStringLiteral("lblStartMoney"), d.startMoney);
    r.rule();
    r.feed();
    r.text(QStringLiteral("签字："));
    r.feed(2);
    return r;
}

Receipt DesignOutSale(const OutSaleData& d) {
    Receipt r(QStringLiteral("DROutSale"), QStringLiteral("销售单 ") + d.id);
    r.label(QStringLiteral("lblCompanyName"), d.companyName, Align::Center, true);
    r.rule();
    r.table({{QStringLiteral("项目"), 0, Align::Left},
             {QStringLiteral("单价"), 8, Align::Right},
             {QStringLiteral("数量/金额"), 5, Align::Right},
             {QString(), 9, Align::Right}},
            d.lines);
    r.rule();
    r.field(QStringLiteral("单据"), QStringLiteral("lblID"), d.id);
    r.label(QStringLiteral("lblCloseTime"), d.closeTime, Align::Left);
    r.field(QStringLiteral("收银"), QStringLiteral("lblCloseOperator"), d.closeOperator);
    r.total(QStringLiteral("消费合计："), QStringLiteral("lblFactPay"), d.factPay, true);
    return r;
}

Receipt DesignChongzhi(const ChongzhiData& d) {
    Receipt r(QStringLiteral("DRChongzhi"), QStringLiteral("充值单 ") + d.memberCode);
    head(r, d.company, QStringLiteral("储值卡 充值单"));
    r.rule();
    r.field(QStringLiteral("会员号"), QStringLiteral("lblMemberCode"), d.memberCode);
    r.field(QStringLiteral("姓名"), QStringLiteral("lblMemberName"), d.memberName);
    r.field(QStringLiteral("时间"), QStringLiteral("lblOperatorTime"), d.operatorTime);
    r.field(QStringLiteral("操作员"), QStringLiteral("lblOperatorName"), d.operatorName);
    r.rule();
    r.total(QStringLiteral("充值"), QStringLiteral("lblThisMemoney"), d.thisMemoney);
    r.total(QStringLiteral("实收"), QStringLiteral("lblFactPay"), d.factPay, true);
    r.total(QStringLiteral("余额"), QStringLiteral("lblChongzhi"), d.chongzhi);
    return r;
}

Receipt DesignExpenseThis(const ThisTicketData& d, const QString& caption) {
    Receipt r(QStringLiteral("DRExpenseThis"), caption);
    r.label(QStringLiteral("lblCompanyName"), d.companyName, Align::Center, true);
    r.title(QStringLiteral("消 费 帐 单"));
    r.large(QStringLiteral("包号"), QStringLiteral("lblTheCode"), d.theCode);
    r.field(QStringLiteral("单号"), QStringLiteral("lblExpenseID"), d.expenseID);
    r.rule();
    r.table(goodsColumns(QStringLiteral("金额")), d.lines);
    r.rule();
    r.total(QStringLiteral("消费"), QStringLiteral("lblThisSum"), d.thisSum, true);
    r.field(QStringLiteral("操作员"), QStringLiteral("lblOperatorName"), d.operatorName);
    return r;
}

Receipt DesignExpenseThisHC(const ThisTicketData& d) {
    Receipt r(QStringLiteral("DRExpenseThisHC"), QStringLiteral("后厨单 ") + d.theCode);
    r.label(QStringLiteral("lblCompanyName"), d.companyName, Align::Center, true);
    r.title(QStringLiteral("后厨单"));
    r.large(QStringLiteral("包号"), QStringLiteral("lblTheCode"), d.theCode);
    r.field(QStringLiteral("单号"), QStringLiteral("lblExpenseID"), d.expenseID);
    r.field(QStringLiteral("操作员"), QStringLiteral("lblOperatorName"), d.operatorName);
    r.rule();
    // The note under its article, where the kitchen reads it with the name.
    r.table({{QStringLiteral("消费项目"), 0, Align::Left},
             {QStringLiteral("数量"), 6, Align::Right},
             {QString(), 2, Align::Left, 1},
             {QStringLiteral("备注"), 0, Align::Left, 1}},
            notesUnder(d.lines));
    r.rule();
    return r;
}

Receipt DesignCloseHouse(const CloseHouseData& d) {
    Receipt r(QStringLiteral("DRCloseHouse"), QStringLiteral("营业帐单"));
    r.label(QStringLiteral("lblCompanyName"), d.companyName, Align::Center, true);
    r.title(QStringLiteral("营 业 帐 单"));
    r.label(QStringLiteral("lblTime"), d.time, Align::Left);
    r.rule();
    // Eight fields do not go on one line of a roll: three lines per bill.
    r.table({{QStringLiteral("单据号"), 0, Align::Left, 0},
             {QStringLiteral("包厢号"), 6, Align::Left, 0},
             {QStringLiteral("开单时间"), 11, Align::Left, 1},
             {QStringLiteral("开单人"), 0, Align::Left, 1},
             {QStringLiteral("结帐时间"), 11, Align::Left, 2},
             {QStringLiteral("结帐人"), 0, Align::Left, 2},
             {QStringLiteral("顾客人数"), 8, Align::Right, 1},
             {QStringLiteral("结算金额"), 10, Align::Right, 0}},
            d.rows, true);
    r.rule();
    r.field(QStringLiteral("合计："), QStringLiteral("lblSumNum"), d.sumNum);
    r.label(QStringLiteral("lblSumMoney"), d.sumMoney, Align::Right, true);
    return r;
}

Receipt DesignFindPrint(const FindPrintData& d) {
    Receipt r(QStringLiteral("DRFindPrint"), QStringLiteral("营业对帐单"));
    r.label(QStringLiteral("lblCompanyName"), d.companyName, Align::Center, true);
    r.title(QStringLiteral("营业对帐单"));
    r.label(QStringLiteral("lblTime"), d.time, Align::Left);
    r.rule();
    r.total(QStringLiteral("实收合计"), QStringLiteral("lblSumMoney"), d.sumMoney, true);
    r.total(QStringLiteral("储卡"), QStringLiteral("lblSumChongzhi"), d.sumChongzhi);
    r.total(QStringLiteral("赠券"), QStringLiteral("lblSumFreePay"), d.sumFreePay);
    r.total(QStringLiteral("现金"), QStringLiteral("lblCashPay"), d.cashPay);
    r.total(QStringLiteral("外卖合计"), QStringLiteral("lblSumMoneyOutSale"), d.sumMoneyOutSale);
    r.rule();
    r.field(QStringLiteral("打印："), QStringLiteral("lblOperatorName"), d.operatorName);
    r.label(QStringLiteral("lblNow"), d.now, Align::Left);
    return r;
}
