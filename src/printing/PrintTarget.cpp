#include "PrintTarget.h"
#include "AppState.h"
#include "EscPos.h"
#include "ReceiptPainter.h"
#include <QDir>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTcpSocket>
#include <QUrl>

namespace {
const QString PdfPrefix = QStringLiteral("PDF:");
const QString TcpPrefix = QStringLiteral("tcp://");

QString sendNetwork(const PrintTarget& t, const Receipt& receipt, Paper paper, int copies) {
    if (t.name.isEmpty()) return QStringLiteral("网络打印机的地址不完整");
    QTcpSocket s;
    s.connectToHost(t.name, t.port);
    if (!s.waitForConnected(3000))
        return QStringLiteral("无法连接打印机（") + s.errorString() + QStringLiteral("）");
    s.write(EscPos::Receipt(LayoutReceipt(receipt, paper), copies));
    while (s.bytesToWrite() > 0)
        if (!s.waitForBytesWritten(5000))
            return QStringLiteral("打印数据没有发送完（") + s.errorString() + QStringLiteral("）");
    s.disconnectFromHost();
    if (s.state() != QAbstractSocket::UnconnectedState) s.waitForDisconnected(3000);
    return {};
}

QString sendPdf(const PrintTarget& t, const Receipt& receipt, Paper paper, int copies,
                const QString& fileName) {
    QString folder = t.name;
    QString file = fileName;
    if (folder.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
        const QFileInfo named(folder);
        file = named.completeBaseName() + QLatin1Char('-') + fileName;
        folder = named.path();
    }
    if (folder.isEmpty() || folder == QLatin1String(".")) folder = QStringLiteral("Print");
    if (QDir::isRelativePath(folder)) folder = QDir(App().AppPath).filePath(folder);
    if (!QDir().mkpath(folder)) return QStringLiteral("无法建立文件夹 ") + QDir::toNativeSeparators(folder);
    QString error;
    if (!ReceiptPdf(receipt, paper, copies, QDir(folder).filePath(file + QStringLiteral(".pdf")), &error))
        return error;
    return {};
}

QString sendSystem(const PrintTarget& t, const Receipt& receipt, Paper paper, int copies) {
    const QPrinterInfo info = t.kind == PrintTarget::Kind::Default ? QPrinterInfo::defaultPrinter()
                                                                   : QPrinterInfo::printerInfo(t.name);
    if (info.isNull())
        return t.kind == PrintTarget::Kind::Default ? QStringLiteral("系统没有默认打印机")
                                                    : QStringLiteral("系统中没有这台打印机");
    QPrinter printer(info, QPrinter::HighResolution);
    if (!printer.isValid()) return QStringLiteral("打印机不可用");
    QString error;
    if (!ReceiptToPrinter(receipt, paper, copies, printer, &error)) return error;
    return {};
}
} // namespace

PrintTarget PrintTarget::parse(const QString& setting) {
    const QString s = setting.trimmed();
    PrintTarget t;
    if (s.isEmpty()) return t;
    if (s.startsWith(PdfPrefix, Qt::CaseInsensitive)) {
        t.kind = Kind::Pdf;
        t.name = s.mid(PdfPrefix.size()).trimmed();
        return t;
    }
    if (s.startsWith(TcpPrefix, Qt::CaseInsensitive)) {
        t.kind = Kind::Network;
        const QUrl url(QStringLiteral("tcp://") + s.mid(TcpPrefix.size()));
        t.name = url.host();
        const int port = url.port(9100);
        t.port = quint16(port > 0 && port < 65536 ? port : 9100);
        return t;
    }
    t.kind = Kind::System;
    t.name = s;
    return t;
}

QString DefaultPrinterText() {
    return QStringLiteral("系统默认打印机");
}

QString PrinterShown(const QString& setting) {
    return setting.trimmed().isEmpty() ? DefaultPrinterText() : setting.trimmed();
}

QString SendReceipt(const QString& setting, const Receipt& receipt, Paper paper, int copies,
                    const QString& fileName) {
    const PrintTarget t = PrintTarget::parse(setting);
    switch (t.kind) {
    case PrintTarget::Kind::Network:
        return sendNetwork(t, receipt, paper, copies);
    case PrintTarget::Kind::Pdf:
        return sendPdf(t, receipt, paper, copies, fileName);
    case PrintTarget::Kind::Default:
    case PrintTarget::Kind::System:
        return sendSystem(t, receipt, paper, copies);
    }
    return {};
}

QList<PrinterChoice> PrinterChoices(const QString& saved, bool withDefault) {
    QList<PrinterChoice> out;
    if (withDefault) out << PrinterChoice{DefaultPrinterText(), QString()};
    for (const QString& name : QPrinterInfo::availablePrinterNames())
        out << PrinterChoice{name, name};
    out << PrinterChoice{PdfPrefix, PdfPrefix};
    const QString s = saved.trimmed();
    const PrintTarget t = PrintTarget::parse(s);
    const bool listed =
        std::any_of(out.begin(), out.end(), [&](const PrinterChoice& c) { return c.value == s; });
    if (!listed && (t.kind == PrintTarget::Kind::Network || t.kind == PrintTarget::Kind::Pdf))
        out << PrinterChoice{s, s};
    return out;
}
