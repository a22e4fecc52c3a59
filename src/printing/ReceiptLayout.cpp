#include "ReceiptLayout.h"
#include <algorithm>

int PaperCells(Paper paper) {
    return paper == Paper::mm58 ? 32 : 48;
}

Paper PaperFromSetting(const QString& value) {
    return value.trimmed() == QLatin1String("58") ? Paper::mm58 : Paper::mm80;
}

QString PaperSetting(Paper paper) {
    return paper == Paper::mm58 ? QStringLiteral("58") : QStringLiteral("80");
}

int CellWidth(char32_t c) {
    if (c < 0x1100) return 1;
    // East Asian wide and full-width ranges: what the GBK font prints double.
    if ((c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7A3) ||
        (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE4F) || (c >= 0xFF00 && c <= 0xFF60) ||
        (c >= 0xFFE0 && c <= 0xFFE6) || (c >= 0x1F300 && c <= 0x1FAFF) || (c >= 0x20000 && c <= 0x3FFFD))
        return 2;
    return 1;
}

namespace {
// The characters of a text with their code points, a surrogate pair taken whole.
template <class F> void eachChar(const QString& text, F&& f) {
    for (qsizetype i = 0; i < text.size();) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const char32_t c = pair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : text[i].unicode();
        const qsizetype n = pair ? 2 : 1;
        f(text.mid(i, n), c);
        i += n;
    }
}
} // namespace

int Cells(const QString& text) {
    int n = 0;
    eachChar(text, [&](const QString&, char32_t c) { n += CellWidth(c); });
    return n;
}

namespace {
// What may not begin a line: it stays with the character before it.
bool closing(char32_t c) {
    return QStringView(u"，。、；：！？）》」』】〕％,.;:!?)%")
        .contains(QChar(char16_t(c < 0x10000 ? c : 0)));
}
} // namespace

QStringList WrapCells(const QString& text, int width) {
    width = std::max(width, 4);
    QStringList out;
    QString line;
    int used = 0;
    qsizetype blank = -1; // the last blank of the line, where a break reads best
    auto restart = [&](const QString& carry) {
        line = carry;
        used = Cells(carry);
        blank = -1;
    };
    eachChar(text, [&](const QString& piece, char32_t c) {
        if (c == U'\n') {
            out << line;
            restart({});
            return;
        }
        const int w = CellWidth(c);
        if (used + w > width) {
            if (c == U' ') { // a blank at the break is not printed
                out << line;
                restart({});
                return;
            }
            if (blank > 0) {
                out << line.left(blank);
                restart(line.mid(blank + 1));
            } else if (closing(c) && line.size() >= 2 && !line.back().isLowSurrogate()) {
                const QString carry = line.right(1);
                line.chop(1);
                out << line;
                restart(carry);
            } else {
                out << line;
                restart({});
            }
        }
        if (c == U' ') {
            if (line.isEmpty() && !out.isEmpty()) return; // no blank at the start of a wrapped line
            blank = line.size();
        }
        line += piece;
        used += w;
    });
    out << line;
    return out;
}

QString PadCells(const QString& text, int width, Align align) {
    const int free = width - Cells(text);
    if (free <= 0) return text;
    switch (align) {
    case Align::Left:
        return text + QString(free, QLatin1Char(' '));
    case Align::Right:
        return QString(free, QLatin1Char(' ')) + text;
    case Align::Center:
        return QString(free / 2, QLatin1Char(' ')) + text + QString(free - free / 2, QLatin1Char(' '));
    }
    return text;
}

namespace {
class Layout {
  public:
    explicit Layout(int cells) : m_cells(cells) {}
    QList<ReceiptLine> lines;

    void text(const ReceiptBlock& b) {
        const QString words = b.name.isEmpty() ? b.text : b.value;
        if (words.isEmpty()) return; // an empty label takes no room
        const int width = b.large ? m_cells / 2 : m_cells;
        for (const QString& piece : WrapCells(words, width))
            add(PadCells(piece, width, b.align), b);
    }

    void field(const ReceiptBlock& b) {
        const int width = b.large ? m_cells / 2 : m_cells;
        QString head = b.text;
        if (!head.isEmpty() && !head.endsWith(QStringLiteral("："))) head += QStringLiteral("：");
        const int headCells = Cells(head);
        const int valueCells = Cells(b.value);
        if (b.spread) {
            if (headCells + 1 + valueCells <= width) {
                add(head + PadCells(b.value, width - headCells, Align::Right), b);
                return;
            }
            add(head, b);
            for (const QString& piece : WrapCells(b.value, width))
                add(PadCells(piece, width, Align::Right), b);
            return;
        }
        if (headCells + valueCells <= width) {
            add(head + b.value, b);
            return;
        }
        // A long value goes on under itself, beside the caption while there is room for it.
        const int indent = width - headCells >= 8 ? headCells : 0;
        const QStringList pieces = WrapCells(b.value, width - indent);
        if (indent == 0) add(head, b);
        for (int i = 0; i < pieces.size(); ++i)
            add((indent && i == 0 ? head : QString(indent, QLatin1Char(' '))) + pieces[i], b);
    }

    void rule() {
        ReceiptLine l;
        l.text = QString(m_cells, QLatin1Char('-'));
        l.rule = true;
        lines << l;
    }

    void feed(int n) {
        for (int i = 0; i < std::clamp(n, 0, 20); ++i)
            lines << ReceiptLine{};
    }

    void table(const ReceiptBlock& b) {
        QList<int> bands;
        for (const ReceiptColumn& c : b.columns)
            if (!bands.contains(c.band)) bands << c.band;
        std::sort(bands.begin(), bands.end());
        // Per band: the columns' positions in a row and their widths.
        QList<QList<int>> members;
        QList<QList<int>> widths;
        for (int band : bands) {
            QList<int> idx;
            for (int i = 0; i < b.columns.size(); ++i)
                if (b.columns[i].band == band) idx << i;
            members << idx;
            widths << bandWidths(b.columns, idx);
        }
        for (int k = 0; k < bands.size(); ++k)
            headerLine(b.columns, members[k], widths[k]);
        for (qsizetype i = 0; i < b.rows.size(); ++i) {
            if (i > 0 && b.apart) lines << ReceiptLine{};
            for (int k = 0; k < bands.size(); ++k)
                rowLines(b.columns, b.rows[i], members[k], widths[k]);
        }
    }

  private:
    void add(const QString& text, const ReceiptBlock& b) {
        ReceiptLine l;
        l.text = text;
        l.bold = b.bold;
        l.large = b.large;
        lines << l;
    }

    QList<int> bandWidths(const QList<ReceiptColumn>& cols, const QList<int>& idx) const {
        int fixed = 0, shares = 0;
        for (int i : idx) {
            if (cols[i].width > 0)
                fixed += cols[i].width;
            else
                ++shares;
        }
        const int gaps = int(idx.size()) - 1;
        const int rest = std::max(m_cells - fixed - gaps, 2 * std::max(shares, 1));
        QList<int> w;
        int given = 0, seen = 0;
        for (int i : idx) {
            if (cols[i].width > 0) {
                w << cols[i].width;
                continue;
            }
            ++seen;
            const int share = seen == shares ? rest - given : rest / shares;
            given += share;
            w << share;
        }
        return w;
    }

    void headerLine(const QList<ReceiptColumn>& cols, const QList<int>& idx, const QList<int>& w) {
        QString line;
        for (int j = 0; j < idx.size();) {
            int span = w[j];
            int k = j + 1;
            while (k < idx.size() && cols[idx[k]].title.isEmpty())
                span += 1 + w[k++];
            if (j > 0) line += QLatin1Char(' ');
            line += PadCells(cols[idx[j]].title, span, cols[idx[j]].align);
            j = k;
        }
        add(line, {});
    }

    void rowLines(const QList<ReceiptColumn>& cols, const QStringList& row, const QList<int>& idx,
                  const QList<int>& w) {
        if (idx.size() > 0 &&
            std::all_of(idx.begin(), idx.end(), [&](int i) { return row.value(i).isEmpty(); }) &&
            cols[idx.first()].band > 0)
            return;
        QList<QStringList> cells;
        qsizetype height = 1;
        for (int j = 0; j < idx.size(); ++j) {
            cells << WrapCells(row.value(idx[j]), w[j]);
            height = std::max(height, cells.last().size());
        }
        for (qsizetype h = 0; h < height; ++h) {
            QString line;
            for (int j = 0; j < idx.size(); ++j) {
                if (j > 0) line += QLatin1Char(' ');
                line += PadCells(cells[j].value(h), w[j], cols[idx[j]].align);
            }
            add(line, {});
        }
    }

    int m_cells;
};
} // namespace

QList<ReceiptLine> LayoutReceipt(const Receipt& receipt, Paper paper) {
    Layout l(PaperCells(paper));
    for (const ReceiptBlock& b : receipt.blocks()) {
        switch (b.kind) {
        case ReceiptBlock::Kind::Text:
            l.text(b);
            break;
        case ReceiptBlock::Kind::Field:
            l.field(b);
            break;
        case ReceiptBlock::Kind::Rule:
            l.rule();
            break;
        case ReceiptBlock::Kind::Table:
            l.table(b);
            break;
        case ReceiptBlock::Kind::Feed:
            l.feed(b.lines);
            break;
        }
    }
    return l.lines;
}

QString LinesText(const QList<ReceiptLine>& lines) {
    QStringList out;
    for (const ReceiptLine& l : lines) {
        QString t = l.text;
        if (l.large) {
            qsizetype lead = 0;
            while (lead < t.size() && t[lead] == QLatin1Char(' '))
                ++lead;
            if (lead > 0 && lead < t.size()) t = QString(lead * 2, QLatin1Char(' ')) + t.mid(lead);
        }
        while (t.endsWith(QLatin1Char(' ')))
            t.chop(1);
        out << t;
    }
    return out.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString ReceiptText(const Receipt& receipt, Paper paper) {
    return LinesText(LayoutReceipt(receipt, paper));
}
