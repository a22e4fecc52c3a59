#include "ListExport.h"
#include "AppState.h"
#include "Clock.h"
#include "Desktop.h"
#include "ListColumns.h"
#include "MessageBox.h"
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTreeView>
#include <cmath>
#include <xlsxwriter.h>

namespace {
struct Shown {
    int column; // logical index
    QString title;
    int twips;
};

// The shown columns in screen order, with their widths as shown.
QList<Shown> shownColumns(const QTreeView* list) {
    const QHeaderView* header = list->header();
    const QAbstractItemModel* m = list->model();
    QList<Shown> out;
    for (int v = 0; v < header->count(); ++v) {
        const int c = header->logicalIndex(v);
        if (c < 0 || header->isSectionHidden(c)) continue;
        const int px = header->sectionSize(c);
        // A column still at its configured width keeps the configured twips exactly.
        const QVariant configured = m->headerData(c, Qt::Horizontal, ListTwipsRole);
        int twips = px * TwipsPerPixel;
        if (configured.isValid() && std::lround(configured.toInt() / double(TwipsPerPixel)) == px)
            twips = configured.toInt();
        out.append({c, m->headerData(c, Qt::Horizontal).toString(), twips});
    }
    return out;
}

QString cellText(const QTreeView* list, int row, int column) {
    const QAbstractItemModel* m = list->model();
    return m->data(m->index(row, column)).toString();
}

int rowCount(const QTreeView* list) {
    return list->model() ? list->model()->rowCount() : 0;
}

QString oneLine(QString s) {
    for (QChar& ch : s)
        if (ch == QLatin1Char('\t') || ch == QLatin1Char('\r') || ch == QLatin1Char('\n'))
            ch = QLatin1Char(' ');
    return s;
}

bool isPlainNumber(const QString& s) {
    static const QRegularExpression re(QStringLiteral("^-?(0|[1-9][0-9]{0,9})(\\.[0-9]{1,6})?$"));
    return re.match(s).hasMatch();
}

// Excel holds at most this many characters in a cell.
constexpr qsizetype CellMax = 32767;

QString uniqueExportFile() {
    const QString stamp = Now().toString(QStringLiteral("yyyyMMdd_HHmmss"));
    QString path = QDir(ExportFolder()).filePath(QStringLiteral("Export_") + stamp + QStringLiteral(".xlsx"));
    for (int n = 2; QFile::exists(path); ++n)
        path = QDir(ExportFolder()).filePath(QStringLiteral("Export_%1_%2.xlsx").arg(stamp).arg(n));
    return path;
}

QString savedAt(const QString& path) {
    return QStringLiteral("导出的文件已保存在：") + QDir::toNativeSeparators(path);
}
} // namespace

QString ExportFolder() {
    return QDir(App().AppPath).filePath(QStringLiteral("Export"));
}

bool WriteListText(const QTreeView* list, const QString& path, QString* error) {
    const QList<Shown> columns = shownColumns(list);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        if (error) *error = file.errorString();
        return false;
    }
    QStringList cells;
    for (const Shown& c : columns)
        cells << oneLine(c.title);
    QByteArray out = cells.join(QLatin1Char('\t')).toUtf8() + '\n';
    for (int i = 0; i < rowCount(list); ++i) {
        cells.clear();
        for (const Shown& c : columns)
            cells << oneLine(cellText(list, i, c.column));
        out += cells.join(QLatin1Char('\t')).toUtf8() + '\n';
    }
    file.write(out);
    if (!file.commit()) {
        if (error) *error = file.errorString();
        return false;
    }
    return true;
}

bool WriteListXlsx(const QTreeView* list, const QString& path, QString* error) {
    const QList<Shown> columns = shownColumns(list);
    lxw_workbook* book = workbook_new(QFile::encodeName(path).constData());
    if (!book) {
        if (error) *error = QStringLiteral("cannot create the workbook");
        return false;
    }
    lxw_worksheet* sheet = workbook_add_worksheet(book, nullptr);
    lxw_format* bold = workbook_add_format(book);
    format_set_bold(bold);

    lxw_error first = LXW_NO_ERROR;
    auto check = [&first](lxw_error e) {
        if (first == LXW_NO_ERROR) first = e;
    };
    auto put = [&](lxw_row_t row, lxw_col_t col, const QString& text, lxw_format* format) {
        if (format == nullptr && isPlainNumber(text))
            check(worksheet_write_number(sheet, row, col, text.toDouble(), nullptr));
        else
            check(worksheet_write_string(sheet, row, col, text.left(CellMax).toUtf8().constData(), format));
    };
    for (int j = 0; j < columns.size(); ++j) {
        const lxw_col_t col = lxw_col_t(j);
        // Excel counts widths in characters: a hundred twips each.
        const double width = columns[j].twips < 1 ? 0.0 : columns[j].twips / 100.0;
        check(worksheet_set_column(sheet, col, col, width, nullptr));
        put(0, col, columns[j].title, bold);
    }
    for (int i = 0; i < rowCount(list); ++i) {
        for (int j = 0; j < columns.size(); ++j)
            put(lxw_row_t(i + 1), lxw_col_t(j), cellText(list, i, columns[j].column), nullptr);
    }
    const lxw_error closed = workbook_close(book);
    check(closed);
    if (first != LXW_NO_ERROR) {
        if (error) *error = QString::fromUtf8(lxw_strerror(first));
        return false;
    }
    return true;
}

QString ExportExcel(QTreeView* list) {
    QDir().mkpath(ExportFolder());
    const QString path = uniqueExportFile();
    QString error;
    if (!WriteListXlsx(list, path, &error)) {
        Msg::ShowError(QStringLiteral("没能写入导出文件 ") + QDir::toNativeSeparators(path), error);
        return {};
    }
    if (!Desktop::openFile(path))
        Msg::warn(list->window(), QStringLiteral("没有找到可以打开Excel文件的程序！\n") + savedAt(path));
    return path;
}

QString ExportText(QTreeView* list) {
    QDir().mkpath(ExportFolder());
    const QString path = QDir(ExportFolder()).filePath(QStringLiteral("Temp.txt"));
    QString error;
    if (!WriteListText(list, path, &error)) {
        Msg::ShowError(QStringLiteral("没能写入导出文件 ") + QDir::toNativeSeparators(path), error);
        return {};
    }
    if (!Desktop::startTextEditor(path))
        Msg::warn(list->window(), QStringLiteral("没有找到可用的文本编辑器程序！\n") + savedAt(path));
    return path;
}

QMenu* ExportMenu(QWidget* parent, QTreeView* list) {
    return ExportMenu(parent, [list] { return list; });
}

QMenu* ExportMenu(QWidget* parent, std::function<QTreeView*()> list) {
    auto* menu = new QMenu(parent);
    menu->setObjectName(QStringLiteral("mnuExport"));
    QAction* excel = menu->addAction(QStringLiteral("导出到Excel"));
    excel->setObjectName(QStringLiteral("mnuExportExcel"));
    QAction* text = menu->addAction(QStringLiteral("导出到文本文件"));
    text->setObjectName(QStringLiteral("mnuExportTxt"));
    QObject::connect(excel, &QAction::triggered, menu, [list] { ExportExcel(list()); });
    QObject::connect(text, &QAction::triggered, menu, [list] { ExportText(list()); });
    return menu;
}

void ExportButton(QPushButton* button, std::function<QTreeView*()> list) {
    QMenu* menu = ExportMenu(button, std::move(list));
    QObject::connect(button, &QPushButton::clicked, menu,
                     [button, menu] { menu->popup(button->mapToGlobal(QPoint(0, button->height()))); });
}
