#include "Mnemonic.h"
#include <QList>
#include <QStringView>
#include <memory>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

namespace {
struct ConverterClose {
    void operator()(UConverter* c) const { ucnv_close(c); }
};
using Converter = std::unique_ptr<UConverter, ConverterClose>;

// One converter per thread; it stops on a character GBK lacks instead of putting in "?".
UConverter* gbk() {
    thread_local Converter conv = [] {
        UErrorCode err = U_ZERO_ERROR;
        Converter c(ucnv_open("GBK", &err));
        if (U_FAILURE(err)) return Converter();
        ucnv_setFromUCallBack(c.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &err);
        if (U_FAILURE(err)) return Converter();
        return c;
    }();
    return conv.get();
}

struct Range {
    char letter;
    const char* from;
    const char* to;
};

// First-level hanzi in pinyin order, by GBK code. The x/y boundary at D188/D189 is kept as
// the venues' mnemonics were made with it, though 选 (D1A1) to 迅 (D1B8) fall under y.
constexpr Range Letters[] = {
    {'a', "B0A1", "B0C4"}, {'b', "B0C5", "B2C0"}, {'c', "B2C1", "B4ED"}, {'d', "B4EE", "B6E9"},
    {'e', "B6EA", "B7A1"}, {'f', "B7A2", "B8C0"}, {'g', "B8C1", "B9FD"}, {'h', "B9FE", "BBF6"},
    {'j', "BBF7", "BFA5"}, {'k', "BFA6", "C0AB"}, {'l', "C0AC", "C2E7"}, {'m', "C2E8", "C4C2"},
    {'n', "C4C3", "C5B5"}, {'o', "C5B6", "C5BD"}, {'p', "C5BE", "C6D9"}, {'q', "C6DA", "C8BA"},
    {'r', "C8BB", "C8F5"}, {'s', "C8F6", "CBF9"}, {'t', "CBFA", "CDD9"}, {'w', "CDDA", "CEF3"},
    {'x', "CEF4", "D188"}, {'y', "D189", "D4D0"}, {'z', "D4D1", "D7F9"},
};

bool isAsciiLetterOrDigit(char32_t c) {
    return (c >= U'0' && c <= U'9') || (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z');
}
} // namespace

std::optional<quint16> GbkCode(const QString& ch) {
    if (ch.isEmpty()) return std::nullopt;
    UConverter* conv = gbk();
    if (!conv) return std::nullopt;
    // The first character, a surrogate pair taken whole.
    const qsizetype units = ch.size() >= 2 && ch[0].isHighSurrogate() && ch[1].isLowSurrogate() ? 2 : 1;
    char out[8];
    UErrorCode err = U_ZERO_ERROR;
    ucnv_resetFromUnicode(conv);
    const int32_t n = ucnv_fromUChars(conv, out, int32_t(sizeof out),
                                      reinterpret_cast<const UChar*>(ch.utf16()), int32_t(units), &err);
    if (U_FAILURE(err) || n < 1 || n > 2) return std::nullopt;
    if (n == 1) return quint16(quint8(out[0]));
    return quint16(quint8(out[0]) << 8 | quint8(out[1]));
}

QString FirstLetter(const QString& ch) {
    const std::optional<quint16> code = GbkCode(ch);
    if (!code) return QString();
    // The code as upper-case hex without padding, compared as text with the table.
    const QString hex = QString::number(*code, 16).toUpper();
    for (const Range& r : Letters) {
        if (hex >= QLatin1String(r.from) && hex <= QLatin1String(r.to)) return QString(QLatin1Char(r.letter));
    }
    const char32_t c = QStringView(ch).toUcs4().value(0);
    if (isAsciiLetterOrDigit(c)) return QString(QChar(c));
    return QString();
}

QString GetMnemonic(const QString& name) {
    QString out;
    for (qsizetype i = 0; i < name.size();) {
        const qsizetype units =
            name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate() ? 2 : 1;
        out += FirstLetter(name.mid(i, units));
        i += units;
    }
    return out;
}
