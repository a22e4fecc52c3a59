#include "ListColumns.h"
#include "Dialect.h"
#include "Format.h"
#include "ListSort.h"
#include "Money.h"
#include "Val.h"
#include <QHeaderView>
#include <QSet>
#include <QTreeWidget>
#include <cmath>

namespace {
// Stored list names are compared as the old text comparison did: trailing blanks don't count.
QString listKey(const QString& name) {
    QString k = name;
    while (k.endsWith(QLatin1Char(' ')))
        k.chop(1);
    return k;
}

bool isInteger(const QVariant& v) {
    switch (v.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return true;
    default:
        return false;
    }
}

// The value as a list shows a field without a rule: null empty, doubles without noise.
QString plainText(const QVariant& v) {
    if (v.isNull()) return {};
    if (v.metaType().id() == QMetaType::Double) return QString::number(v.toDouble(), 'g', 15);
    return v.toString();
}

double numeric(const QVariant& v) {
    if (v.isNull()) return 0.0;
    if (isInteger(v) || v.metaType().id() == QMetaType::Double || v.metaType().id() == QMetaType::Float)
        return v.toDouble();
    return Val(v.toString());
}

QString valueItem(const QString& items, const QVariant& value) {
    const double v = numeric(value);
    QString otherwise;
    for (const QString& item : items.split(QLatin1Char('|'))) {
        if (item.startsWith(QLatin1Char('*')))
            otherwise = item.mid(1);
        else if (Val(item.left(1)) == v)
            return item.mid(1);
    }
    return otherwise;
}

QString dateText(const QString& code, const QVariant& value) {
    QDateTime when;
    if (value.metaType().id() == QMetaType::QDateTime)
        when = value.toDateTime();
    else if (value.metaType().id() == QMetaType::QDate)
        when = value.toDate().startOfDay();
    else
        when = ParseTime(plainText(value));
    if (!when.isValid()) return plainText(value);
    // More than a letter: the rule is the format itself ("yyyy-MM-dd", "MM-dd HH:mm").
    if (code.trimmed().size() > 1) return FormatDate(when, code.trimmed());
    const QString c = code.trimmed().toUpper();
    QString format = QStringLiteral("yyyy年MM月dd日");
    if (c == QLatin1String("B"))
        format = QStringLiteral("MM月dd日");
    else if (c == QLatin1String("C"))
        format = QStringLiteral("dd日");
    else if (c == QLatin1String("H"))
        format = QStringLiteral("yyyy年MM月dd日 hh:mm");
    else if (c == QLatin1String("I"))
        format = QStringLiteral("yy年MM月dd日 hh:mm");
    else if (c == QLatin1String("J"))
        format = QStringLiteral("dd日 hh:mm");
    return FormatDate(when, format);
}

Money moneyOf(const QVariant& v) {
    if (v.isNull()) return {};
    if (isInteger(v)) return Money::fromRaw(v.toLongLong());
    // Sums come back as a decimal or floating count.
    return Money::fromRaw(RoundEven(numeric(v)));
}

QString moneyText(const QString& pattern, const QVariant& value) {
    QString p = pattern.isEmpty() ? QStringLiteral("0.00") : pattern;
    if (!p.contains(QLatin1Char('0'))) p += QLatin1Char('0');
    return FormatNumber(moneyOf(value).toDouble(), p);
}
} // namespace

QString FormatShowValue(const QString& rule, const QVariant& value) {
    const QString r = rule.mid(2);
    if (rule.startsWith(QLatin1Char('1'))) return valueItem(r, value);
    if (rule.startsWith(QLatin1Char('2'))) return dateText(r, value);
    if (rule.startsWith(QLatin1Char('3'))) return moneyText(r, value);
    if (rule.startsWith(QLatin1Char('4')))
        return value.isNull() ? QString() : FormatNumber(numeric(value), r);
    return plainText(value);
}

QList<ListColumnDef> LoadListColumns(const QString& name, Db& db) {
    const Rows rows =
        db.query(QStringLiteral("select colname, coltitle, ColWidth, ColOrder, IsShow, ShowValue, "
                                "DisplayCase from FD_FormControl where FormControlName=? "
                                "order by ColOrder, colname"),
                 {listKey(name)});
    QList<ListColumnDef> out;
    out.reserve(rows.count());
    for (const Row r : rows)
        out.append({r.text(QStringLiteral("colname")), r.text(QStringLiteral("coltitle")),
                    int(r.integer(QStringLiteral("ColWidth"))), int(r.integer(QStringLiteral("ColOrder"))),
                    r.text(QStringLiteral("IsShow")) != QLatin1String("N"),
                    r.text(QStringLiteral("ShowValue")), r.text(QStringLiteral("DisplayCase"))});
    return out;
}

namespace {
void insertColumn(Db& db, const QString& name, const ListColumnDef& c, int order) {
    db.exec(
        QStringLiteral("insert into FD_FormControl (FormControlName, colname, coltitle, ColWidth, ColOrder, "
                       "IsShow, ShowValue, DisplayCase) values (?, ?, ?, ?, ?, ?, ?, ?)"),
        {name, c.colname, c.coltitle, c.colWidth, order, c.isShow ? QStringLiteral("Y") : QStringLiteral("N"),
         c.showValue, c.displayCase});
}

// A new list starts with one column per field, titled by the field's name.
void seedColumns(Db& db, const QString& name, const Rows& rows) {
    QList<ListColumnDef> fields;
    QSet<QString> seen;
    for (const QString& field : rows.columns()) {
        if (seen.contains(field.toLower())) continue;
        seen.insert(field.toLower());
        fields.append({field, field, 1000, 0, true, {}, {}});
    }
    if (fields.isEmpty()) return;
    try {
        db.write([&] {
            for (int i = 0; i < fields.size(); ++i)
                insertColumn(db, name, fields[i], i + 1);
        });
    } catch (const DbError& e) {
        // Another workstation seeded the same list meanwhile: its rows serve as well.
        if (!db.dialect().isUniqueViolation(e)) throw;
    }
}
} // namespace

Refused SaveListColumns(const QString& name, const QList<ListColumnDef>& columns, Db& db) {
    const QString key = listKey(name);
    try {
        db.write([&] {
            db.exec(QStringLiteral("delete from FD_FormControl where FormControlName=?"), {key});
            for (int i = 0; i < columns.size(); ++i)
                insertColumn(db, key, columns[i], i + 1);
        });
        return std::nullopt;
    } catch (const DbError& e) {
        // The form name in this text has always been that of the member form.
        return Refusal{
            e.message(QStringLiteral("SaveData"), QStringLiteral("frmMember")), {}, Msg::Icon::Critical};
    }
}

namespace {
// Fills the list by its columns; false when it shows no column.
} // namespace

QList<ListColumnDef> ShownListColumns(const QString& name, const Rows& rows, Db& db) {
    QList<ListColumnDef> columns = LoadListColumns(name, db);
    if (columns.isEmpty()) {
        seedColumns(db, listKey(name), rows);
        columns = LoadListColumns(name, db);
    }
    QList<ListColumnDef> shown;
    for (const ListColumnDef& c : std::as_const(columns))
        if (c.isShow) shown.append(c);
    return shown;
}

void SizeListColumns(QTreeView* list, const QList<ListColumnDef>& shown) {
    list->setRootIsDecorated(false);
    list->header()->setStretchLastSection(false);
    for (int i = 0; i < shown.size(); ++i)
        list->header()->resizeSection(i, int(std::lround(std::max(0, shown[i].colWidth) / double(TwipsPerPixel))));
}

QString ListPlainText(const QVariant& v) {
    return plainText(v);
}

namespace {
bool fillList(QTreeWidget* list, const QString& name, const Rows& rows, bool keyed, Db& db) {
    list->clear();
    const QList<ListColumnDef> shown = ShownListColumns(name, rows, db);

    auto* header = new QTreeWidgetItem();
    for (int i = 0; i < shown.size(); ++i) {
        header->setText(i, shown[i].coltitle);
        header->setData(i, ListColNameRole, shown[i].colname);
        header->setData(i, ListTwipsRole, shown[i].colWidth);
    }
    list->setHeaderItem(header);
    SizeListColumns(list, shown);
    if (shown.isEmpty()) return false;

    // Where each shown column reads its value; -1 for a field the record set lacks.
    QList<int> source;
    QSet<QString> fields;
    for (const QString& f : rows.columns())
        fields.insert(f.toLower());
    for (const ListColumnDef& c : std::as_const(shown))
        source.append(fields.contains(c.colname.toLower()) ? rows.column(c.colname) : -1);

    QList<QTreeWidgetItem*> items;
    items.reserve(rows.count());
    for (int r = 0; r < rows.count(); ++r) {
        auto* item = new QTreeWidgetItem();
        for (int j = 0; j < shown.size(); ++j) {
            if (source[j] < 0) continue;
            const QVariant& v = rows.at(r, source[j]);
            item->setText(j, FormatShowValue(shown[j].showValue, v));
            if (j == 0 && keyed) item->setData(0, Qt::UserRole, QString(QStringLiteral("k") + plainText(v)));
        }
        if (keyed && source[0] < 0) item->setData(0, Qt::UserRole, QStringLiteral("k"));
        items.append(item);
    }
    list->addTopLevelItems(items);
    return true;
}
} // namespace

void ShowList(QTreeWidget* list, const QString& name, const Rows& rows, bool keyed, Db& db) {
    if (fillList(list, name, rows, keyed, db)) SortListBy(list, 0, Qt::AscendingOrder);
}

void ShowListInQueryOrder(QTreeWidget* list, const QString& name, const Rows& rows, bool keyed, Db& db) {
    list->setSortingEnabled(false);
    fillList(list, name, rows, keyed, db);
    ClearListSort(list);
}

int ListColumn(const QTreeWidget* list, const QString& colname) {
    const QTreeWidgetItem* header = list->headerItem();
    for (int i = 0; i < list->columnCount(); ++i)
        if (header->data(i, ListColNameRole).toString().compare(colname, Qt::CaseInsensitive) == 0) return i;
    return -1;
}
