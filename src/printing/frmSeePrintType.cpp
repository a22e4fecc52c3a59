#include "frmSeePrintType.h"
#include "AppState.h"
#include "ReceiptPainter.h"
#include "ui_frmSeePrintType.h"
#include <QPixmap>

namespace {
QPixmap picture(const Receipt& r, Paper paper) {
    // Small enough for the pair to stand on a 768-line screen.
    const double mm = ReceiptSizeMm(LayoutReceipt(r, paper), paper).height();
    const int dpi = std::min(130, int(560 / (mm / 25.4)));
    return QPixmap::fromImage(ReceiptImage(r, paper, dpi));
}
} // namespace

frmSeePrintType::frmSeePrintType(Paper paper, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmSeePrintType>()) {
    ui->setupUi(this);
    ui->imgDetailed->setPixmap(picture(sample(BillStyle::Detailed), paper));
    ui->imgBrief->setPixmap(picture(sample(BillStyle::Brief), paper));
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

frmSeePrintType::~frmSeePrintType() = default;

void frmSeePrintType::ShowMe(Paper paper, QWidget* parent) {
    frmSeePrintType dlg(paper, parent);
    dlg.exec();
}

Receipt frmSeePrintType::sample(BillStyle style) {
    BillData d;
    d.company = {App().CompanyName.isEmpty() ? App().AppTitle : App().CompanyName,
                 App().CompanyAddress.isEmpty() ? QStringLiteral("滨江路88号") : App().CompanyAddress,
                 App().CompanyPhone.isEmpty() ? QStringLiteral("0571-88886666") : App().CompanyPhone};
    d.ym = QStringLiteral("欢迎光临");
    d.expenseID = QStringLiteral("2026112119300001");
    d.theCode = QStringLiteral("中包-B02");
    d.openTime = QStringLiteral("11-21 19:30");
    d.closeTime = QStringLiteral("11-21 22:45");
    d.expendTime = QStringLiteral("3小时15分钟");
    d.payLevel = QStringLiteral("240.00");
    d.oughtMoney = QStringLiteral("438.00");
    d.noMoney = QStringLiteral("8.00");
    d.factPay = QStringLiteral("430.00");
    d.closeOperator = QStringLiteral("小王");
    d.lines = {{QStringLiteral("青岛啤酒"), QStringLiteral("6"), QStringLiteral("90.00")},
               {QStringLiteral("小果盘"), QStringLiteral("1"), QStringLiteral("58.00")},
               {QStringLiteral("爆米花"), QStringLiteral("2"), QStringLiteral("50.00")}};
    return DesignBill(d, true, style);
}
