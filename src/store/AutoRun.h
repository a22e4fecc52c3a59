#pragma once
#include <QString>

// Start at logon: the value "singbox" under the Run key on Windows, an XDG autostart
// entry on Linux. Clearing keeps an emptied entry, which still counts as set.
namespace AutoRun {
bool isSet();
// `command` is the program path to start, or empty to clear.
bool set(const QString& command);
QString entryPath();
} // namespace AutoRun
