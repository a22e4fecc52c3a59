#pragma once
#include "Db.h"
#include "Refusal.h"
#include <QList>
#include <QString>
#include <QVariant>

class QTreeView;
class QTreeWidget;

// The configured columns of the program's lists, one FD_FormControl row per column.
struct ListColumnDef {
    QString colname;     // field of the record set shown in the column
    QString coltitle;    // header text
    int colWidth = 1000; // twips
    int colOrder = 0;    // place, from 1
    bool isShow = true;  // stored as "Y"/"N"; only "N" hides
    QString showValue;   // display rule, see FormatShowValue
    QString displayCase; // carried along unchanged
};

// Twips per pixel of a list column width.
inline constexpr int TwipsPerPixel = 15;

// Header data of a list filled by ShowList: the column's field name and its configured width.
inline constexpr int ListColNameRole = Qt::UserRole;
inline constexpr int ListTwipsRole = Qt::UserRole + 1;

// The columns of a list in their order. A list name is compared without trailing blanks.
// Throws DbError.
QList<ListColumnDef> LoadListColumns(const QString& name, Db& db = DB());

// Replaces the columns of a list in one transaction, in the given order (ColOrder = place).
// A failure leaves the stored columns as they were and is told as the error of SaveData
// of the column dialog.
Refused SaveListColumns(const QString& name, const QList<ListColumnDef>& columns, Db& db = DB());

// A value as the column's display rule shows it. The rule is a type digit, a separator,
// and the rule itself from the third place on:
//   1  value list "0现结|1免单|2挂帐": the item whose first character has the value's
//      numeric value; an item "*text" stands for any other value; else nothing shows.
//   2  date by letter: A "yyyy年MM月dd日", B "MM月dd日", C "dd日", H "yyyy年MM月dd日 hh:mm",
//      I "yy年MM月dd日 hh:mm", J "dd日 hh:mm"; any other letter acts as A; a longer rule
//      is the date format itself ("yyyy-MM-dd"). A text that is no date stays as it is.
//   3  money: the field holds 1/10000 yuan; the rule is a number format such as "0.00",
//      "0", "￥0.00" or "#,##0.00" (a comma groups thousands); empty means "0.00".
//   4  a plain number in a number format such as "0" or "0.00".
// An empty rule or another type shows the value as text.
QString FormatShowValue(const QString& rule, const QVariant& value);

// Fills `list` from `rows` by the configured columns of `name`. A list without stored
// columns first gets one per field of the record set, titled by the field name. Hidden
// columns are left out; a column whose field is not in the record set stays empty. With
// `keyed`, item data Qt::UserRole of column 0 holds "k" + the stored value of the first
// shown column. The list ends sorted ascending by its first column. Throws DbError; the
// caller reports it as the error of its own procedure.
void ShowList(QTreeWidget* list, const QString& name, const Rows& rows, bool keyed, Db& db = DB());
// The same for a list whose query gives its order (by time, by name): the rows stay in that
// order, with no sort indicator, until the user clicks a header.
void ShowListInQueryOrder(QTreeWidget* list, const QString& name, const Rows& rows, bool keyed,
                          Db& db = DB());

// The shown columns of a list; a list without stored columns first gets one per field of
// `rows`. Throws DbError.
QList<ListColumnDef> ShownListColumns(const QString& name, const Rows& rows, Db& db = DB());
// Gives the columns of a list their configured widths.
void SizeListColumns(QTreeView* list, const QList<ListColumnDef>& shown);
// A value as a column without a rule shows it.
QString ListPlainText(const QVariant& v);

// The index of the shown column of `colname` in a list filled by ShowList, or -1.
int ListColumn(const QTreeWidget* list, const QString& colname);
