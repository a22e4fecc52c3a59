#pragma once
#include <QString>
#include <functional>

class QMenu;
class QPushButton;
class QTreeView;
class QWidget;

// Export of a list as it is shown: its shown columns in their on-screen order, the header
// texts, then one line per item. A hidden column is left out; a column of width 0 is kept.

// Export/ of the venue folder.
QString ExportFolder();

// UTF-8 text, tab-separated, replacing the file. Tabs and line breaks inside a value become
// blanks so that every item stays on one line. False with `error` set on failure.
bool WriteListText(const QTreeView* list, const QString& path, QString* error = nullptr);

// A workbook of one sheet: bold header row, column widths in the list's twips / 100
// (0 stays 0). Plain decimal numbers become numbers so they can be summed; codes with a
// leading zero and long digit strings such as phone numbers stay text.
bool WriteListXlsx(const QTreeView* list, const QString& path, QString* error = nullptr);

// Writes Export/Export_<time>.xlsx and opens it with the desktop's program for it.
// Returns the file written, or an empty text when it could not be written.
QString ExportExcel(QTreeView* list);

// Writes Export/Temp.txt and opens it in a text editor. Returns the file, or empty.
QString ExportText(QTreeView* list);

// The export menu of a list, mnuExport with mnuExportExcel and mnuExportTxt, owned by
// `parent`. An export button pops it up.
QMenu* ExportMenu(QWidget* parent, QTreeView* list);
// The same for a window of several lists: `list` names the one in front when chosen.
QMenu* ExportMenu(QWidget* parent, std::function<QTreeView*()> list);

// An export button: a click pops the export menu up beneath it, for the list `list` names.
void ExportButton(QPushButton* button, std::function<QTreeView*()> list);
