#include "SheetReader.h"
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QStringDecoder>
#include <QXmlStreamReader>
#include <cstring>
#include <freexl.h>
#include <unzip.h>

namespace {
QString noSuchSheet(const QString& name, const QStringList& names) {
    return QStringLiteral("工作簿中没有名为 ") + name + QStringLiteral(" 的工作表（工作簿中有：") +
           names.join(QStringLiteral("、")) + QStringLiteral("）");
}

Sheet failed(const QString& why) {
    Sheet s;
    s.error = why;
    return s;
}

// First row the headers, the rest data; blank rows dropped.
Sheet fromRows(QList<QStringList> rows) {
    Sheet s;
    bool first = true;
    for (QStringList& r : rows) {
        while (!r.isEmpty() && r.last().isEmpty())
            r.removeLast();
        if (r.isEmpty()) continue;
        if (first) {
            s.headers = r;
            first = false;
        } else {
            s.rows.append(r);
        }
    }
    return s;
}

// A number as a person types it: 1001 not 1001.0, 0.1 not 0.10000000000000001.
QString numberText(double v) {
    return QString::number(v, 'g', 15);
}

QString plainSheetName(QString name) {
    name = name.trimmed();
    if (name.endsWith(QLatin1Char('$'))) name.chop(1);
    return name;
}

// "AB12" -> 27 (zero based column), -1 when it has no letters.
int columnOf(QStringView ref) {
    int col = 0, letters = 0;
    for (QChar c : ref) {
        const char16_t u = c.toUpper().unicode();
        if (u < u'A' || u > u'Z') break;
        if (++letters > 3) return -1;
        col = col * 26 + (u - u'A' + 1);
    }
    return letters ? col - 1 : -1;
}

void putCell(QStringList& row, int col, const QString& text) {
    if (col < 0 || col >= SheetLimits::Columns) return;
    while (row.size() <= col)
        row.append(QString());
    row[col] = text;
}

// ---- .xlsx: a zip of XML parts, read from memory through minizip's unzip. (QuaZip carries
// its own copy of minizip's names, which would take the place of those libxlsxwriter calls
// when writing an export.)
struct MemoryFile {
    const QByteArray* data;
    ZPOS64_T pos = 0;
};

voidpf memOpen(voidpf opaque, const void*, int) {
    return new MemoryFile{static_cast<const QByteArray*>(opaque)};
}
uLong memRead(voidpf, voidpf stream, void* buf, uLong size) {
    auto* f = static_cast<MemoryFile*>(stream);
    const ZPOS64_T total = ZPOS64_T(f->data->size());
    const uLong n = f->pos >= total ? 0 : uLong(std::min<ZPOS64_T>(size, total - f->pos));
    if (n) std::memcpy(buf, f->data->constData() + f->pos, n);
    f->pos += n;
    return n;
}
uLong memWrite(voidpf, voidpf, const void*, uLong) {
    return 0;
}
ZPOS64_T memTell(voidpf, voidpf stream) {
    return static_cast<MemoryFile*>(stream)->pos;
}
long memSeek(voidpf, voidpf stream, ZPOS64_T offset, int origin) {
    auto* f = static_cast<MemoryFile*>(stream);
    const ZPOS64_T total = ZPOS64_T(f->data->size());
    ZPOS64_T base = 0;
    if (origin == ZLIB_FILEFUNC_SEEK_CUR)
        base = f->pos;
    else if (origin == ZLIB_FILEFUNC_SEEK_END)
        base = total;
    if (offset > total || base > total - offset) return -1;
    f->pos = base + offset;
    return 0;
}
int memClose(voidpf, voidpf stream) {
    delete static_cast<MemoryFile*>(stream);
    return 0;
}
int memError(voidpf, voidpf) {
    return 0;
}

class XlsxParts {
  public:
    explicit XlsxParts(const QByteArray& bytes) : m_bytes(bytes) {}
    ~XlsxParts() {
        if (m_zip) unzClose(m_zip);
    }
    XlsxParts(const XlsxParts&) = delete;
    XlsxParts& operator=(const XlsxParts&) = delete;
    bool open() {
        zlib_filefunc64_def io{memOpen, memRead,  memWrite, memTell,
                               memSeek, memClose, memError, const_cast<QByteArray*>(&m_bytes)};
        m_zip = unzOpen2_64("workbook", &io);
        return m_zip != nullptr;
    }
    bool read(const QString& name, QByteArray* out) {
        out->clear();
        if (unzLocateFile(m_zip, name.toUtf8().constData(), 2) != UNZ_OK) return false;
        if (unzOpenCurrentFile(m_zip) != UNZ_OK) return false;
        char chunk[65536];
        bool ok = true;
        for (;;) {
            const int n = unzReadCurrentFile(m_zip, chunk, sizeof chunk);
            if (n < 0) ok = false;
            if (n <= 0) break;
            if (out->size() + n > SheetLimits::EntryBytes) {
                ok = false;
                break;
            }
            out->append(chunk, n);
        }
        return unzCloseCurrentFile(m_zip) == UNZ_OK && ok;
    }

  private:
    QByteArray m_bytes;
    unzFile m_zip = nullptr;
};

QStringList sharedStrings(const QByteArray& xml) {
    QStringList out;
    QXmlStreamReader r(xml);
    QString current;
    int phonetic = 0;
    bool inItem = false, inText = false;
    while (!r.atEnd()) {
        switch (r.readNext()) {
        case QXmlStreamReader::StartElement:
            if (r.name() == u"si") {
                inItem = true;
                current.clear();
            } else if (r.name() == u"rPh") {
                ++phonetic;
            } else if (r.name() == u"t" && inItem && !phonetic) {
                inText = true;
            }
            break;
        case QXmlStreamReader::EndElement:
            if (r.name() == u"si") {
                if (out.size() < 10 * SheetLimits::Rows) out.append(current);
                inItem = false;
            } else if (r.name() == u"rPh") {
                --phonetic;
            } else if (r.name() == u"t") {
                inText = false;
            }
            break;
        case QXmlStreamReader::Characters:
            if (inText && current.size() < 65536) current += r.text();
            break;
        default:
            break;
        }
    }
    return out;
}

// The part of the worksheet called `name`, through the workbook and its relations.
QString sheetPart(XlsxParts& zip, const QString& name, QString* error) {
    QByteArray workbook, rels;
    if (!zip.read(QStringLiteral("xl/workbook.xml"), &workbook)) {
        *error = QStringLiteral("文件不是有效的 Excel 工作簿");
        return {};
    }
    QString relId;
    QStringList names;
    QXmlStreamReader w(workbook);
    while (!w.atEnd()) {
        if (w.readNext() == QXmlStreamReader::StartElement && w.name() == u"sheet") {
            const QString n = w.attributes().value(QStringLiteral("name")).toString();
            names << n;
            if (relId.isEmpty() && n.compare(name, Qt::CaseInsensitive) == 0) {
                for (const QXmlStreamAttribute& a : w.attributes())
                    if (a.name() == u"id") relId = a.value().toString();
            }
        }
    }
    if (relId.isEmpty()) {
        *error = noSuchSheet(name, names);
        return {};
    }
    zip.read(QStringLiteral("xl/_rels/workbook.xml.rels"), &rels);
    QXmlStreamReader r(rels);
    while (!r.atEnd()) {
        if (r.readNext() == QXmlStreamReader::StartElement && r.name() == u"Relationship" &&
            r.attributes().value(QStringLiteral("Id")) == relId) {
            const QString target = r.attributes().value(QStringLiteral("Target")).toString();
            return target.startsWith(QLatin1Char('/')) ? target.mid(1) : QStringLiteral("xl/") + target;
        }
    }
    *error = QStringLiteral("文件不是有效的 Excel 工作簿");
    return {};
}
} // namespace

Sheet ReadCsv(const QByteArray& bytes) {
    // Excel writes UTF-8 with a byte-order mark or, on a Chinese Windows, GB18030.
    QString text;
    {
        QStringDecoder utf8(QStringDecoder::Utf8);
        text = utf8.decode(bytes);
        if (utf8.hasError()) {
            QStringDecoder gb("GB18030");
            if (gb.isValid()) text = gb.decode(bytes);
        }
    }
    if (text.startsWith(QChar(0xFEFF))) text.remove(0, 1);

    QList<QStringList> rows;
    QStringList row;
    QString cell;
    bool quoted = false, wasQuoted = false;
    auto endCell = [&] {
        if (row.size() < SheetLimits::Columns) row.append(wasQuoted ? cell : cell.trimmed());
        cell.clear();
        wasQuoted = false;
    };
    auto endRow = [&] {
        endCell();
        if (rows.size() <= SheetLimits::Rows) rows.append(row);
        row.clear();
    };
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (quoted) {
            if (c == u'"') {
                if (i + 1 < n && text.at(i + 1) == u'"') {
                    cell += u'"';
                    ++i;
                } else {
                    quoted = false;
                }
            } else {
                cell += c;
            }
        } else if (c == u'"' && cell.trimmed().isEmpty()) {
            quoted = wasQuoted = true;
            cell.clear();
        } else if (c == u',') {
            endCell();
        } else if (c == u'\r' || c == u'\n') {
            if (c == u'\r' && i + 1 < n && text.at(i + 1) == u'\n') ++i;
            endRow();
        } else {
            cell += c;
        }
    }
    if (!cell.isEmpty() || !row.isEmpty() || wasQuoted) endRow();
    return fromRows(rows);
}

Sheet ReadXlsx(const QByteArray& bytes, const QString& sheetName) {
    XlsxParts zip(bytes);
    if (!zip.open()) return failed(QStringLiteral("文件不是有效的 Excel 工作簿"));
    QString error;
    const QString part = sheetPart(zip, plainSheetName(sheetName), &error);
    if (part.isEmpty()) return failed(error);
    QByteArray shared, xml;
    zip.read(QStringLiteral("xl/sharedStrings.xml"), &shared);
    const QStringList strings = sharedStrings(shared);
    if (!zip.read(part, &xml)) return failed(QStringLiteral("读不出工作表 ") + sheetName);

    QList<QStringList> rows;
    QStringList row;
    QString type, value;
    int col = -1;
    bool inRow = false, inValue = false, inInline = false;
    QXmlStreamReader r(xml);
    while (!r.atEnd() && rows.size() <= SheetLimits::Rows) {
        switch (r.readNext()) {
        case QXmlStreamReader::StartElement:
            if (r.name() == u"row") {
                inRow = true;
                row.clear();
                col = -1;
            } else if (r.name() == u"c" && inRow) {
                const int at = columnOf(r.attributes().value(QStringLiteral("r")));
                col = at >= 0 ? at : col + 1;
                type = r.attributes().value(QStringLiteral("t")).toString();
                value.clear();
            } else if (r.name() == u"v") {
                inValue = true;
            } else if (r.name() == u"is") {
                inInline = true;
            } else if (r.name() == u"t" && inInline) {
                inValue = true;
            }
            break;
        case QXmlStreamReader::EndElement:
            if (r.name() == u"v" || r.name() == u"t") {
                inValue = false;
            } else if (r.name() == u"is") {
                inInline = false;
            } else if (r.name() == u"c" && inRow) {
                QString text = value;
                if (type == u"s") {
                    bool ok = false;
                    const qint64 i = value.trimmed().toLongLong(&ok);
                    text = ok && i >= 0 && i < strings.size() ? strings.at(qsizetype(i)) : QString();
                } else if (type == u"b") {
                    text = value.trimmed() == u"1" ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
                } else if (type.isEmpty() || type == u"n") {
                    bool ok = false;
                    const double d = value.trimmed().toDouble(&ok);
                    if (ok) text = numberText(d);
                }
                putCell(row, col, text);
            } else if (r.name() == u"row") {
                inRow = false;
                rows.append(row);
            }
            break;
        case QXmlStreamReader::Characters:
            if (inValue && value.size() < 65536) value += r.text();
            break;
        default:
            break;
        }
    }
    if (r.hasError() && r.error() != QXmlStreamReader::PrematureEndOfDocumentError && rows.isEmpty())
        return failed(QStringLiteral("读不出工作表 ") + sheetName);
    return fromRows(rows);
}

Sheet ReadXls(const QString& path, const QString& sheetName) {
    const void* h = nullptr;
    // freexl may answer OK without a handle for a container it gives up on.
    if (freexl_open(QFile::encodeName(path).constData(), &h) != FREEXL_OK || !h) {
        if (h) freexl_close(h);
        return failed(QStringLiteral("文件不是有效的 Excel 工作簿"));
    }
    const QString wanted = plainSheetName(sheetName);
    unsigned int count = 0;
    freexl_get_info(h, FREEXL_BIFF_SHEET_COUNT, &count);
    int index = -1;
    QStringList names;
    for (unsigned int i = 0; i < count && i < 256 && index < 0; ++i) {
        const char* name = nullptr;
        if (freexl_get_worksheet_name(h, static_cast<unsigned short>(i), &name) != FREEXL_OK || !name)
            continue;
        names << QString::fromUtf8(name);
        if (names.last().compare(wanted, Qt::CaseInsensitive) == 0) index = int(i);
    }
    if (index < 0) {
        freexl_close(h);
        return failed(noSuchSheet(wanted, names));
    }
    unsigned int rowCount = 0;
    unsigned short colCount = 0;
    if (freexl_select_active_worksheet(h, static_cast<unsigned short>(index)) != FREEXL_OK ||
        freexl_worksheet_dimensions(h, &rowCount, &colCount) != FREEXL_OK) {
        freexl_close(h);
        return failed(QStringLiteral("读不出工作表 ") + wanted);
    }
    QList<QStringList> rows;
    const unsigned int lastRow = std::min<unsigned int>(rowCount, SheetLimits::Rows + 1);
    const unsigned short lastCol = std::min<unsigned short>(colCount, SheetLimits::Columns);
    for (unsigned int r = 0; r < lastRow; ++r) {
        QStringList row;
        for (unsigned short c = 0; c < lastCol; ++c) {
            FreeXL_CellValue v;
            QString text;
            if (freexl_get_cell_value(h, r, c, &v) == FREEXL_OK) {
                switch (v.type) {
                case FREEXL_CELL_INT:
                    text = QString::number(v.value.int_value);
                    break;
                case FREEXL_CELL_DOUBLE:
                    text = numberText(v.value.double_value);
                    break;
                case FREEXL_CELL_TEXT:
                case FREEXL_CELL_SST_TEXT:
                case FREEXL_CELL_DATE:
                case FREEXL_CELL_DATETIME:
                case FREEXL_CELL_TIME:
                    if (v.value.text_value) text = QString::fromUtf8(v.value.text_value).trimmed();
                    break;
                default:
                    break;
                }
            }
            putCell(row, c, text);
        }
        rows.append(row);
    }
    freexl_close(h);
    return fromRows(rows);
}

namespace {
QString xlsReader() {
    const QString dir = QCoreApplication::applicationDirPath();
#ifdef Q_OS_WIN
    const QString name = QStringLiteral("singbox-xls.exe");
#else
    const QString name = QStringLiteral("singbox-xls");
#endif
    QStringList candidates = {qEnvironmentVariable("SINGBOX_XLS_READER"), dir + u'/' + name,
                              dir + QStringLiteral("/../libexec/singbox/") + name};
#ifdef SINGBOX_XLS_READER_BUILD
    candidates << QStringLiteral(SINGBOX_XLS_READER_BUILD);
#endif
    for (const QString& c : candidates)
        if (!c.isEmpty() && QFileInfo(c).isExecutable()) return c;
    return {};
}

QString unescaped(const QByteArray& cell) {
    QByteArray out;
    for (qsizetype i = 0; i < cell.size(); ++i) {
        if (cell[i] != '\\' || i + 1 == cell.size()) {
            out += cell[i];
            continue;
        }
        const char c = cell[++i];
        out += c == 't' ? '\t' : c == 'r' ? '\r' : c == 'n' ? '\n' : c;
    }
    return QString::fromUtf8(out);
}
} // namespace

Sheet ReadXlsIsolated(const QString& path, const QString& sheetName) {
    const QString reader = xlsReader();
    if (reader.isEmpty()) return failed(QStringLiteral("找不到读取 .xls 文件的程序 singbox-xls"));
    QProcess p;
    p.start(reader, {path, sheetName});
    if (!p.waitForFinished(60000)) {
        p.kill();
        p.waitForFinished(1000);
        return failed(QStringLiteral("读取文件超时"));
    }
    const QList<QByteArray> lines = p.readAllStandardOutput().split('\n');
    if (p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0 || lines.isEmpty())
        return failed(QStringLiteral("文件不是有效的 Excel 工作簿"));
    if (lines.first().startsWith("ERR")) return failed(unescaped(lines.first().mid(4)));
    QList<QStringList> rows;
    for (qsizetype i = 1; i < lines.size(); ++i) {
        if (lines[i].isEmpty()) continue;
        QStringList row;
        for (const QByteArray& cell : lines[i].split('\t'))
            row << unescaped(cell);
        rows << row;
    }
    return fromRows(rows);
}

Sheet ReadSheet(const QString& path, const QString& sheetName) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"xls") return ReadXlsIsolated(path, sheetName);
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return failed(f.errorString());
    if (f.size() > SheetLimits::EntryBytes) return failed(QStringLiteral("文件太大"));
    const QByteArray bytes = f.readAll();
    if (suffix == u"csv" || suffix == u"txt") return ReadCsv(bytes);
    return ReadXlsx(bytes, sheetName);
}
