#include "AutoRun.h"
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#ifdef Q_OS_WIN
#include <QSettings>
#endif

namespace AutoRun {
#ifdef Q_OS_WIN
namespace {
QSettings runKey() {
    return QSettings(QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run"),
                     QSettings::NativeFormat);
}
} // namespace
QString entryPath() { return QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\\singbox"); }
bool isSet() { return runKey().contains(QStringLiteral("singbox")); }
bool set(const QString& command) {
    QSettings k = runKey();
    k.setValue(QStringLiteral("singbox"), command);
    k.sync();
    return k.status() == QSettings::NoError;
}
#else
QString entryPath() {
    QString config = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (config.isEmpty()) config = QDir::home().filePath(QStringLiteral(".config"));
    return QDir(config).filePath(QStringLiteral("autostart/singbox.desktop"));
}

bool isSet() { return QFile::exists(entryPath()); }

bool set(const QString& command) {
    QDir().mkpath(QFileInfo(entryPath()).absolutePath());
    QSaveFile f(entryPath());
    if (!f.open(QIODevice::WriteOnly)) return false;
    QString text = QStringLiteral("[Desktop Entry]\nType=Application\nName=星澜KTV\n");
    if (command.isEmpty())
        text += QStringLiteral("Exec=\nHidden=true\n"); // an emptied entry starts nothing
    else
        text += QStringLiteral("Exec=\"") + command + QStringLiteral("\"\n");
    f.write(text.toUtf8());
    return f.commit();
}
#endif
} // namespace AutoRun
