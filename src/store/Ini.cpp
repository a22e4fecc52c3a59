#include "Ini.h"
#include "AppState.h"
#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace {
struct Found {
    int sectionLine = -1;
    int keyLine = -1;
    int lastLineOfSection = -1;
    QString value;
};

QStringList readLines(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return {};
    QString text = QString::fromUtf8(f.readAll());
    if (text.startsWith(QChar(0xFEFF))) text.remove(0, 1);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QStringList lines = text.split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
    return lines;
}

Found find(const QStringList& lines, const QString& section, const QString& key) {
    Found r;
    bool in = false;
    for (int i = 0; i < lines.size(); ++i) {
        const QString t = lines[i].trimmed();
        if (t.startsWith(QLatin1Char('[')) && t.endsWith(QLatin1Char(']'))) {
            in = t.mid(1, t.size() - 2).trimmed().compare(section, Qt::CaseInsensitive) == 0;
            if (in && r.sectionLine < 0) {
                r.sectionLine = i;
                r.lastLineOfSection = i;
            }
            continue;
        }
        if (!in) continue;
        if (!t.isEmpty()) r.lastLineOfSection = i;
        const qsizetype eq = t.indexOf(QLatin1Char('='));
        if (eq <= 0 || t.startsWith(QLatin1Char(';'))) continue;
        if (r.keyLine < 0 && t.left(eq).trimmed().compare(key, Qt::CaseInsensitive) == 0) {
            r.keyLine = i;
            r.value = t.mid(eq + 1).trimmed();
        }
    }
    return r;
}

QString cutToBytes(const QString& v, int maxBytes) {
    if (v.toUtf8().size() <= maxBytes) return v;
    QString out;
    int bytes = 0;
    for (qsizetype i = 0; i < v.size(); ++i) {
        const qsizetype len = (v[i].isHighSurrogate() && i + 1 < v.size()) ? 2 : 1;
        const int b = int(v.mid(i, len).toUtf8().size());
        if (bytes + b > maxBytes) break;
        bytes += b;
        out += v.mid(i, len);
        i += len - 1;
    }
    return out;
}
} // namespace

QString ReadIniFile(const QString& section, const QString& key, const QString& path) {
    return find(readLines(path), section, key).value;
}

bool WriteIniFile(const QString& section, const QString& key, const QString& value, const QString& path) {
    QStringList lines = readLines(path);
    QString v = value;
    v.replace(QLatin1Char('\n'), QLatin1Char(' ')).replace(QLatin1Char('\r'), QLatin1Char(' '));
    const QString line = key + QLatin1Char('=') + v;
    const Found f = find(lines, section, key);
    if (f.keyLine >= 0)
        lines[f.keyLine] = line;
    else if (f.sectionLine >= 0)
        lines.insert(f.lastLineOfSection + 1, line);
    else {
        if (!lines.isEmpty() && !lines.last().trimmed().isEmpty()) lines << QString();
        lines << QLatin1Char('[') + section + QLatin1Char(']') << line;
    }
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly)) return false;
    out.write((lines.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8());
    return out.commit();
}

QString IniPath() { return QDir(App().AppPath).filePath(QStringLiteral("config.ini")); }
QString IniMainSection() { return App().AppTitle; }

QString GetIni(const QString& key) { return cutToBytes(ReadIniFile(IniMainSection(), key, IniPath()), 800); }

bool SetIni(const QString& key, const QString& value) {
    WriteIniFile(IniMainSection(), key, value, IniPath());
    return true;
}

QString GetHelpText(const QString& key) {
    const QString k = key.toLower();
    QString text = ReadIniFile(QStringLiteral("qnHelp"), k, IniPath());
    if (text.isEmpty()) text = ReadIniFile(QStringLiteral("qnHelp"), k, QStringLiteral(":/config.ini"));
    text = text.trimmed();
    text.replace(QLatin1Char('|'), QLatin1Char('\n'));
    return text + QStringLiteral("    ");
}
