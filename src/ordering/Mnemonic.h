#pragma once
#include <QString>
#include <optional>

// The code of a character in the GBK code page (Windows 936) as one 16-bit value: a
// double-byte character gives lead * 256 + trail, an ASCII character its byte. None when
// the character has no GBK code or the text is empty. Only the first character counts.
std::optional<quint16> GbkCode(const QString& ch);

// The quick-entry letter of one character: the pinyin initial of a first-level hanzi in
// lower case, an ASCII letter or digit as it stands, else the empty text.
QString FirstLetter(const QString& ch);

// The first letters of a goods name, character by character: "啤酒" gives "pj",
// "K歌 2" gives "Kg2". Blanks, punctuation and second-level hanzi leave nothing.
QString GetMnemonic(const QString& name);
