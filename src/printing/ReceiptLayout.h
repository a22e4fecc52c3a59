#pragma once
#include "Receipt.h"
#include <QList>
#include <QString>

// Receipt rolls. A line holds the cells of the printer's standard font: 32 on 58 mm paper
// (48 mm printed), 48 on 80 mm paper (72 mm printed). A Chinese character takes two cells,
// as it does in the printer's GBK font.
enum class Paper { mm58 = 58, mm80 = 80 };

int PaperCells(Paper paper);
// The stored choice of a printer's paper: "58" is the narrow roll, anything else 80 mm.
Paper PaperFromSetting(const QString& value);
QString PaperSetting(Paper paper);

// Cells of one character / of a text.
int CellWidth(char32_t c);
int Cells(const QString& text);
// The text cut into pieces of at most `width` cells; an empty text is one empty piece.
QStringList WrapCells(const QString& text, int width);
// The text padded with blanks to `width` cells; a longer text is kept whole.
QString PadCells(const QString& text, int width, Align align);

struct ReceiptLine {
    QString text; // the cells of the line, leading blanks included
    bool bold = false;
    bool large = false; // double width and height: the line has half the cells
    bool rule = false;  // a separator drawn across the paper
};

QList<ReceiptLine> LayoutReceipt(const Receipt& receipt, Paper paper);

// The slip as plain text, one line per printed line, without trailing blanks. A large
// line keeps its characters; its leading blanks count double, as on paper.
QString ReceiptText(const Receipt& receipt, Paper paper);
QString LinesText(const QList<ReceiptLine>& lines);
