// The home page of the main window: the venue's pages from webface/ (the program's own pages
// when the venue has none), whose "#" links run the commands of the one command table, so a
// right is checked in one place however a command is reached.
#include "AppState.h"
#include "Ini.h"
#include "MainCommands.h"
#include "MessageBox.h"
#include "frmChongzhiList.h"
#include "frmLogSetup.h"
#include "frmMain.h"
#include "frmOption.h"
#include "frmReservation.h"
#include "ui_frmMain.h"
#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>
#include <QTextBrowser>
#include <QToolBar>
#include <QToolButton>

namespace {
// A page of the venue folder when the venue has one, else the program's own.
QUrl pageAddress(const QString& relative) {
    const QString own = QDir(App().AppPath).filePath(relative);
    if (QFileInfo::exists(own)) return QUrl::fromLocalFile(own);
    const QString shipped = QStringLiteral(":/") + relative;
    if (QFileInfo::exists(shipped)) return QUrl(QStringLiteral("qrc") + shipped);
    return QUrl::fromLocalFile(own);
}
} // namespace

void frmMain::buildHomePage() {
    auto* bar = new QHBoxLayout;
    const auto button = [&](const char* name, const char* caption) {
        auto* b = new QToolButton(ui->pageHome);
        b->setObjectName(QLatin1String(name));
        b->setText(QString::fromUtf8(caption));
        b->setToolButtonStyle(Qt::ToolButtonTextOnly);
        bar->addWidget(b);
        return b;
    };
    QToolButton* back = button("cmdGoBack", "◀ 后退");
    QToolButton* forward = button("cmdGoForward", "前进 ▶");
    QToolButton* home = button("cmdGoHome", "⌂ 首页");
    bar->addStretch();
    m_wbr = new QTextBrowser(ui->pageHome);
    m_wbr->setObjectName(QStringLiteral("wbr"));
    m_wbr->setOpenLinks(false); // every link comes through navigate()
    m_wbr->setFrameShape(QFrame::NoFrame);
    ui->layHome->addLayout(bar);
    ui->layHome->addWidget(m_wbr, 1);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_wbr, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(m_wbr, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    connect(back, &QToolButton::clicked, m_wbr, &QTextBrowser::backward);
    connect(forward, &QToolButton::clicked, m_wbr, &QTextBrowser::forward);
    connect(home, &QToolButton::clicked, this, [this] { ShowHomePage(false); });
    connect(m_wbr, &QTextBrowser::anchorClicked, this, &frmMain::navigate);

    // The toolbar's home key, with its menu: the standard page again, or this page as home.
    if (QAction* a = action(QStringLiteral("tbrHOME"))) {
        auto* menu = new QMenu(this);
        QAction* old = menu->addAction(QStringLiteral("显示默认首页"));
        old->setObjectName(QStringLiteral("openoldweb"));
        connect(old, &QAction::triggered, this, [this] {
            ShowHomePage(true);
            SetWebTop(QString());
        });
        QAction* mine = menu->addAction(QStringLiteral("将当前页设为首页"));
        mine->setObjectName(QStringLiteral("openthisweb"));
        connect(mine, &QAction::triggered, this, [this] { SetWebTop(m_wbr->source().toString()); });
        a->setMenu(menu);
        if (auto* b = qobject_cast<QToolButton*>(m_tbrMain->widgetForAction(a)))
            b->setPopupMode(QToolButton::MenuButtonPopup);
    }
    wire(QStringLiteral("tbrHOME"), [this] { ShowHomePage(false); });
    wire(QStringLiteral("mnuReturnTop"), [this] { ShowHomePage(false); });
    wire(QStringLiteral("tbrMEMBER"), [this] { ShowWebPage(QStringLiteral("member")); });
    wire(QStringLiteral("tbrFIND"), [this] { ShowWebPage(QStringLiteral("find")); });
    wire(QStringLiteral("mnuHelpfile"), [this] {
        ui->ctbThis->setCurrentIndex(0);
        m_wbr->setSource(pageAddress(QStringLiteral("help/qnhelp.htm")));
    });

    // The home page's own commands.
    wire(QStringLiteral("webSetWebTop"), [this] { SetWebTop(QString()); });
    wire(QStringLiteral("webCommon"), [this] { ui->ctbThis->setCurrentIndex(1); });
    const std::pair<const char*, const char*> options[] = {{"webOptionPrint", "tabPrint"},
                                                           {"webOptionPayLevel", "tabPayLevel"},
                                                           {"webOptionHouse", "tabHouse"},
                                                           {"webOptionWare", "tabWare"},
                                                           {"webOptionOperator", "frmOperatorList"}};
    for (const auto& [name, page] : options)
        wire(QLatin1String(name), [this, page = QLatin1String(page)] {
            frmOption dlg(this);
            auto* tabs = dlg.findChild<QTabWidget*>(QStringLiteral("ctbThis"));
            dlg.ShowMe(tabs->indexOf(dlg.findChild<QWidget*>(page)));
        });
    wire(QStringLiteral("webReservation"), [this] { frmReservation::ShowMe(this); });
    wire(QStringLiteral("tbrRESERVATION"), [this] { runCommand(QStringLiteral("webReservation")); });
    wire(QStringLiteral("webLogSetup"), [this] {
        frmLogSetup dlg(this);
        dlg.ShowMe();
    });
    wire(QStringLiteral("webChongzhi"), [this] {
        frmChongzhiList dlg(this);
        dlg.ShowMe(0);
    });
}

void frmMain::ShowHomePage(bool useDefault) {
    ui->ctbThis->setCurrentIndex(0);
    const QString top = useDefault ? QString() : GetIni(QStringLiteral("WebTop")).trimmed();
    if (top.isEmpty() || top.compare(QLatin1String("index.htm"), Qt::CaseInsensitive) == 0)
        return m_wbr->setSource(pageAddress(QStringLiteral("webface/index.htm")));
    const QUrl url = QUrl::fromUserInput(top, QDir(App().AppPath).filePath(QStringLiteral("webface")));
    // Another site is the desktop browser's to show; the standard page stays here.
    if (!url.isLocalFile() && url.scheme() != QLatin1String("qrc")) {
        m_wbr->setSource(pageAddress(QStringLiteral("webface/index.htm")));
        QDesktopServices::openUrl(url);
        return;
    }
    m_wbr->setSource(url);
}

void frmMain::ShowWebPage(const QString& name) {
    ui->ctbThis->setCurrentIndex(0);
    m_wbr->setSource(pageAddress(QStringLiteral("webface/") + name + QStringLiteral(".htm")));
}

void frmMain::SetWebTop(const QString& page) {
    if (SetIni(QStringLiteral("WebTop"), page.isEmpty() ? QStringLiteral("index.htm") : page))
        Msg::info(this, QStringLiteral("已将此页设置为系统首页！"));
    else
        Msg::info(this, QStringLiteral("设置失败，请稍后重新！"));
}

void frmMain::navigate(const QUrl& url) {
    const QString address = url.toString();
    const qsizetype hash = address.indexOf(QLatin1Char('#'));
    if (hash >= 0) return runWord(address.mid(hash + 1));
    if (url.isRelative() || url.isLocalFile() || url.scheme() == QLatin1String("qrc"))
        m_wbr->setSource(m_wbr->source().resolved(url));
    else
        QDesktopServices::openUrl(url);
}

void frmMain::runWord(const QString& word) {
    if (const MenuCommand* c = CommandForWord(word)) runCommand(c->name);
}
