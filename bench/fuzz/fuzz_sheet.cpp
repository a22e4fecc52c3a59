// Feeds arbitrary bytes to the spreadsheet readers of the goods import. The first byte picks
// the reader: .csv, .xlsx or .xls. The .xls reader is the program's: freexl in the helper
// process (SINGBOX_XLS_READER), whose crash must come back as a refusal.
#include "SheetReader.h"
#include <QFile>
#include <QTemporaryDir>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    Sheet s;
    switch (data[0] % 3) {
    case 0:
        s = ReadCsv(bytes);
        break;
    case 1:
        s = ReadXlsx(bytes, QStringLiteral("Sheet1"));
        break;
    default: {
        // freexl reads files only; FUZZ_XLS_IN_PROCESS=1 fuzzes freexl itself.
        static QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("fuzz.xls"));
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return 0;
        f.write(bytes);
        f.close();
        static const bool inProcess = qEnvironmentVariable("FUZZ_XLS_IN_PROCESS") == QLatin1String("1");
        s = inProcess ? ReadXls(path, QStringLiteral("Sheet1"))
                      : ReadXlsIsolated(path, QStringLiteral("Sheet1"));
    }
    }
    // What came back is within the limits the readers promise.
    if (s.rows.size() > SheetLimits::Rows + 1 || s.headers.size() > SheetLimits::Columns) __builtin_trap();
    return 0;
}
