#pragma once
#include <QList>
#include <QString>
#include <QStringList>

// One printed slip as the designs describe it: titles, captions with their filled labels,
// rules and a detail table, top to bottom. It knows nothing of paper; ReceiptLayout puts it
// on 58 mm or 80 mm rolls, and the same slip goes to a printer, a PDF, a picture or text.
enum class Align { Left, Center, Right };

struct ReceiptColumn {
    QString title; // empty: the previous column's title spans this one too
    int width = 0; // cells; 0 shares what the fixed columns leave
    Align align = Align::Left;
    int band = 0; // a row too wide for the paper goes on in the next band, one line lower
};

struct ReceiptBlock {
    enum class Kind { Text, Field, Rule, Table, Feed };
    Kind kind = Kind::Text;

    // Text: a line of its own; Field: caption and value.
    QString text;  // Text: the words; Field: the caption, as the design spells it
    QString name;  // the design's label name ("lblID") when the program fills it
    QString value; // Field: what was filled in
    Align align = Align::Left;
    bool bold = false;
    bool large = false;  // double width and height
    bool spread = false; // Field: caption at the left, value at the right edge

    // Table
    QList<ReceiptColumn> columns;
    QList<QStringList> rows;
    bool apart = false; // an empty line between rows

    // Feed: empty lines
    int lines = 1;
};

class Receipt {
  public:
    Receipt() = default;
    Receipt(QString design, QString caption) : m_design(std::move(design)), m_caption(std::move(caption)) {}

    // The design's name ("DREndExpense") and the slip's name for people ("结帐单 20261121-00001").
    const QString& design() const { return m_design; }
    const QString& caption() const { return m_caption; }
    const QList<ReceiptBlock>& blocks() const { return m_blocks; }

    Receipt& title(const QString& text, bool large = true);
    // A fixed text on a line of its own.
    Receipt& text(const QString& words, Align align = Align::Left, bool bold = false);
    // A filled label on a line of its own.
    Receipt& label(const QString& name, const QString& value, Align align = Align::Center, bool bold = false);
    Receipt& field(const QString& caption, const QString& name, const QString& value);
    // Caption left, value right: totals.
    Receipt& total(const QString& caption, const QString& name, const QString& value, bool bold = false);
    Receipt& large(const QString& caption, const QString& name, const QString& value);
    Receipt& rule();
    Receipt& feed(int lines = 1);
    // A band of a row whose cells are all empty takes no line.
    Receipt& table(const QList<ReceiptColumn>& columns, const QList<QStringList>& rows, bool apart = false);

    // The filled labels in print order, as "name=value".
    QStringList filled() const;
    // The value of a filled label; empty when the design has no such label.
    QString value(const QString& name) const;
    bool hasLabel(const QString& name) const;

    // The slip as stored in the print queue, and back. A damaged text gives an empty slip.
    QString toJson() const;
    static Receipt fromJson(const QString& json);

  private:
    QString m_design, m_caption;
    QList<ReceiptBlock> m_blocks;
};
