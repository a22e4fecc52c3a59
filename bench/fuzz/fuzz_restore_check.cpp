// Feeds arbitrary bytes, as a chosen file, to the check a restore makes first.
#include "RestoreCheck.h"
#include <QFile>
#include <QTemporaryDir>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("chosen.db"));
    QFile::remove(path + QStringLiteral("-wal"));
    QFile::remove(path + QStringLiteral("-shm"));
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return 0;
    f.write(reinterpret_cast<const char*>(data), qint64(size));
    f.close();
    const RestoreCheck c = CheckRestoreFile(path, 5);
    if (c.ok() && (c.version < 1 || c.version > 5)) __builtin_trap();
    return 0;
}
