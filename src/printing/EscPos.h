#pragma once
#include "ReceiptLayout.h"
#include <QByteArray>

// Network receipt printers take ESC/POS with Chinese text in GBK.
namespace EscPos {
// The text in GBK; a character GBK lacks becomes "?".
QByteArray Gbk(const QString& text);

// The bytes of `copies` slips: printer reset, Chinese mode, the lines with their bold and
// double size, a short feed and a cut after each copy.
QByteArray Receipt(const QList<ReceiptLine>& lines, int copies);

// The cut command, for whoever counts the slips in a stream.
QByteArray Cut();
} // namespace EscPos
