#include "frmMain.h"
#include "AppState.h"
#include "Artwork.h"
#include "DataAdmin.h"
#include "frmSetup.h"
#include "frmUpdate.h"
#include "Desktop.h"
#include "Ini.h"
#include "Log.h"
#include "MainCommands.h"
#include "MessageBox.h"
#include "Puissance.h"
#include "RoomBoard.h"
#include "Settings.h"
#include "Val.h"
#include "frmAbout.h"
#include "frmChangePw.h"
#include "frmChongzhiList.h"
#include "frmEmployeeList.h"
#include "frmLogin.h"
#include "frmMemberList.h"
#include "frmLog.h"
#include "frmOperatorList.h"
#include "frmOption.h"
#include "frmSetupMember.h"
#include "StockView.h"
#include "frmSupplierList.h"
#include "frmWarehouseNum.h"
#include "frmWareIn.h"
#include "frmWareLoss.h"
#include "StockRecords.h"
#include "frmCheckForm.h"
#include "frmShouyinInfo.h"
#include "frmFind.h"
#include "frmBusReorder.h"
#include "frmChart.h"
#include "frmFindIncome.h"
#include "ui_frmMain.h"
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPrinterInfo>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include "ChangeFeed.h"
#include <QToolBar>

namespace {
// Opens a report window on a preset period (0 today, 1 this week, 2 this month).
template <class W> std::function<void()> periodWindow(QWidget* parent, int period) {
    return [parent, period] {
        W dlg(parent);
        dlg.ShowMe(period);
    };
}
} // namespace

frmMain::frmMain(QWidget* parent) : QMainWindow(parent), ui(std::make_unique<Ui::frmMain>()) {
    ui->setupUi(this);
    setWindowTitle(App().AppTitle);
    // 8880 x 6510 twips at 15 twips a pixel.
    setMinimumSize(592, 434);
    ui->ctbThis->setCurrentIndex(1);

    m_board = new RoomBoard(ui->pageBoard);
    ui->layBoard->addWidget(m_board);
    // Refresh seconds, at the end of the board's row.
    m_board->toolRow()->addWidget(new QLabel(QStringLiteral("刷新时间(秒):"), m_board));
    m_txtTime = new QLineEdit(m_board);
    m_txtTime->setObjectName(QStringLiteral("txtTime"));
    m_txtTime->setMaximumWidth(60);
    m_board->toolRow()->addWidget(m_txtTime);
    connect(m_txtTime, &QLineEdit::editingFinished, this, &frmMain::txtTime_LostFocus);

    m_tmRefurbish = new QTimer(this);
    m_tmRefurbish->setObjectName(QStringLiteral("tmRefurbish"));
    connect(m_tmRefurbish, &QTimer::timeout, m_board, &RoomBoard::LoadRoomTabs);
    // Other tills' changes show at once; the timer stays for whatever a notice misses.
    connect(&ChangeFeed::main(), &ChangeFeed::changed, m_board, &RoomBoard::applyChanges);

    buildMenus();
    buildToolbar();
    buildStatusBar();
    buildHelpPanel();
    wireBoard();
    buildHomePage();

    wire(QStringLiteral("mnuExit"), [this] { close(); });
    wire(QStringLiteral("mnuRelogin"), [this] { Relogin(); });
    wire(QStringLiteral("mnuShowToolbar"), [this] { m_tbrMain->setVisible(action(QStringLiteral("mnuShowToolbar"))->isChecked()); });
    wire(QStringLiteral("mnuShowToolbarText"), [this] {
        m_tbrMain->setToolButtonStyle(action(QStringLiteral("mnuShowToolbarText"))->isChecked() ? Qt::ToolButtonTextUnderIcon
                                                                                             : Qt::ToolButtonIconOnly);
    });
    wire(QStringLiteral("mnuQNHelp"), [this] {
        m_firstRunHelp = false;
        App().IsDynamicHelp = action(QStringLiteral("mnuQNHelp"))->isChecked();
        m_helpDock->setVisible(App().IsDynamicHelp);
        if (App().IsDynamicHelp) showHelpFor(QApplication::focusWidget());
    });
    // The desktop's calculator; the message only when there is none.
    wire(QStringLiteral("mnuOtherToolsCalc"), [this] {
        if (!Desktop::startCalculator()) Msg::warn(this, Desktop::calculatorMissingText());
    });
    wire(QStringLiteral("mnuOtherToolsNotepad"), [] {
        if (!Desktop::startTextEditor()) Msg::warn(nullptr, QStringLiteral("没有找到可用的文本编辑器程序！"));
    });
    wire(QStringLiteral("mnuAbout"), [this] {
        frmAbout dlg(this);
        dlg.exec();
    });
    const auto showOptions = [this] {
        frmOption dlg(this);
        dlg.ShowMe();
    };
    wire(QStringLiteral("mnuBusCommon"), showOptions);
    const auto showEmployees = [this] {
        frmEmployeeList dlg(this);
        dlg.ShowMe();
    };
    wire(QStringLiteral("mnuEmployee"), showEmployees);
    wire(QStringLiteral("tbrEMPLOYEE"), [this] { runCommand(QStringLiteral("mnuEmployee")); });
    wire(QStringLiteral("mnuMember"), [this] {
        frmMemberList dlg(this);
        dlg.ShowMe();
    });
    // The menu item checks C007 and C020 before these run.
    wire(QStringLiteral("mnuSetupMember"), [this] {
        frmSetupMember dlg(this);
        dlg.ShowMe();
    });
    const auto showChongzhi = [this] {
        frmChongzhiList dlg(this);
        dlg.ShowMe(0);
    };
    wire(QStringLiteral("mnuFindChongzhi"), showChongzhi);
    wire(QStringLiteral("tbrCHONGZHI"), [this] { runCommand(QStringLiteral("webChongzhi")); });
    wire(QStringLiteral("mnuChangePw"), [this] {
        frmChangePw dlg(this);
        dlg.ShowMe(1, App().CurrentOperatorID);
    });
    // Opening the list is free; its buttons ask for the right to manage operators.
    wire(QStringLiteral("mnuOperator"), [this] {
        frmOperatorList dlg(this);
        dlg.ShowMe();
    });
    wire(QStringLiteral("mnuLog"), [this] {
        frmLog dlg(this);
        dlg.ShowMe();
    });
    // After a restore or a purge the program ends at once, as nothing loaded may outlive the data.
    wire(QStringLiteral("mnuSetup"), [this] {
        frmSetup dlg(this);
        dlg.ShowMe();
        if (dlg.programMustEnd()) {
            m_exiting = true;
            QCoreApplication::exit(0);
        }
    });
    const auto showUpdate = [this] {
        frmUpdate dlg(this);
        dlg.ShowMe();
    };
    wire(QStringLiteral("mnuDBSQL"), showUpdate);
    wire(QStringLiteral("mnuUpdate"), showUpdate);
    wire(QStringLiteral("tbrOPTION"), [this] { runCommand(QStringLiteral("mnuBusCommon")); });
    // Stock: the suppliers, and the stock on hand while stock keeping is on.
    wire(QStringLiteral("mnuSupplierList"), [this] {
        frmSupplierList dlg(this);
        dlg.ShowMe();
    });
    wire(QStringLiteral("mnuWareIn"), [this] {
        if (App().IsUseWareHouse != 1) return Msg::info(this, StockSwitchedOffText());
        frmWareIn dlg(this);
        dlg.Add();
    });
    // The cashier's reconciliation, from the menu and the toolbar alike.
    wire(QStringLiteral("mnuCheckForm"), [this] {
        frmCheckForm dlg(this);
        dlg.Edit(App().CurrentOperatorID);
    });
    wire(QStringLiteral("tbrCHECKFORM"), [this] { runCommand(QStringLiteral("mnuCheckForm")); });
    wire(QStringLiteral("mnuCheckInfo"), [this] {
        frmShouyinInfo dlg(this);
        dlg.ShowMe();
    });
    // The reports that open on today, this week or this month, from the menu and the home page.
    for (int p = 0; p < 3; ++p) {
        wire(p == 0 ? QStringLiteral("mnuFind") : QStringLiteral("webFind%1").arg(p), periodWindow<frmFind>(this, p));
        wire(p == 0 ? QStringLiteral("mnuBusFindIncome") : QStringLiteral("webFindIncome%1").arg(p),
             periodWindow<frmFindIncome>(this, p));
        wire(p == 0 ? QStringLiteral("mnuBusReorder") : QStringLiteral("webBusReorder%1").arg(p),
             periodWindow<frmBusReorder>(this, p));
    }
    wire(QStringLiteral("mnuFindChart"), [this] {
        frmChart dlg(this);
        dlg.ShowMe();
    });
    wire(QStringLiteral("mnuWareInList"), [this] {
        frmWareInList dlg(this);
        dlg.ShowMe(0);
    });
    wire(QStringLiteral("mnuShowWareLossList"), [this] {
        frmWareLossList dlg(this);
        dlg.ShowMe(0);
    });
    wire(QStringLiteral("mnuWareLoss"), [this] {
        frmWareLoss dlg(this);
        dlg.Add();
    });
    wire(QStringLiteral("mnuWarehouseNum"), [this] {
        if (App().IsUseWareHouse != 1) return Msg::info(this, StockSwitchedOffText());
        frmWarehouseNum::ShowMe(this);
    });
    wire(QStringLiteral("mnuFindHouse"), [this] {
        ui->ctbThis->setCurrentIndex(1);
        if (auto* find = findChild<QLineEdit*>(QStringLiteral("txtFindHouse"))) {
            find->setFocus();
            find->selectAll();
        }
    });
}

frmMain::~frmMain() {
    ChangeFeed::main().stop();
}

QWidget* frmMain::boardPage() const { return ui->pageBoard; }

QAction* frmMain::action(const QString& name) const { return m_actions.value(name); }

void frmMain::wire(const QString& name, std::function<void()> handler) {
    m_handlers.insert(name, std::move(handler));
    if (QAction* a = action(name)) a->setEnabled(true);
}

void frmMain::runCommand(const QString& name) {
    const auto it = std::find_if(MenuCommands().begin(), MenuCommands().end(),
                                 [&](const MenuCommand& c) { return c.name == name; });
    if (it != MenuCommands().end() && !it->right.isEmpty() && !CheckPuissance(it->right)) return;
    if (auto h = m_handlers.value(name)) {
        announce(QString()); // the last answer stands until the next action
        h();
    }
}

void frmMain::announce(const QString& text) {
    m_sbAction->setText(text);
}

QString frmMain::announced() const {
    return m_sbAction->text();
}

void frmMain::buildMenus() {
    QHash<QString, QMenu*>& menus = m_menus;
    for (const MenuCommand& c : MenuCommands()) {
        if (c.menu.isEmpty()) continue; // the home page's own commands
        QMenu*& menu = menus[c.menu];
        if (!menu) {
            menu = menuBar()->addMenu(c.menu);
            if (m_menus.size() == 1) menu->setObjectName(QStringLiteral("mnuOperation"));
        }
        if (c.name.isEmpty()) {
            menu->addSeparator();
            continue;
        }
        QAction* a = menu->addAction(c.caption);
        a->setObjectName(c.name);
        a->setCheckable(c.checkable);
        if (!c.shortcut.isEmpty()) {
            a->setShortcut(QKeySequence(c.shortcut));
            a->setShortcutContext(Qt::ApplicationShortcut);
        }
        a->setEnabled(false); // until its feature wires it
        connect(a, &QAction::triggered, this, [this, name = c.name] { runCommand(name); });
        m_actions.insert(c.name, a);
    }
}

void frmMain::buildToolbar() {
    m_tbrMain = addToolBar(QStringLiteral("工具栏"));
    m_tbrMain->setObjectName(QStringLiteral("tbrMain"));
    m_tbrMain->setMovable(false);
    m_tbrMain->setIconSize(QSize(32, 32));
    m_tbrMain->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    for (const ToolCommand& t : ToolCommands()) {
        QAction* a = m_tbrMain->addAction(ToolIcon(t.glyph, QColor(t.color)), t.caption);
        a->setObjectName(QStringLiteral("tbr") + t.key);
        a->setEnabled(false);
        connect(a, &QAction::triggered, this, [this, key = t.key] { toolbarClicked(key); });
        m_actions.insert(QStringLiteral("tbr") + t.key, a);
        if (t.key == QLatin1String("RELOGIN")) m_tbrMain->insertSeparator(a);
    }
    // Keys that work already.
    // The toolbar runs the commands of the one table, rights and all.
    wire(QStringLiteral("tbrRELOGIN"), [this] { runCommand(QStringLiteral("mnuRelogin")); });
    wire(QStringLiteral("tbrEXIT"), [this] { runCommand(QStringLiteral("mnuExit")); });
    wire(QStringLiteral("tbrCOMMON"), [this] { runCommand(QStringLiteral("webCommon")); });
    wire(QStringLiteral("tbrREPORT"), [] {}); // recognised, nothing behind it
}

void frmMain::toolbarClicked(const QString& key) {
    if (auto h = m_handlers.value(QStringLiteral("tbr") + key.toUpper())) h();
}

void frmMain::buildStatusBar() {
    m_sbAppName = new QLabel(App().AppTitle + QLatin1Char(' ') + App().AppVersionText, this);
    m_sbAppName->setObjectName(QStringLiteral("AppName"));
    m_sbOperator = new QLabel(this);
    m_sbOperator->setObjectName(QStringLiteral("OperatorName"));
    m_sbAction = new QLabel(this);
    m_sbAction->setObjectName(QStringLiteral("sbAction"));
    QFont bold = m_sbAction->font();
    bold.setBold(true);
    m_sbAction->setFont(bold);
    m_sbAction->setStyleSheet(QStringLiteral("color:#1b5e20"));
    ui->SB->addWidget(m_sbAction, 2);
    ui->SB->addWidget(m_sbAppName, 1);
    ui->SB->addPermanentWidget(m_sbOperator);
}

void frmMain::buildHelpPanel() {
    m_helpDock = new QDockWidget(QStringLiteral("动态帮助"), this);
    m_helpDock->setObjectName(QStringLiteral("dockHelp"));
    m_txtHelp = new QPlainTextEdit(m_helpDock);
    m_txtHelp->setObjectName(QStringLiteral("txtHelp"));
    m_txtHelp->setReadOnly(true);
    m_txtHelp->setFocusPolicy(Qt::NoFocus);
    m_helpDock->setWidget(m_txtHelp);
    m_helpDock->setFeatures(QDockWidget::DockWidgetClosable);
    addDockWidget(Qt::RightDockWidgetArea, m_helpDock);
    m_helpDock->hide();
    connect(m_helpDock, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        if (!visible && !isMinimized() && isVisible()) {
            action(QStringLiteral("mnuQNHelp"))->setChecked(false);
            App().IsDynamicHelp = false;
        }
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { showHelpFor(now); });
    connect(ui->ctbThis, &QTabWidget::currentChanged, this, [this] { showHelpFor(QApplication::focusWidget()); });
}

void frmMain::showHelpFor(QWidget* focused) {
    if (!App().IsDynamicHelp || !m_helpDock->isVisible()) return;
    QWidget* form = focused ? focused->window() : this;
    QString key = form->objectName().mid(3).toLower();
    if (form == this) {
        const int page = ui->ctbThis->currentIndex();
        const QString sub = page == 2 ? QStringLiteral("memo") : QStringLiteral("board");
        const QString text = GetHelpText(key + QLatin1Char('-') + sub);
        if (!text.trimmed().isEmpty()) {
            m_txtHelp->setPlainText(text);
            return;
        }
    }
    m_txtHelp->setPlainText(GetHelpText(key));
}

void frmMain::Init() {
    try {
        App().DefaultPrinterName = QPrinterInfo::defaultPrinterName();
        // An error here keeps the values read so far and the rest of the start runs.
        if (const std::optional<DbError> e = LoadSetupValue())
            Msg::critical(this, e->message(QStringLiteral("LoadSetupValue"), QStringLiteral("mdMain"),
                                           QStringLiteral("Module")));
        // What cannot be read stays empty or off; the help, memo and board follow all the same.
        qint64 seconds = 0;
        try {
            LoadCompanyInfo();
            seconds = RoundEven(qMin(Val(GetSetup(QStringLiteral("RefurbishTime"))), 86400.0));
        } catch (const DbError& e) {
            Msg::critical(this, e.message(QStringLiteral("Init"), QStringLiteral("frmMain")));
        }
        if (seconds >= 3) {
            m_txtTime->setText(QString::number(seconds));
            m_tmRefurbish->setInterval(int(seconds * 1000));
            m_tmRefurbish->start();
        } else {
            m_txtTime->setText(QStringLiteral("0"));
            m_tmRefurbish->stop();
        }

        const bool firstRun = Val(GetIni(QStringLiteral("IsTopRun"))) != 1.0;
        const bool chosen = GetIni(QStringLiteral("IsOpenHelp")) == QLatin1String("Y");
        const bool help = firstRun || chosen;
        // Shown for the first run only: not remembered as the user's choice.
        m_firstRunHelp = help && !chosen;
        action(QStringLiteral("mnuQNHelp"))->setChecked(help);
        App().IsDynamicHelp = help;
        m_helpDock->setVisible(help);

        const bool toolbar = GetIni(QStringLiteral("IsShowToolbar")) != QLatin1String("N");
        m_tbrMain->setVisible(toolbar);
        action(QStringLiteral("mnuShowToolbar"))->setChecked(toolbar);
        action(QStringLiteral("mnuShowToolbarText"))->setChecked(true);

        QString memo = GetIni(QStringLiteral("Remind"));
        memo.replace(QLatin1Char('|'), QLatin1Char('\n'));
        ui->txtMemo->setPlainText(memo);
        refreshOperatorPanel();
        ChangeFeed::main().start();
        m_board->LoadRoomTabs();
        // The page to start on: 1 the board, 2 the memo, anything else the home page.
        const int top = int(Val(GetIni(QStringLiteral("ThisTopWeb"))));
        if (top == 1)
            ui->ctbThis->setCurrentIndex(1);
        else if (top == 2)
            ui->ctbThis->setCurrentIndex(2);
        else
            ShowHomePage(false);
        if (top == 1) m_board->currentView()->setFocus();
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("Init"), QStringLiteral("frmMain")));
    }
}

void frmMain::refreshOperatorPanel() {
    m_sbOperator->setText(QStringLiteral("操作员：") + App().CurrentOperatorName);
    m_sbAppName->setText(App().AppTitle + QLatin1Char(' ') + App().AppVersionText);
}

void frmMain::txtTime_LostFocus() {
    // A number no timer can hold counts as too short a time, like any other bad one.
    const double v = ValFits(m_txtTime->text(), Range::Int32) ? Val(m_txtTime->text()) : -1;
    if (v == 0) {
        m_tmRefurbish->stop();
    } else if (v >= 3) {
        m_tmRefurbish->setInterval(int(qMin<double>(v, 86400) * 1000));
        m_tmRefurbish->start();
    } else {
        Msg::warn(this, QStringLiteral("您设置的刷新时间小于3秒，系统将取消自动刷新功能！"));
        m_txtTime->setText(QStringLiteral("0"));
        m_tmRefurbish->stop();
    }
}

void frmMain::SaveMemo() {
    QString memo = ui->txtMemo->toPlainText();
    memo.replace(QLatin1String("\r\n"), QLatin1String("|")).replace(QLatin1Char('\n'), QLatin1Char('|'));
    SetIni(QStringLiteral("Remind"), memo);
}

void frmMain::SaveInfo() {
    QString step;
    try {
        SetIni(QStringLiteral("IsTopRun"), QStringLiteral("1"));
        SetIni(QStringLiteral("IsOpenHelp"),
               action(QStringLiteral("mnuQNHelp"))->isChecked() && !m_firstRunHelp ? QStringLiteral("Y")
                                                                                   : QStringLiteral("N"));
        SaveMemo();
        TrimLog();
        SetSetup(QStringLiteral("RefurbishTime"), QString::number(Val(m_txtTime->text()), 'g', 15));
        SetIni(QStringLiteral("IsShowToolbar"), m_tbrMain->isVisible() ? QStringLiteral("Y") : QStringLiteral("N"));
    } catch (const DbError& e) {
        Msg::critical(this, e.message(QStringLiteral("SaveInfo"), QStringLiteral("frmMain")));
    }
    if (App().IsDBBackup) {
        const QString error = DataAdmin::BackupDatabase(QString(), true);
        if (!error.isEmpty()) Msg::critical(this, DataAdmin::BackupErrorText(error));
    }
}

void frmMain::Relogin() {
    hide();
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != this && w->isVisible()) w->close();
    AppState& a = App();
    a.CurrentOperatorID.clear();
    a.CurrentOperatorName.clear();
    a.CurrentDiscountLimit = 1.0;
    // The sign-in reopens the database; the board waits for it, whatever the outcome.
    const bool refreshing = m_tmRefurbish->isActive();
    m_tmRefurbish->stop();
    ChangeFeed::main().stop();
    frmLogin login;
    if (login.exec() == QDialog::Accepted) {
        show();
        refreshOperatorPanel();
        ChangeFeed::main().start();
        m_board->LoadRoomTabs();
        if (refreshing) m_tmRefurbish->start();
        return;
    }
    m_exiting = true;
    QCoreApplication::exit(0);
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (m_exiting) return event->accept();
    if (!Msg::confirm(this, QStringLiteral("您真要退出本系统吗？"))) return event->ignore();
    SaveInfo();
    m_exiting = true;
    event->accept();
    QCoreApplication::exit(0);
}

void frmMain::changeEvent(QEvent* event) { QMainWindow::changeEvent(event); }

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // A short screen (a small one, or a scaled one) keeps its height for the rooms.
    if (const QScreen* s = screen())
        m_tbrMain->setIconSize(s->availableGeometry().height() < 700 ? QSize(22, 22) : QSize(32, 32));
}
