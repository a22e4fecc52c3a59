#include "ReceiptPainter.h"
#include <QFontDatabase>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <functional>

namespace {
// All lengths in 1/100 mm.
constexpr int Cell = 150;                // printed width / cells, the same on both rolls
constexpr int Em = 2 * Cell;             // a Chinese character is two cells wide
constexpr int LineHeight = Em * 13 / 10; // the printer's 24-dot font on a 30-dot line
constexpr int Top = 300, Bottom = 800;

int leftMargin(Paper paper) {
    return (int(paper) * 100 - PaperCells(paper) * Cell) / 2;
}

int lineHeight(const ReceiptLine& l) {
    return l.large ? 2 * LineHeight : LineHeight;
}

QFont receiptFont(bool bold, bool large) {
    static const QString family = [] {
        for (const char* f : {"Noto Sans Mono CJK SC", "Noto Sans CJK SC", "WenQuanYi Zen Hei Mono"})
            if (QFontDatabase::hasFamily(QLatin1String(f))) return QString::fromLatin1(f);
        return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    }();
    QFont f(family);
    f.setStyleHint(QFont::Monospace);
    f.setHintingPreference(QFont::PreferNoHinting);
    f.setPixelSize(large ? 2 * Em : Em);
    f.setBold(bold);
    return f;
}

void paintLine(QPainter& p, const ReceiptLine& l, int left, int top, Paper paper) {
    const int scale = l.large ? 2 : 1;
    if (l.rule) {
        QPen pen(Qt::black, 18, Qt::CustomDashLine);
        pen.setDashPattern({6, 4});
        p.setPen(pen);
        const int y = top + LineHeight / 2;
        p.drawLine(left, y, left + PaperCells(paper) * Cell, y);
        return;
    }
    p.setPen(Qt::black);
    p.setFont(receiptFont(l.bold, l.large));
    const int baseline = top + Em * scale * 103 / 100;
    // Word by word at its cells, so that a glyph of another width cannot push the columns.
    int cell = 0;
    QString word;
    int wordCell = 0;
    auto flush = [&] {
        if (!word.isEmpty()) p.drawText(QPointF(left + wordCell * Cell * scale, baseline), word);
        word.clear();
    };
    for (qsizetype i = 0; i < l.text.size(); ++i) {
        const QChar ch = l.text[i];
        if (ch == QLatin1Char(' ')) {
            flush();
            ++cell;
            continue;
        }
        if (word.isEmpty()) wordCell = cell;
        word += ch;
        if (ch.isHighSurrogate() && i + 1 < l.text.size()) {
            word += l.text[++i];
            cell += CellWidth(QChar::surrogateToUcs4(ch, l.text[i]));
        } else {
            cell += CellWidth(ch.unicode());
        }
    }
    flush();
}

QPageSize pageSize(const QSizeF& mm) {
    return QPageSize(mm, QPageSize::Millimeter, QString(), QPageSize::ExactMatch);
}

bool paintCopies(QPaintDevice& device, const QList<ReceiptLine>& lines, Paper paper, int copies,
                 const std::function<bool()>& newPage, double dotsPerInch) {
    QPainter p;
    if (!p.begin(&device)) return false;
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    for (int c = 0; c < std::max(copies, 1); ++c) {
        if (c > 0 && !newPage()) return false;
        p.save();
        p.scale(dotsPerInch / 2540.0, dotsPerInch / 2540.0);
        PaintReceipt(p, lines, paper);
        p.restore();
    }
    return p.end();
}
} // namespace

QSizeF ReceiptSizeMm(const QList<ReceiptLine>& lines, Paper paper) {
    int h = Top + Bottom;
    for (const ReceiptLine& l : lines)
        h += lineHeight(l);
    return QSizeF(int(paper), std::max(h, 4000) / 100.0);
}

void PaintReceipt(QPainter& painter, const QList<ReceiptLine>& lines, Paper paper) {
    const int left = leftMargin(paper);
    int top = Top;
    for (const ReceiptLine& l : lines) {
        paintLine(painter, l, left, top, paper);
        top += lineHeight(l);
    }
}

QImage ReceiptImage(const Receipt& receipt, Paper paper, int dpi) {
    const QList<ReceiptLine> lines = LayoutReceipt(receipt, paper);
    const QSizeF mm = ReceiptSizeMm(lines, paper);
    QImage img(qRound(mm.width() * dpi / 25.4), qRound(mm.height() * dpi / 25.4), QImage::Format_RGB32);
    img.setDotsPerMeterX(qRound(dpi / 0.0254));
    img.setDotsPerMeterY(qRound(dpi / 0.0254));
    img.fill(Qt::white);
    paintCopies(
        img, lines, paper, 1, [] { return false; }, dpi);
    return img;
}

bool ReceiptPdf(const Receipt& receipt, Paper paper, int copies, const QString& path, QString* error) {
    const QList<ReceiptLine> lines = LayoutReceipt(receipt, paper);
    QPdfWriter pdf(path);
    pdf.setCreator(QStringLiteral("星澜KTV"));
    pdf.setTitle(receipt.caption());
    pdf.setPageSize(pageSize(ReceiptSizeMm(lines, paper)));
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    if (!paintCopies(
            pdf, lines, paper, copies, [&] { return pdf.newPage(); }, pdf.resolution())) {
        if (error) *error = QStringLiteral("无法写入文件 ") + path;
        return false;
    }
    return true;
}

bool ReceiptToPrinter(const Receipt& receipt, Paper paper, int copies, QPrinter& printer, QString* error) {
    const QList<ReceiptLine> lines = LayoutReceipt(receipt, paper);
    printer.setDocName(receipt.caption());
    printer.setFullPage(true);
    printer.setPageSize(pageSize(ReceiptSizeMm(lines, paper)));
    printer.setPageMargins(QMarginsF(0, 0, 0, 0));
    if (!paintCopies(
            printer, lines, paper, copies, [&] { return printer.newPage(); }, printer.resolution())) {
        if (error) *error = QStringLiteral("打印机不能开始打印");
        return false;
    }
    return true;
}
