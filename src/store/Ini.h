#pragma once
#include <QString>

// Workstation settings in the venue's config.ini. Section and key names are matched
// without regard to case; the file is UTF-8.

QString ReadIniFile(const QString& section, const QString& key, const QString& path);
bool WriteIniFile(const QString& section, const QString& key, const QString& value, const QString& path);

// The main section of <venue>/config.ini. A value reads as at most 800 bytes (cut on a
// character boundary).
QString GetIni(const QString& key);
bool SetIni(const QString& key, const QString& value);
QString IniPath();
QString IniMainSection();

// Help text of a form: key lower-cased in section qnHelp, trimmed, "|" as a line break,
// four blanks behind. Falls back to the shipped texts when the venue's file lacks the key.
QString GetHelpText(const QString& key);
