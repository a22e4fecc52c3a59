// The printing part of the screenshots: the slips on both rolls as the printer would put
// them on paper, the window of the two bill styles and the print queue.
#include "ShotSave.h"
#include "Designs.h"
#include "PrintQueue.h"
#include "Printing.h"
#include "ReceiptPainter.h"
#include "Settings.h"
#include "frmPrintQueue.h"
#include "frmSeePrintType.h"
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <cstdio>

namespace {
void saveImage(const QImage& img, const QString& out, const QString& name) {
    const QString path = QDir(out).filePath(name + QStringLiteral(".png"));
    img.save(path);
    std::printf("%s\n", qPrintable(path));
}


Receipt kitchenTicket() {
    ThisTicketData d;
    d.companyName = QStringLiteral("星澜KTV（演示店）");
    d.theCode = QStringLiteral("A02");
    d.expenseID = QStringLiteral("2026112119300002");
    d.operatorName = QStringLiteral("系统管理员");
    d.lines = {
        {QStringLiteral("薯条"), QStringLiteral("2"), QStringLiteral("少盐")},
        {QStringLiteral("招牌香辣小龙虾拼盘（大份）"), QStringLiteral("1"), QStringLiteral("加辣，先上")},
        {QStringLiteral("西瓜拼盘"), QStringLiteral("1"), QString()}};
    return DesignExpenseThisHC(d);
}

Receipt topUp() {
    ChongzhiData d;
    d.company = {QStringLiteral("星澜KTV（演示店）"), QStringLiteral("滨江路88号"),
                 QStringLiteral("0571-88886666")};
    d.memberCode = QStringLiteral("8003");
    d.memberName = QStringLiteral("李娜");
    d.operatorTime = QStringLiteral("2026-11-21  19:30");
    d.operatorName = QStringLiteral("系统管理员");
    d.thisMemoney = QStringLiteral("1,200");
    d.factPay = QStringLiteral("1,000");
    d.chongzhi = QStringLiteral("2,700");
    return DesignChongzhi(d);
}
} // namespace

void PrintShots(const QString& out, const QString& runningBill) {
    for (Paper paper : {Paper::mm58, Paper::mm80}) {
        const QString mm = QString::number(int(paper));
        saveImage(ReceiptImage(frmSeePrintType::sample(BillStyle::Detailed), paper), out,
                  QStringLiteral("slip-bill-") + mm);
        saveImage(ReceiptImage(frmSeePrintType::sample(BillStyle::Brief), paper), out,
                  QStringLiteral("slip-bill_c-") + mm);
        saveImage(ReceiptImage(kitchenTicket(), paper), out, QStringLiteral("slip-kitchen-") + mm);
        saveImage(ReceiptImage(topUp(), paper), out, QStringLiteral("slip-chongzhi-") + mm);
    }
    frmSeePrintType styles(Paper::mm80);
    SaveShot(&styles, out, QStringLiteral("frmSeePrintType"));

    // A running bill that went out and a kitchen ticket whose printer is down.
    SetSetup(QStringLiteral("Printer"), QStringLiteral("PDF:"));
    PrintBill(runningBill, false);
    SetSetup(QStringLiteral("PrinterHC"), QStringLiteral("tcp://127.0.0.1:1"));
    const QString job = PrintQueue::Enqueue(PrintRole::Kitchen, kitchenTicket(), 1, {runningBill, {}, {}});
    PrintQueue::Send(job);
    SetSetup(QStringLiteral("Printer"), QString());
    SetSetup(QStringLiteral("PrinterHC"), QString());
    frmPrintQueue queue;
    queue.findChild<QCheckBox*>(QStringLiteral("chkUnprinted"))->setChecked(false);
    queue.selectJob(job);
    SaveShot(&queue, out, QStringLiteral("frmPrintQueue"));
}
