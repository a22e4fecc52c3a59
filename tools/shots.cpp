// Renders the program's windows to PNG files for a look: shots --home DIR --out DIR
#include "ShotSave.h"
#include "AppInit.h"
#include "AppState.h"
#include "Db.h"
#include "Demo.h"
#include "MessageBox.h"
#include "Venue.h"
#include "frmAbout.h"
#include "frmDbLink.h"
#include "frmLogin.h"
#include "frmMain.h"
#include "SupplierService.h"
#include "frmSupplier.h"
#include "frmSupplierList.h"
#include "frmWarehouseNum.h"
#include "StockRecords.h"
#include "frmCheckForm.h"
#include "frmShouyinInfo.h"
#include "WareIn.h"
#include "frmWareIn.h"
#include "frmWareLoss.h"
#include "AppState.h"
#include "ReservationService.h"
#include "frmEditReservation.h"
#include "frmReservation.h"
#include "Clock.h"
#include "Format.h"
#include <QTabWidget>
#include "frmOutSale.h"
#include "frmOption.h"
#include "frmPayLevel.h"
#include "frmEmployee.h"
#include "frmEmployeeList.h"
#include "frmLog.h"
#include "frmDataImport.h"
#include "frmSetup.h"
#include "frmUpdate.h"
#include "Ini.h"
#include <QLabel>
#include <QPushButton>
#include "frmLogSetup.h"
#include "frmOperator.h"
#include "frmOperatorList.h"
#include "Clock.h"
#include "Format.h"
#include "RoomBoard.h"
#include "RoomUse.h"
#include "frmExpenseAmalgamate.h"
#include "frmExpenseDetail.h"
#include "frmExpenseDetailInfo.h"
#include "AutoInput.h"
#include <QCheckBox>
#include "frmHouseChange.h"
#include "frmOpenHouse.h"
#include <QPushButton>
#include "frmWare.h"
#include "frmWareLevel.h"
#include "frmWareType.h"
#include <QTabWidget>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFontDatabase>
#include <QLineEdit>
#include <QTimer>
#include <QTreeWidget>
#include <cstdio>

// The slips and the printing windows (print_shots.cpp).
void PrintShots(const QString& out, const QString& runningBill);
void MemberShots(const QString& out);
void CheckoutShots(const QString& out);

namespace {
QString g_out;
void save(QWidget* w, const QString& name) {
    SaveShot(w, g_out, name);
}
// A busy evening on the demo venue: rooms in use with orders, one stopped, one being
// cleaned, one reserved.
QString busyEvening() {
    const QDateTime now = Now();
    auto roomID = [](const QString& code) {
        return DB().scalar(QStringLiteral("select TheID from The where TheCode=?"), {code}).toString();
    };
    const Rows wares = DB().query(QStringLiteral("select WareID, Price from Ware order by WareCode"));
    QString first;
    int minutes[] = {185, 95, 42, 8};
    const char* codes[] = {"A01", "A02", "A04", "A07"};
    for (int i = 0; i < 4; ++i) {
        Clock::install(std::make_unique<FixedClock>(now.addSecs(-60 * minutes[i])));
        const Opened o = RoomUseService().open({roomID(QLatin1String(codes[i])), QStringLiteral("老顾客"),
                                                QString::number(4 + i), {}, QStringLiteral("0"), true, 1});
        if (first.isEmpty()) first = roomID(QLatin1String(codes[i]));
        for (int l = 0; l < 3 + 2 * i && l < wares.count(); ++l) {
            const Row w = wares[(l * 5 + i) % wares.count()];
            const double n = 1 + (l % 3);
            DB().exec(QStringLiteral("insert into ExpenseDetail (DetailID, ExpenseID, WareID, num, Price, thePrice, "
                                     "ExpenseMoney, oughtMoney, isFree, isdel, operatorname, ExpenseTime) values "
                                     "(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '系统管理员', ?)"),
                      {o.expenseID + QString::number(l), o.expenseID, w.text(QStringLiteral("WareID")), n,
                       w.money(QStringLiteral("Price")), w.money(QStringLiteral("Price")),
                       w.money(QStringLiteral("Price")).times(n), w.money(QStringLiteral("Price")).times(n),
                       l == 2 ? 1 : 0, l == 4 ? 1 : 0, TimeText(now.addSecs(-60 * (minutes[i] - 5 * l)))});
        }
    }
    Clock::install(std::make_unique<FixedClock>(now));
    DB().exec(QStringLiteral("update The set State=2 where TheCode='A03'"));
    DB().exec(QStringLiteral("update The set State=4, Other1=? where TheCode='A05'"), {TimeText(now.addSecs(1200))});
    DB().exec(QStringLiteral("update The set State=3 where TheCode='A06'"));
    return first;
}
} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    InitResources();
    const ShotOptions opts = ParseShotOptions(app);
    g_out = opts.out;
    if (QFontDatabase::hasFamily(QStringLiteral("Noto Sans CJK SC"))) QApplication::setFont(QFont(QStringLiteral("Noto Sans CJK SC"), 10));
    const QString dir = Venue::resolveHome(opts.home);
    Venue::prepare(dir);
    AppInit(dir);
    Msg::installRecorder();

    frmLogin login;
    save(&login, QStringLiteral("frmLogin"));
    login.findChild<QLineEdit*>(QStringLiteral("txtUserName"))->setText(QStringLiteral("admin"));
    login.cmdOK_Click();
    AddDemoVenue(DB());
    frmDbLink link(dir);
    save(&link, QStringLiteral("frmDbLink"));
    frmAbout about;
    save(&about, QStringLiteral("frmAbout"));
    frmMain main;
    main.resize(1366, 768);
    main.Init();
    save(&main, QStringLiteral("frmMain"));
    const QString busy = busyEvening();
    main.board()->LoadRoomTabs();
    main.board()->selectRoom(busy);
    save(&main, QStringLiteral("board-icons"));
    main.findChild<QPushButton*>(QStringLiteral("cmdView"))->click();
    save(&main, QStringLiteral("board-details"));
    main.findChild<QPushButton*>(QStringLiteral("cmdView"))->click();
    main.resize(1024, 640);
    save(&main, QStringLiteral("board-small"));
    const QString freeRoom = DB().scalar(QStringLiteral("select TheID from The where TheCode='B01'")).toString();
    frmOpenHouse open;
    open.prepare(freeRoom);
    save(&open, QStringLiteral("frmOpenHouse"));
    frmHouseChange change;
    change.prepare(main.board()->selectedTag());
    save(&change, QStringLiteral("frmHouseChange"));
    frmExpenseAmalgamate merge;
    merge.prepare();
    save(&merge, QStringLiteral("frmExpenseAmalgamate"));
    // Ordering into the first busy room, with a few lines of this opening beside the earlier ones.
    SaveAutoInput(QStringLiteral("DetailDescription"), QStringLiteral("少冰"));
    SaveAutoInput(QStringLiteral("DetailDescription"), QStringLiteral("先上果盘"));
    frmExpenseDetail order;
    order.Init(DB().scalar(QStringLiteral("select ExpenseID from The where TheID=?"), {busy}).toString());
    order.findChild<QCheckBox*>(QStringLiteral("chkAdd"))->setChecked(true);
    for (const char* typed : {"qdpj 6", "xgp", "kkkl 2"}) {
        order.findChild<QLineEdit*>(QStringLiteral("txtInput"))->setText(QLatin1String(typed));
        order.txtInput_Enter();
    }
    save(&order, QStringLiteral("frmExpenseDetail"));
    order.findChild<QTabWidget*>(QStringLiteral("ctabThis"))->setCurrentIndex(1);
    save(&order, QStringLiteral("frmExpenseDetail-tree"));
    frmExpenseDetailInfo note;
    note.prepare(order.entry().batch().first().detailID);
    save(&note, QStringLiteral("frmExpenseDetailInfo"));
    note.reject();
    order.reject();
    frmOption option;
    auto* tabs = option.findChild<QTabWidget*>(QStringLiteral("ctbThis"));
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        save(&option, QStringLiteral("frmOption-%1").arg(i));
    }
    frmPayLevel tariff;
    tariff.prepare(QStringLiteral("00000000000000001"));
    save(&tariff, QStringLiteral("frmPayLevel-time"));
    tariff.findChild<QTabWidget*>(QStringLiteral("ctbThis"))->setCurrentIndex(0);
    save(&tariff, QStringLiteral("frmPayLevel-fixed"));
    // Goods: the options page with a type chosen, the article and type dialogs, the periods.
    tabs->setCurrentWidget(option.findChild<QWidget*>(QStringLiteral("tabWare")));
    auto* wareTypes = option.findChild<QTreeWidget*>(QStringLiteral("lvwWareType"));
    wareTypes->setCurrentItem(wareTypes->topLevelItem(0));
    save(&option, QStringLiteral("frmOption-goods"));
    const QString beer = DB().scalar(QStringLiteral("select WareID from Ware order by WareCode")).toString();
    App().IsUseWareHouse = 1;
    frmWare ware;
    ware.startEdit(beer);
    save(&ware, QStringLiteral("frmWare-stock"));
    App().IsUseWareHouse = 0;
    frmWare newWare;
    newWare.startAdd();
    save(&newWare, QStringLiteral("frmWare-add"));
    frmWareType wareType;
    wareType.startEdit(QStringLiteral("01"));
    save(&wareType, QStringLiteral("frmWareType"));
    frmWareLevel periods;
    periods.prepare(QStringLiteral("01"));
    periods.findChild<QLineEdit*>(QStringLiteral("txtWareLevelName"))
        ->setText(QStringLiteral("夜场酒水八折"));
    for (const auto& [box, hour] : {std::pair{"cmbEnd1", "18"}, std::pair{"cmbEnd2", "24"}}) {
        auto* end = periods.findChild<QComboBox*>(QLatin1String(box));
        end->setCurrentIndex(end->findText(QLatin1String(hour)));
        Q_EMIT end->activated(end->currentIndex());
    }
    periods.findChild<QLineEdit*>(QStringLiteral("txtDiscount2"))->setText(QStringLiteral("0.8"));
    save(&periods, QStringLiteral("frmWareLevel"));
    MemberShots(g_out);
    CheckoutShots(g_out);
    {
        // The counter till with three lines keyed in, one of them a gift.
        frmOutSale till;
        till.resize(1366, 768);
        till.Init();
        auto* input = till.findChild<QLineEdit*>(QStringLiteral("txtInput"));
        auto* free = till.findChild<QCheckBox*>(QStringLiteral("chkFree"));
        auto* list = till.findChild<QTreeWidget*>(QStringLiteral("lvwWare"));
        for (int i = 0; i < 3 && i < list->topLevelItemCount(); ++i) {
            list->setCurrentItem(list->topLevelItem(i * 2));
            free->setChecked(i == 2);
            till.AddLine();
        }
        input->setFocus();
        save(&till, QStringLiteral("frmOutSale"));
    }
    frmEmployeeList staff;
    staff.prepare(false);
    staff.resize(900, 420);
    save(&staff, QStringLiteral("frmEmployeeList"));
    frmEmployee person;
    person.startEdit(DB().scalar(QStringLiteral("select EmployeeID from Employee order by Employeecode")).toString());
    save(&person, QStringLiteral("frmEmployee"));
    frmOperatorList operators;
    operators.LoadData();
    save(&operators, QStringLiteral("frmOperatorList"));
    frmOperator admin;
    admin.startEdit(QStringLiteral("qa042"));
    save(&admin, QStringLiteral("frmOperator"));
    frmLog log;
    log.cmdFind_Click();
    save(&log, QStringLiteral("frmLog"));
    frmLogSetup logSetup;
    logSetup.load();
    save(&logSetup, QStringLiteral("frmLogSetup"));
    // The home page, the help, and reservations: rooms reserved on the board, the list, the dialog.
    main.resize(1366, 768);
    main.ShowHomePage(false);
    save(&main, QStringLiteral("home"));
    main.runCommand(QStringLiteral("mnuHelpfile"));
    save(&main, QStringLiteral("help"));
    const QStringList reserve = {QStringLiteral("B02"), QStringLiteral("B03"), QStringLiteral("B05")};
    int hours = 1;
    for (const QString& code : reserve) {
        ReservationInput r;
        r.customerName = QStringLiteral("张先生");
        r.customerPhone = QStringLiteral("13800138000");
        r.customerNum = QStringLiteral("8");
        r.theID = DB().scalar(QStringLiteral("select TheID from The where TheCode=?"), {code}).toString();
        r.assortID = ReservationService().assortOf(r.theID);
        r.start = ToMinute(Now()).addSecs(3600 * hours);
        r.end = r.start.addSecs(3600);
        r.description = QStringLiteral("生日聚会，需要蛋糕");
        r.isNow = code != QLatin1String("B05");
        ReservationService().save(r, ReservationMode::Add, {});
        hours += 7;
    }
    main.findChild<QTabWidget*>(QStringLiteral("ctbThis"))->setCurrentIndex(1);
    main.board()->LoadRoomTabs();
    main.board()->findRoom(QStringLiteral("B02"));
    save(&main, QStringLiteral("board-reserved"));
    frmReservation reservations;
    reservations.LoadReservation();
    save(&reservations, QStringLiteral("frmReservation"));
    frmEditReservation editReservation;
    editReservation.prepare(ReservationMode::Add, main.board()->selectedTheID(), {}, true);
    save(&editReservation, QStringLiteral("frmEditReservation"));
    // Stock: the suppliers and the stock on hand.
    for (const char* name : {"青岛啤酒华东供应站", "可口可乐杭州分公司", "滨江副食批发"}) {
        SupplierInput s{{QStringLiteral("SupplierName"), QString::fromUtf8(name)},
                        {QStringLiteral("linkmanname"), QStringLiteral("王经理")},
                        {QStringLiteral("phone"), QStringLiteral("0571-88001234")}};
        SupplierService().save({}, s);
    }
    frmSupplierList suppliers;
    suppliers.prepare(false);
    save(&suppliers, QStringLiteral("frmSupplierList"));
    frmSupplier supplier;
    supplier.prepare(DB().scalar(QStringLiteral("select min(SupplierID) from Supplier")).toString());
    save(&supplier, QStringLiteral("frmSupplier"));
    DB().exec(QStringLiteral("update Ware set minnum=20 where WareID in (select WareID from Ware order by WareCode limit 3)"));
    // A receipt with a return line, an adjustment, and their records.
    App().IsUseWareHouse = 1;
    const QStringList wares = [] {
        QStringList out;
        for (const Row r : DB().query(QStringLiteral("select WareID, WareName, WareUnit, Price from Ware order by WareCode limit 3")))
            out << r.text(QStringLiteral("WareID")) + u'|' + r.text(QStringLiteral("WareName")) + u'|' +
                       r.text(QStringLiteral("WareUnit")) + u'|' + QString::number(r.money(QStringLiteral("Price")).raw());
        return out;
    }();
    const QString firstSupplier = DB().scalar(QStringLiteral("select min(SupplierID) from Supplier")).toString();
    QList<WareInLine> received;
    for (int i = 0; i < wares.size(); ++i) {
        const QStringList w = wares[i].split(u'|');
        const WareInGoods g{w[0], w[1], w[2], Money::fromRaw(w[3].toLongLong())};
        received << MakeReceiptLine(g, QString::number(24 * (i + 1)), QString::number(120 * (i + 1)), QStringLiteral("整箱"),
                                    false, firstSupplier, QStringLiteral("青岛啤酒华东供应站"));
    }
    received << MakeReceiptLine(WareInGoods{received[0].wareID, received[0].wareName, {}, {}}, QStringLiteral("2"),
                                QStringLiteral("10"), QStringLiteral("破损退回"), true, firstSupplier,
                                QStringLiteral("青岛啤酒华东供应站"));
    ReceiptService().save({Now().date(), QStringLiteral("老王"), QStringLiteral("周进货"), QStringLiteral("JH-001"), firstSupplier}, received);
    frmWareIn wareIn;
    wareIn.prepare();
    for (const WareInLine& l : received)
        AddStockLine(wareIn.findChild<QTreeWidget*>(QStringLiteral("lvwThis")), l);
    save(&wareIn, QStringLiteral("frmWareIn"));
    frmWareLoss wareLoss;
    wareLoss.prepare();
    save(&wareLoss, QStringLiteral("frmWareLoss"));
    frmWareInList wareInList;
    wareInList.prepare(0);
    save(&wareInList, QStringLiteral("frmWareInList"));
    wareInList.findChild<QTabWidget*>(QStringLiteral("ctabThis"))->setCurrentIndex(1);
    save(&wareInList, QStringLiteral("frmWareInList-lines"));
    wareInList.findChild<QTabWidget*>(QStringLiteral("ctabThis"))->setCurrentIndex(2);
    save(&wareInList, QStringLiteral("frmWareInList-sums"));
    frmWareLossList wareLossList;
    wareLossList.prepare(0);
    save(&wareLossList, QStringLiteral("frmWareLossList"));
    frmCheckForm checkForm;
    checkForm.LoadData();
    save(&checkForm, QStringLiteral("frmCheckForm"));
    frmShouyinInfo shouyin;
    shouyin.cmdFind_Click();
    save(&shouyin, QStringLiteral("frmShouyinInfo"));
    frmWarehouseNum stock;
    stock.LoadData();
    save(&stock, QStringLiteral("frmWarehouseNum"));
    // Data management, the upgrade window with a pack waiting, and an import preview with
    // a row it refuses.
    frmSetup setup;
    save(&setup, QStringLiteral("frmSetup"));
    const QString pack = QDir(App().AppPath).filePath(QStringLiteral("Update/config.ini"));
    WriteIniFile(QStringLiteral("Info"), QStringLiteral("NewVer"), QStringLiteral("99"), pack);
    frmUpdate update;
    save(&update, QStringLiteral("frmUpdate"));
    QFile::remove(pack);
    const QString goods = QDir(App().AppPath).filePath(QStringLiteral("Other/goods.csv"));
    {
        const QString type = DB().scalar(QStringLiteral("select WareTypeID from WareType")).toString();
        QFile f(goods);
        if (f.open(QIODevice::WriteOnly))
            f.write(QStringLiteral("编号,名称,单位,助记码,售价,类别,库存,最低库存,进价\n"
                                   "9001,百威啤酒,瓶,BWPJ,15,%1,48,12,6.5\n9002,芝华士 12年,瓶,ZHS,688,%1,6,2,320\n"
                                   "9003,爆米花,份,BMH,十八,%1,0,0,3\n")
                        .arg(type)
                        .toUtf8());
    }
    frmDataImport import;
    import.findChild<QLineEdit*>(QStringLiteral("txtFileName"))->setText(goods);
    import.cmdShowData_Click();
    save(&import, QStringLiteral("frmDataImport"));
    PrintShots(g_out, DB().scalar(QStringLiteral("select ExpenseID from The where TheID=?"), {busy}).toString());
    DB().close();
    return 0;
}
