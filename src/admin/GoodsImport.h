#pragma once
#include "Db.h"
#include "SheetReader.h"
#include <QString>
#include <QStringList>

// Goods from a spreadsheet into Ware. The columns are taken by position: WareID, WareName,
// wareUnit, Mnemonics, Price, WareTypeID, nownum, minnum, ProcurePrice.
namespace GoodsImport {
inline constexpr int Columns = 9;

struct Line {
    QStringList cells;
    QString refusal; // why this row will not be imported; empty when it will
};
struct Preview {
    QStringList headers;
    QList<Line> lines;
    int refused() const;
};

// Checks every row against the goods already kept and against the other rows.
Preview Check(const Sheet& sheet, Db& db = DB());

struct Outcome {
    int imported = 0;
    QString info; // the text of txtDoInfo
};
// All rows or none, in one transaction; refused rows stop it before anything is written.
// Writes the log row either way.
Outcome Import(const Preview& preview, Db& db = DB());
} // namespace GoodsImport
