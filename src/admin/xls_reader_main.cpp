// Reads one worksheet of an .xls file and writes it to standard output, for the program to
// read in a process of its own: freexl trusts the file's own lengths, and a damaged file must
// not take the till down with it.
//
//   singbox-xls FILE SHEET
//
// Output, UTF-8: "OK" or "ERR<tab>reason" on the first line, then the header row and the data
// rows, cells separated by tabs, with backslash, tab, CR and LF escaped as \\ \t \r \n.
#include "SheetReader.h"
#include <QCoreApplication>
#include <cstdio>

namespace {
QByteArray escaped(const QString& cell) {
    QByteArray out;
    for (const char c : cell.toUtf8()) {
        switch (c) {
        case '\\':
            out += "\\\\";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\n':
            out += "\\n";
            break;
        default:
            out += c;
        }
    }
    return out;
}

void writeRow(const QStringList& row) {
    QByteArray line;
    for (qsizetype i = 0; i < row.size(); ++i)
        line += (i ? "\t" : "") + escaped(row[i]);
    line += '\n';
    std::fwrite(line.constData(), 1, size_t(line.size()), stdout);
}
} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 3) return 2;
    const Sheet s = ReadXls(args[1], args[2]);
    if (!s.ok()) {
        writeRow({QStringLiteral("ERR"), s.error});
        return 0;
    }
    writeRow({QStringLiteral("OK")});
    writeRow(s.headers);
    for (const QStringList& r : s.rows)
        writeRow(r);
    return 0;
}
