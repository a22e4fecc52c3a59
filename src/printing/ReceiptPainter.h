#pragma once
#include "ReceiptLayout.h"
#include <QImage>
#include <QSizeF>

class QPainter;
class QPrinter;

// Drawing a slip: the cells of the layout on a grid of 1.5 mm, in the monospaced CJK font,
// so that paper from a page printer, a PDF and a picture look like the receipt printer's.
QSizeF ReceiptSizeMm(const QList<ReceiptLine>& lines, Paper paper);

// Draws the lines with the top left corner of the paper at the painter's origin; the
// painter's units are 1/100 mm.
void PaintReceipt(QPainter& painter, const QList<ReceiptLine>& lines, Paper paper);

// The slip as a picture at `dpi` dots per inch (receipt printers have 203), on white.
QImage ReceiptImage(const Receipt& receipt, Paper paper, int dpi = 203);

// Writes `copies` pages of the slip to a PDF file of the paper's width. False with the
// reason in `error` when the file cannot be written.
bool ReceiptPdf(const Receipt& receipt, Paper paper, int copies, const QString& path, QString* error);

// Prints `copies` pages on a page printer, each page as long as the slip.
bool ReceiptToPrinter(const Receipt& receipt, Paper paper, int copies, QPrinter& printer, QString* error);
