#include "Receipt.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

Receipt& Receipt::title(const QString& text, bool large) {
    ReceiptBlock b;
    b.text = text;
    b.align = Align::Center;
    b.bold = true;
    b.large = large;
    m_blocks << b;
    return *this;
}

Receipt& Receipt::text(const QString& words, Align align, bool bold) {
    ReceiptBlock b;
    b.text = words;
    b.align = align;
    b.bold = bold;
    m_blocks << b;
    return *this;
}

Receipt& Receipt::label(const QString& name, const QString& value, Align align, bool bold) {
    ReceiptBlock b;
    b.name = name;
    b.value = value;
    b.align = align;
    b.bold = bold;
    m_blocks << b;
    return *this;
}

Receipt& Receipt::field(const QString& caption, const QString& name, const QString& value) {
    ReceiptBlock b;
    b.kind = ReceiptBlock::Kind::Field;
    b.text = caption;
    b.name = name;
    b.value = value;
    m_blocks << b;
    return *this;
}

Receipt& Receipt::total(const QString& caption, const QString& name, const QString& value, bool bold) {
    field(caption, name, value);
    m_blocks.last().spread = true;
    m_blocks.last().bold = bold;
    return *this;
}

Receipt& Receipt::large(const QString& caption, const QString& name, const QString& value) {
    field(caption, name, value);
    m_blocks.last().large = true;
    m_blocks.last().bold = true;
    return *this;
}

Receipt& Receipt::rule() {
    ReceiptBlock b;
    b.kind = ReceiptBlock::Kind::Rule;
    m_blocks << b;
    return *this;
}

Receipt& Receipt::feed(int lines) {
    ReceiptBlock b;
    b.kind = ReceiptBlock::Kind::Feed;
    b.lines = lines;
    m_blocks << b;
    return *this;
}

Receipt& Receipt::table(const QList<ReceiptColumn>& columns, const QList<QStringList>& rows, bool apart) {
    ReceiptBlock b;
    b.kind = ReceiptBlock::Kind::Table;
    b.columns = columns;
    b.rows = rows;
    b.apart = apart;
    m_blocks << b;
    return *this;
}

QStringList Receipt::filled() const {
    QStringList out;
    for (const ReceiptBlock& b : m_blocks)
        if (!b.name.isEmpty()) out << b.name + QLatin1Char('=') + b.value;
    return out;
}

QString Receipt::value(const QString& name) const {
    for (const ReceiptBlock& b : m_blocks)
        if (b.name == name) return b.value;
    return {};
}

bool Receipt::hasLabel(const QString& name) const {
    return std::any_of(m_blocks.begin(), m_blocks.end(),
                       [&](const ReceiptBlock& b) { return b.name == name; });
}

namespace {
const char* kindName(ReceiptBlock::Kind k) {
    switch (k) {
    case ReceiptBlock::Kind::Text:
        return "text";
    case ReceiptBlock::Kind::Field:
        return "field";
    case ReceiptBlock::Kind::Rule:
        return "rule";
    case ReceiptBlock::Kind::Table:
        return "table";
    case ReceiptBlock::Kind::Feed:
        return "feed";
    }
    return "text";
}

ReceiptBlock::Kind kindOf(const QString& s) {
    for (auto k : {ReceiptBlock::Kind::Text, ReceiptBlock::Kind::Field, ReceiptBlock::Kind::Rule,
                   ReceiptBlock::Kind::Table, ReceiptBlock::Kind::Feed})
        if (s == QLatin1String(kindName(k))) return k;
    return ReceiptBlock::Kind::Text;
}

Align alignOf(int v) {
    return v == 1 ? Align::Center : v == 2 ? Align::Right : Align::Left;
}
} // namespace

QString Receipt::toJson() const {
    QJsonArray blocks;
    for (const ReceiptBlock& b : m_blocks) {
        QJsonObject o;
        o[QStringLiteral("k")] = QLatin1String(kindName(b.kind));
        if (!b.text.isEmpty()) o[QStringLiteral("t")] = b.text;
        if (!b.name.isEmpty()) o[QStringLiteral("n")] = b.name;
        if (!b.value.isEmpty()) o[QStringLiteral("v")] = b.value;
        if (b.align != Align::Left) o[QStringLiteral("a")] = int(b.align);
        if (b.bold) o[QStringLiteral("b")] = true;
        if (b.large) o[QStringLiteral("l")] = true;
        if (b.spread) o[QStringLiteral("s")] = true;
        if (b.apart) o[QStringLiteral("ap")] = true;
        if (b.kind == ReceiptBlock::Kind::Feed) o[QStringLiteral("lines")] = b.lines;
        if (b.kind == ReceiptBlock::Kind::Table) {
            QJsonArray cols, rows;
            for (const ReceiptColumn& c : b.columns)
                cols.append(QJsonObject{{QStringLiteral("t"), c.title},
                                        {QStringLiteral("w"), c.width},
                                        {QStringLiteral("a"), int(c.align)},
                                        {QStringLiteral("band"), c.band}});
            for (const QStringList& r : b.rows)
                rows.append(QJsonArray::fromStringList(r));
            o[QStringLiteral("cols")] = cols;
            o[QStringLiteral("rows")] = rows;
        }
        blocks.append(o);
    }
    const QJsonObject root{{QStringLiteral("design"), m_design},
                           {QStringLiteral("caption"), m_caption},
                           {QStringLiteral("blocks"), blocks}};
    return QString::fromUtf8(QJsonDocument(root).toJson(QJsonDocument::Compact));
}

Receipt Receipt::fromJson(const QString& json) {
    const QJsonObject root = QJsonDocument::fromJson(json.toUtf8()).object();
    Receipt r(root.value(QStringLiteral("design")).toString(),
              root.value(QStringLiteral("caption")).toString());
    for (const QJsonValue& v : root.value(QStringLiteral("blocks")).toArray()) {
        const QJsonObject o = v.toObject();
        ReceiptBlock b;
        b.kind = kindOf(o.value(QStringLiteral("k")).toString());
        b.text = o.value(QStringLiteral("t")).toString();
        b.name = o.value(QStringLiteral("n")).toString();
        b.value = o.value(QStringLiteral("v")).toString();
        b.align = alignOf(o.value(QStringLiteral("a")).toInt());
        b.bold = o.value(QStringLiteral("b")).toBool();
        b.large = o.value(QStringLiteral("l")).toBool();
        b.spread = o.value(QStringLiteral("s")).toBool();
        b.apart = o.value(QStringLiteral("ap")).toBool();
        b.lines = o.value(QStringLiteral("lines")).toInt(1);
        for (const QJsonValue& c : o.value(QStringLiteral("cols")).toArray()) {
            const QJsonObject co = c.toObject();
            b.columns << ReceiptColumn{
                co.value(QStringLiteral("t")).toString(), co.value(QStringLiteral("w")).toInt(),
                alignOf(co.value(QStringLiteral("a")).toInt()), co.value(QStringLiteral("band")).toInt()};
        }
        for (const QJsonValue& row : o.value(QStringLiteral("rows")).toArray()) {
            QStringList cells;
            for (const QJsonValue& cell : row.toArray())
                cells << cell.toString();
            b.rows << cells;
        }
        r.m_blocks << b;
    }
    return r;
}
