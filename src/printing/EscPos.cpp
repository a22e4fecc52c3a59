#include "EscPos.h"
#include <initializer_list>
#include <memory>
#include <unicode/ucnv.h>

namespace {
struct ConverterClose {
    void operator()(UConverter* c) const { ucnv_close(c); }
};
using Converter = std::unique_ptr<UConverter, ConverterClose>;

UConverter* gbk() {
    thread_local Converter conv = [] {
        UErrorCode err = U_ZERO_ERROR;
        Converter c(ucnv_open("GBK", &err));
        if (U_FAILURE(err)) return Converter();
        ucnv_setSubstChars(c.get(), "?", 1, &err);
        return c;
    }();
    return conv.get();
}

const char ESC = 0x1B, GS = 0x1D, FS = 0x1C;

QByteArray cmd(std::initializer_list<char> c) {
    return QByteArray(c.begin(), qsizetype(c.size()));
}
} // namespace

namespace EscPos {
QByteArray Gbk(const QString& text) {
    UConverter* conv = gbk();
    if (!conv || text.isEmpty()) return text.toLatin1();
    ucnv_resetFromUnicode(conv);
    QByteArray out(text.size() * 2 + 8, Qt::Uninitialized);
    UErrorCode err = U_ZERO_ERROR;
    const int32_t n =
        ucnv_fromUChars(conv, out.data(), int32_t(out.size()), reinterpret_cast<const UChar*>(text.utf16()),
                        int32_t(text.size()), &err);
    if (U_FAILURE(err)) return QByteArray(text.size(), '?');
    out.truncate(n);
    return out;
}

QByteArray Cut() {
    return QByteArray("\x1dV\x42\x00", 4);
}

QByteArray Receipt(const QList<ReceiptLine>& lines, int copies) {
    QByteArray out;
    for (int c = 0; c < std::max(copies, 1); ++c) {
        out += cmd({ESC, '@'}); // reset
        out += cmd({FS, '&'});  // Chinese characters on
        for (const ReceiptLine& l : lines) {
            out += cmd({ESC, 'E', char(l.bold ? 1 : 0)});
            out += cmd({GS, '!', char(l.large ? 0x11 : 0x00)});
            out += cmd({FS, '!', char(l.large ? 0x0C : 0x00)});
            QString text = l.text;
            while (text.endsWith(QLatin1Char(' ')))
                text.chop(1);
            out += Gbk(text);
            out += '\n';
        }
        out += cmd({ESC, 'E', 0});
        out += cmd({GS, '!', 0});
        out += cmd({FS, '!', 0});
        out += cmd({ESC, 'd', 4}); // past the cutter
        out += Cut();
    }
    return out;
}
} // namespace EscPos
