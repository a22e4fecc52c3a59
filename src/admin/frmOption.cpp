#include "frmOption.h"
#include "frmDataImport.h"
#include "AppState.h"
#include "BusinessRules.h"
#include "Clock.h"
#include "Format.h"
#include "ListColumns.h"
#include "ListExport.h"
#include "ListSort.h"
#include "MessageBox.h"
#include "NewID.h"
#include "OptionPrintPage.h"
#include "frmOperatorList.h"
#include "PayLevel.h"
#include "Puissance.h"
#include "RefusalShow.h"
#include "RoomService.h"
#include "ScreenFit.h"
#include "Settings.h"
#include "Val.h"
#include "WareLevel.h"
#include "WareService.h"
#include "fThe.h"
#include "frmHouse.h"
#include "frmHouseAddBat.h"
#include "frmHouseAssort.h"
#include "frmPayLevel.h"
#include "frmQNDisplayCase.h"
#include "frmWare.h"
#include "frmWareLevel.h"
#include "frmWareType.h"
#include "ui_frmOption.h"
#include <QHeaderView>
#include <QMenu>

namespace {
void setColumns(QTreeWidget* list, const QStringList& titles) {
    list->setColumnCount(int(titles.size()));
    list->setHeaderLabels(titles);
    list->sortByColumn(0, Qt::AscendingOrder);
    list->header()->setSectionResizeMode(QHeaderView::Interactive);
}

void addRow(QTreeWidget* list, const QString& key, const QStringList& texts) {
    auto* item = new QTreeWidgetItem(list, texts);
    item->setData(0, Qt::UserRole, key);
}

void fitColumns(QTreeWidget* list) {
    for (int c = 0; c < list->columnCount(); ++c) list->resizeColumnToContents(c);
}

QString yesNo(double flag) {
    return flag == 1 ? QStringLiteral("是") : QStringLiteral("否");
}

// The name of the goods list's configured columns.
const QString WareListName = QStringLiteral("frmOption.lvwWare");
} // namespace

frmOption::frmOption(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmOption>()) {
    ui->setupUi(this);
    // A small or scaled screen scrolls the settings; the buttons stay in sight.
    ScreenFit::scrollItems(ui->layMain, 0, ui->layMain->count() - 1, QStringLiteral("fraOptionBody"));
    resize(980, 600);
    // Printing, company and other settings come first; their page saves and closes the window.
    auto* printPage = new OptionPrintPage(this);
    ui->ctbThis->insertTab(0, printPage, QStringLiteral("打印及其它设置"));
    connect(printPage, &OptionPrintPage::saved, this, &QDialog::accept);
    connect(printPage, &OptionPrintPage::cancelled, this, &QDialog::reject);
    // The operators last: the same list the system menu opens on its own.
    auto* operators = new frmOperatorList(this);
    operators->embed();
    ui->ctbThis->addTab(operators, QStringLiteral("操作员及权限"));
    setColumns(ui->lvwPayLevel, {QStringLiteral("计费标准"), QStringLiteral("最低消费"), QStringLiteral("计费方式"),
                                 QStringLiteral("时段1"), QStringLiteral("时段2"), QStringLiteral("时段3"),
                                 QStringLiteral("时段4")});
    setColumns(ui->lvwHouseAssort, {QStringLiteral("包厢类型"), QStringLiteral("计费标准")});
    setColumns(ui->lvwHouse, {QStringLiteral("手牌编号"), QStringLiteral("包厢类型"), QStringLiteral("状态"),
                              QStringLiteral("计费标准"), QStringLiteral("备注")});
    ui->cmbCloseHouseCur->addItems({QStringLiteral("会员编号"), QStringLiteral("实收现金")});
    setColumns(ui->lvwWareType,
               {QStringLiteral("编号"), QStringLiteral("分类名称"), QStringLiteral("时段折扣"),
                QStringLiteral("不参与会员折扣"), QStringLiteral("后厨打印"), QStringLiteral("吧台打印")});
    SortListOnHeaderClick(ui->lvwWare);
    connect(ui->cmdDataImportWare, &QPushButton::clicked, this, [this] {
        if (!CheckButton(this, QStringLiteral("cmdDataImportWare"))) return;
        frmDataImport dlg(this);
        if (dlg.ShowMe() > 0) loadWares();
    });
    QMenu* wareExport = ExportMenu(this, ui->lvwWare);
    connect(ui->cmdOutExcel, &QPushButton::clicked, this, [this, wareExport] {
        if (!CheckButton(this, QStringLiteral("cmdOutExcel"))) return;
        wareExport->popup(ui->cmdOutExcel->mapToGlobal(QPoint(0, ui->cmdOutExcel->height())));
    });
    QMenu* houseExport = ExportMenu(this, ui->lvwHouse);
    houseExport->setObjectName(QStringLiteral("mnuExportHouse"));
    connect(ui->cmdOutExcelHouse, &QPushButton::clicked, this, [this, houseExport] {
        houseExport->popup(ui->cmdOutExcelHouse->mapToGlobal(QPoint(0, ui->cmdOutExcelHouse->height())));
    });

    connect(ui->cmdPayLevelAdd, &QPushButton::clicked, this, &frmOption::cmdPayLevelAdd_Click);
    connect(ui->cmdPayLevelEdit, &QPushButton::clicked, this, &frmOption::cmdPayLevelEdit_Click);
    connect(ui->lvwPayLevel, &QTreeWidget::itemDoubleClicked, this, &frmOption::cmdPayLevelEdit_Click);
    connect(ui->cmdPayLevelDel, &QPushButton::clicked, this, &frmOption::cmdPayLevelDel_Click);
    connect(ui->cmdAllDiscount, &QPushButton::clicked, this, &frmOption::cmdAllDiscount_Click);
    connect(ui->cmdAllowLow2High, &QPushButton::clicked, this, &frmOption::cmdAllowLow2High_Click);
    connect(ui->cmdSaveCZ, &QPushButton::clicked, this, &frmOption::cmdSaveCZ_Click);
    connect(ui->cmdHouseAssortAdd, &QPushButton::clicked, this, &frmOption::cmdHouseAssortAdd_Click);
    connect(ui->cmdHouseAssortEdit, &QPushButton::clicked, this, &frmOption::cmdHouseAssortEdit_Click);
    connect(ui->lvwHouseAssort, &QTreeWidget::itemDoubleClicked, this, &frmOption::cmdHouseAssortEdit_Click);
    connect(ui->cmdHouseAssortDel, &QPushButton::clicked, this, &frmOption::cmdHouseAssortDel_Click);
    connect(ui->cmdHouseAdd, &QPushButton::clicked, this, &frmOption::cmdHouseAdd_Click);
    connect(ui->cmdHouseAddBat, &QPushButton::clicked, this, &frmOption::cmdHouseAddBat_Click);
    connect(ui->cmdHouseEdit, &QPushButton::clicked, this, &frmOption::cmdHouseEdit_Click);
    connect(ui->lvwHouse, &QTreeWidget::itemDoubleClicked, this, &frmOption::cmdHouseEdit_Click);
    connect(ui->cmdHouseDel, &QPushButton::clicked, this, &frmOption::cmdHouseDel_Click);
    connect(ui->cmdWareTypeAdd, &QPushButton::clicked, this, &frmOption::cmdWareTypeAdd_Click);
    connect(ui->cmdWareTypeEdit, &QPushButton::clicked, this, &frmOption::cmdWareTypeEdit_Click);
    connect(ui->lvwWareType, &QTreeWidget::itemDoubleClicked, this, &frmOption::cmdWareTypeEdit_Click);
    connect(ui->cmdWareTypeDel, &QPushButton::clicked, this, &frmOption::cmdWareTypeDel_Click);
    connect(ui->lvwWareType, &QTreeWidget::itemSelectionChanged, this, &frmOption::loadWares);
    connect(ui->cmdWareLevel, &QPushButton::clicked, this, &frmOption::cmdWareLevel_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &frmOption::Command1_Click);
    connect(ui->cmdWareAdd, &QPushButton::clicked, this, &frmOption::cmdWareAdd_Click);
    connect(ui->cmdWareEdit, &QPushButton::clicked, this, &frmOption::cmdWareEdit_Click);
    connect(ui->lvwWare, &QTreeWidget::itemDoubleClicked, this, &frmOption::cmdWareEdit_Click);
    connect(ui->cmdWareDel, &QPushButton::clicked, this, &frmOption::cmdWareDel_Click);
    connect(ui->cmdRefresh, &QPushButton::clicked, this, &frmOption::cmdRefresh_Click);
    connect(ui->lvwWare, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        QMenu menu(this);
        QAction* columns = menu.addAction(QStringLiteral("显示栏目"));
        columns->setObjectName(QStringLiteral("mnuSetupHouseAssortSet"));
        connect(columns, &QAction::triggered, this, &frmOption::mnuSetupHouseAssortSet_Click);
        menu.exec(ui->lvwWare->viewport()->mapToGlobal(at));
    });
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::accept);

    // A list that cannot be read stays empty; the window opens all the same.
    try {
        loadPayLevels();
        loadHouseAssorts();
        loadHouses();
        loadWareTypes();
        loadWares();
        loadRules();
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Form_Load"), QStringLiteral("frmOption")));
    }
}

frmOption::~frmOption() = default;

void frmOption::ShowMe(int page) {
    ui->ctbThis->setCurrentIndex(page);
    exec();
}

QString frmOption::selectedKey(QTreeWidget* list) {
    QTreeWidgetItem* item = list->currentItem();
    return item ? item->data(0, Qt::UserRole).toString() : QString();
}

void frmOption::loadRules() {
    ui->chkAllowHigh2Low->setChecked(IsFlagOn(GetSetup(QStringLiteral("AllowHigh2Low"))));
    ui->ChkAllDiscount->setChecked(App().IsAllDiscount == 1);
    ui->txtAllDiscount->setText(FormatNumber(App().AllDiscount, QStringLiteral("0.00")));
    const int format = int(Val(GetSetup(QStringLiteral("PayMoneyFormat"))));
    (format == 1 ? ui->optPayMoneyFormat1 : format == 2 ? ui->optPayMoneyFormat2 : ui->optPayMoneyFormat0)->setChecked(true);
    ui->cmbCloseHouseCur->setCurrentIndex(Val(GetSetup(QStringLiteral("HClose"))) == 1 ? 1 : 0);
    ui->txtLockTime->setText(QString::number(App().LockTime));
}

void frmOption::loadPayLevels() {
    ui->lvwPayLevel->clear();
    for (const Row r : DB().query(QStringLiteral("select PayLevel.* from PayLevel")))
        addRow(ui->lvwPayLevel, r.text(QStringLiteral("PayLevelID")), PayLevelService::rowTexts(r));
    fitColumns(ui->lvwPayLevel);
}

void frmOption::loadHouseAssorts() {
    ui->lvwHouseAssort->clear();
    for (const Row r : DB().query(QStringLiteral("select theAssort.*, PayLevel.PayLevelName from theAssort left join "
                                                 "PayLevel on theAssort.PayLevelID=PayLevel.PayLevelID")))
        addRow(ui->lvwHouseAssort, r.text(QStringLiteral("AssortID")),
               {r.text(QStringLiteral("AssortName")), r.text(QStringLiteral("PayLevelName"))});
    fitColumns(ui->lvwHouseAssort);
}

void frmOption::loadHouses() {
    ui->lvwHouse->clear();
    const QDateTime now = Now();
    for (const Row r : fThe().GetLinkAll(QStringLiteral("1=1"), {})) {
        const RoomStatusText s = RoomStatus(r.integer(QStringLiteral("State")), r.text(QStringLiteral("Other1")), now);
        addRow(ui->lvwHouse, r.text(QStringLiteral("TheID")),
               {r.text(QStringLiteral("TheCode")), r.text(QStringLiteral("AssortName")), s.label,
                r.text(QStringLiteral("PayLevelName")), r.text(QStringLiteral("theDesc"))});
    }
    fitColumns(ui->lvwHouse);
}

void frmOption::cmdPayLevelAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdPayLevelAdd"))) return;
    frmPayLevel dlg(this);
    if (dlg.Add()) loadPayLevels();
}

void frmOption::cmdPayLevelEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdPayLevelEdit"))) return;
    const QString key = selectedKey(ui->lvwPayLevel);
    if (key.isEmpty()) return;
    frmPayLevel dlg(this);
    if (dlg.Edit(key)) {
        loadPayLevels();
        loadHouseAssorts();
    }
}

void frmOption::cmdPayLevelDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdPayLevelDel"))) return;
    const QString key = selectedKey(ui->lvwPayLevel);
    if (key.isEmpty()) return;
    if (const Refused r = PayLevelService::remove(key)) return ShowRefusal(this, *r);
    loadPayLevels();
}

void frmOption::cmdAllDiscount_Click() {
    if (!CheckButton(this, QStringLiteral("cmdAllDiscount"))) return;
    BusinessRules::Discount d;
    d.on = ui->ChkAllDiscount->isChecked();
    d.rate = ui->txtAllDiscount->text();
    d.payMoneyFormat = ui->optPayMoneyFormat1->isChecked() ? 1 : ui->optPayMoneyFormat2->isChecked() ? 2 : 0;
    if (const Refused r = BusinessRules::applyDiscount(d)) ShowRefusal(this, *r);
}

void frmOption::cmdAllowLow2High_Click() {
    if (!CheckButton(this, QStringLiteral("cmdAllowLow2High"))) return;
    BusinessRules::applyAllowHigh2Low(ui->chkAllowHigh2Low->isChecked());
}

void frmOption::cmdSaveCZ_Click() {
    if (const Refused r =
            BusinessRules::saveCheckout(ui->cmbCloseHouseCur->currentIndex(), ui->txtLockTime->text()))
        ShowRefusal(this, *r);
}

void frmOption::cmdHouseAssortAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdHouseAssortAdd"))) return;
    frmHouseAssort dlg(this);
    if (dlg.Add()) loadHouseAssorts();
}

void frmOption::cmdHouseAssortEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdHouseAssortEdit"))) return;
    const QString key = selectedKey(ui->lvwHouseAssort);
    if (key.isEmpty()) return;
    frmHouseAssort dlg(this);
    if (dlg.Edit(key)) {
        loadHouseAssorts();
        loadHouses();
    }
}

void frmOption::cmdHouseAssortDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdHouseAssortDel"))) return;
    const QString key = selectedKey(ui->lvwHouseAssort);
    if (key.isEmpty()) return;
    if (const Refused r = RoomService().deleteRoomType(key)) return ShowRefusal(this, *r);
    loadHouseAssorts();
}

void frmOption::cmdHouseAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdHouseAdd"))) return;
    frmHouse dlg(this);
    if (dlg.Add()) loadHouses();
}

void frmOption::cmdHouseAddBat_Click() {
    if (!CheckButton(this, QStringLiteral("cmdHouseAddBat"))) return;
    frmHouseAddBat dlg(this);
    if (dlg.Add()) loadHouses();
}

void frmOption::cmdHouseEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdHouseEdit"))) return;
    const QString key = selectedKey(ui->lvwHouse);
    if (key.isEmpty()) return;
    frmHouse dlg(this);
    if (dlg.Edit(key)) loadHouses();
}

void frmOption::cmdHouseDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdHouseDel"))) return;
    const QString key = selectedKey(ui->lvwHouse);
    if (key.isEmpty()) return;
    if (const Refused r = RoomService().deleteRoom(key)) return ShowRefusal(this, *r);
    loadHouses();
}

// ---- goods

QString frmOption::selectedWareType() const {
    const QList<QTreeWidgetItem*> chosen = ui->lvwWareType->selectedItems();
    return chosen.isEmpty() ? QString() : StripKey(chosen.first()->data(0, Qt::UserRole).toString());
}

QString frmOption::selectedWare() const {
    const QTreeWidgetItem* item = ui->lvwWare->currentItem();
    return item ? StripKey(item->data(0, Qt::UserRole).toString()) : QString();
}

void frmOption::loadWareTypes() {
    const QString keep = selectedWareType();
    {
        // The goods list follows the type chosen by the user, not the refill.
        const QSignalBlocker quiet(ui->lvwWareType);
        ui->lvwWareType->clear();
        for (const Row r : WareService().wareTypes()) {
            const QString id = r.text(QStringLiteral("WareTypeID"));
            addRow(ui->lvwWareType, QStringLiteral("T") + id,
                   {id, r.text(QStringLiteral("wareTypeName")), yesNo(r.num(QStringLiteral("isDoDiscount"))),
                    yesNo(r.num(QStringLiteral("isNomember"))), yesNo(r.num(QStringLiteral("isHC"))),
                    yesNo(r.num(QStringLiteral("isBT")))});
        }
        fitColumns(ui->lvwWareType);
        for (int i = 0; i < ui->lvwWareType->topLevelItemCount() && !keep.isEmpty(); ++i) {
            QTreeWidgetItem* item = ui->lvwWareType->topLevelItem(i);
            if (item->text(0) == keep) ui->lvwWareType->setCurrentItem(item);
        }
    }
}

void frmOption::loadWares() {
    try {
        ShowList(ui->lvwWare, WareListName, WareService().goodsList(selectedWareType()), true);
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("LoadWare"), QStringLiteral("frmOption")));
    }
}

void frmOption::cmdWareTypeAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdWareTypeAdd"))) return;
    frmWareType dlg(this);
    if (dlg.Add()) loadWareTypes();
}

void frmOption::cmdWareTypeEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdWareTypeEdit"))) return;
    const QString key = selectedWareType();
    if (key.isEmpty()) return;
    frmWareType dlg(this);
    if (dlg.Edit(key)) {
        loadWareTypes();
        loadWares(); // the goods list shows the type's name
    }
}

void frmOption::cmdWareTypeDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdWareTypeDel"))) return;
    const QList<QTreeWidgetItem*> chosen = ui->lvwWareType->selectedItems();
    if (chosen.isEmpty()) return;
    if (const Refused r =
            WareService().deleteWareType(StripKey(chosen.first()->data(0, Qt::UserRole).toString())))
        return ShowRefusal(this, *r);
    delete chosen.first(); // the goods list follows the selection
}

void frmOption::editWareLevel(const QString& id) {
    frmWareLevel dlg(this);
    dlg.Edit(id);
}

void frmOption::cmdWareLevel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdWareLevel"))) return;
    const QString key = selectedWareType();
    if (key.isEmpty()) return;
    editWareLevel(key);
}

void frmOption::Command1_Click() {
    if (!CheckButton(this, QStringLiteral("Command1"))) return;
    editWareLevel(WareLevelService::venueWideID());
}

void frmOption::cmdWareAdd_Click() {
    if (!CheckButton(this, QStringLiteral("cmdWareAdd"))) return;
    frmWare dlg(this);
    if (dlg.Add()) loadWares();
}

void frmOption::cmdWareEdit_Click() {
    if (!CheckButton(this, QStringLiteral("cmdWareEdit"))) return;
    const QString key = selectedWare();
    if (key.isEmpty()) return;
    frmWare dlg(this);
    if (dlg.Edit(key)) loadWares();
}

void frmOption::cmdWareDel_Click() {
    if (!CheckButton(this, QStringLiteral("cmdWareDel"))) return;
    QTreeWidgetItem* item = ui->lvwWare->currentItem();
    if (!item) return;
    if (const Refused r = WareService().deleteWare(StripKey(item->data(0, Qt::UserRole).toString())))
        return ShowRefusal(this, *r);
    delete item;
}

void frmOption::cmdRefresh_Click() {
    loadWares();
}

void frmOption::mnuSetupHouseAssortSet_Click() {
    if (frmQNDisplayCase::ShowSetup(WareListName, this)) loadWares();
}
