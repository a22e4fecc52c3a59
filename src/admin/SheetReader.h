#pragma once
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// A worksheet read as text: the first row holds the headers, the others the data.
struct Sheet {
    QStringList headers;
    QList<QStringList> rows;
    QString error; // why nothing could be read; empty on success
    bool ok() const { return error.isEmpty(); }
};

// Readers of the spreadsheets goods come in. Each reads untrusted bytes: it never crashes on
// a damaged file, and caps what it keeps (SheetLimits) so a small file cannot ask for
// gigabytes. Numbers come back as the text a person would type ("12", "3.5").
namespace SheetLimits {
inline constexpr int Columns = 64;
inline constexpr int Rows = 100000;
inline constexpr qint64 EntryBytes = 64 * 1024 * 1024; // one part of an .xlsx, unpacked
} // namespace SheetLimits

// By the file's extension (.xlsx, .xls, .csv, any case). `sheetName` picks the worksheet of a
// workbook ("Sheet1"; a trailing "$" is ignored); a .csv has only one.
Sheet ReadSheet(const QString& path, const QString& sheetName);

Sheet ReadCsv(const QByteArray& bytes);
Sheet ReadXlsx(const QByteArray& bytes, const QString& sheetName);
// In this process; freexl has been seen to overrun a buffer on a damaged file, so the
// program reads through ReadXlsIsolated, which runs this in the helper singbox-xls.
Sheet ReadXls(const QString& path, const QString& sheetName);
Sheet ReadXlsIsolated(const QString& path, const QString& sheetName);
