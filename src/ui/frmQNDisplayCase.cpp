#include "frmQNDisplayCase.h"
#include "ListColumns.h"
#include "RefusalShow.h"
#include "Val.h"
#include "ui_frmQNDisplayCase.h"
#include <QHeaderView>
#include <QIntValidator>
#include <QSignalBlocker>

namespace {
enum Column { Title, Field, Width, Rule };
// What an item carries besides its texts.
constexpr int DisplayCaseRole = Qt::UserRole + 1;
} // namespace

frmQNDisplayCase::frmQNDisplayCase(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmQNDisplayCase>()) {
    ui->setupUi(this);
    ui->txtWidth->setValidator(new QIntValidator(0, 999999, ui->txtWidth));
    ui->lvwThis->header()->setStretchLastSection(true);
    connect(ui->cmdUp, &QPushButton::clicked, this, &frmQNDisplayCase::cmdUp_Click);
    connect(ui->cmdDown, &QPushButton::clicked, this, &frmQNDisplayCase::cmdDown_Click);
    connect(ui->cmdShow, &QPushButton::clicked, this, [this] { setShown(true); });
    connect(ui->cmdHide, &QPushButton::clicked, this, [this] { setShown(false); });
    connect(ui->lvwThis, &QTreeWidget::currentItemChanged, this, &frmQNDisplayCase::showSelected);
    // Only the title is typed in the list itself.
    connect(ui->lvwThis, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { ui->lvwThis->editItem(item, Title); });
    // The selected column follows the boxes at each change.
    connect(ui->txtWidth, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (QTreeWidgetItem* item = ui->lvwThis->currentItem()) item->setText(Width, text);
    });
    connect(ui->txtShowValue, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (QTreeWidgetItem* item = ui->lvwThis->currentItem()) item->setText(Rule, text);
    });
    connect(ui->OKButton, &QPushButton::clicked, this, &frmQNDisplayCase::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmQNDisplayCase::~frmQNDisplayCase() = default;

bool frmQNDisplayCase::ShowSetup(const QString& name, QWidget* parent) {
    frmQNDisplayCase dlg(parent);
    if (!dlg.load(name)) return false;
    dlg.exec();
    return dlg.saved();
}

bool frmQNDisplayCase::load(const QString& name) {
    m_name = name;
    m_saved = false;
    ui->lvwThis->clear();
    QList<ListColumnDef> columns;
    try {
        columns = LoadListColumns(name);
    } catch (const DbError& e) {
        Msg::critical(parentWidget(), e.message(QStringLiteral("LoadData"), QStringLiteral("frmMember")));
        return false;
    }
    for (const ListColumnDef& c : std::as_const(columns)) {
        auto* item = new QTreeWidgetItem(ui->lvwThis);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsEditable);
        item->setCheckState(Title, c.isShow ? Qt::Checked : Qt::Unchecked);
        item->setText(Title, c.coltitle);
        item->setText(Field, c.colname);
        item->setText(Width, QString::number(c.colWidth));
        item->setText(Rule, c.showValue);
        item->setData(Title, DisplayCaseRole, c.displayCase);
    }
    for (int i = 0; i < 3; ++i)
        ui->lvwThis->resizeColumnToContents(i);
    if (ui->lvwThis->topLevelItemCount() > 0) ui->lvwThis->setCurrentItem(ui->lvwThis->topLevelItem(0));
    showSelected();
    return true;
}

void frmQNDisplayCase::showSelected() {
    const QTreeWidgetItem* item = ui->lvwThis->currentItem();
    const QSignalBlocker width(ui->txtWidth), rule(ui->txtShowValue);
    ui->txtWidth->setText(item ? item->text(Width) : QString());
    ui->txtShowValue->setText(item ? item->text(Rule) : QString());
    ui->fraSelected->setEnabled(item != nullptr);
}

void frmQNDisplayCase::moveBy(int step) {
    QTreeWidget* list = ui->lvwThis;
    QTreeWidgetItem* item = list->currentItem();
    if (!item) return;
    const int from = list->indexOfTopLevelItem(item);
    const int to = from + step;
    if (to < 0 || to >= list->topLevelItemCount()) return;
    const QSignalBlocker quiet(list);
    list->takeTopLevelItem(from);
    list->insertTopLevelItem(to, item);
    list->setCurrentItem(item);
}

void frmQNDisplayCase::cmdUp_Click() {
    moveBy(-1);
}
void frmQNDisplayCase::cmdDown_Click() {
    moveBy(1);
}

void frmQNDisplayCase::setShown(bool shown) {
    if (QTreeWidgetItem* item = ui->lvwThis->currentItem())
        item->setCheckState(Title, shown ? Qt::Checked : Qt::Unchecked);
}

void frmQNDisplayCase::OKButton_Click() {
    QList<ListColumnDef> columns;
    for (int i = 0; i < ui->lvwThis->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = ui->lvwThis->topLevelItem(i);
        columns.append({item->text(Field), item->text(Title), int(Val(item->text(Width))), i + 1,
                        item->checkState(Title) == Qt::Checked, item->text(Rule),
                        item->data(Title, DisplayCaseRole).toString()});
    }
    ui->OKButton->setEnabled(false);
    const Refused r = SaveListColumns(m_name, columns);
    ui->OKButton->setEnabled(true);
    if (r) return ShowRefusal(this, *r);
    m_saved = true;
    accept();
}
