#include "TestKit.h"
#include "frmMain.h"
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>

namespace {
// "CheckForm"-like spellings: the word with every other letter in upper case.
QString mixedCase(const QString& word) {
    QString out = word;
    for (qsizetype i = 0; i < out.size(); i += 2)
        out[i] = out[i].toUpper();
    return out;
}

// Clicks the word's link on the home page; what modal window opened (its objectName, and the
// page it shows when it has pages), cancelled at once.
QString click(frmMain& w, const QString& word) {
    QString opened;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!d) return;
        opened = d->objectName();
        if (auto* pages = d->findChild<QTabWidget*>(u"ctbThis"_s))
            opened += u'/' + pages->currentWidget()->objectName();
        d->reject();
    });
    watch.start(10);
    w.navigate(QUrl(u"qrc:/webface/index.htm#"_s + word));
    return opened;
}
} // namespace

class TestHomePage : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // Every word of the command table, clicked on a page in mixed case: the window it leads
    // to. Words whose windows are not part of the program yet lead nowhere.
    void words_data() { // clang-format off
        columns<QString, QString>("word", "leads");
        const QList<std::pair<const char*, const char*>> rows = {
            {"common", "page 1"}, {"setwebtop", "message"},
            {"showoptionprint", "frmOption/tabPrint"}, {"showoptionpaylevel", "frmOption/tabPayLevel"},
            {"showoptionhouse", "frmOption/tabHouse"}, {"showoptionware", "frmOption/tabWare"},
            {"showoptionoperator", "frmOption/frmOperatorList"}, {"gzcl", "frmCloseHouse/tabPayAfter"},
            {"membersetup", "frmSetupMember"}, {"showsetmember", "frmSetupMember"},
            {"memberedit", "frmMemberList"}, {"showmember", "frmMemberList"}, {"employee", "frmEmployeeList"},
            {"outsale", "frmOutSale"}, {"doreservation", "frmEditReservation"}, {"showreservation", "frmReservation"},
            {"changepw", "frmChangePw"}, {"showlog", "frmLog"}, {"setuplog", "frmLogSetup"},
            {"findchongzhi0", "frmChongzhiList"}, {"chongzhi", "frmChongzhiList"}, {"appexit", "message"},
            {"checkform", "frmCheckForm"}, {"shouyininfo", "frmShouyinInfo"}, {"showsyssetup", "frmSetup"}, {"showwarehousenum", "message"}, {"supplier", "frmSupplierList"},
            {"find0", "frmFind/tabExpense"}, {"find1", "frmFind/tabExpense"}, {"find2", "frmFind/tabExpense"}, {"findbusincome0", "frmFindIncome/tabExpense"},
            {"findbusincome1", "frmFindIncome/tabExpense"}, {"findbusincome2", "frmFindIncome/tabExpense"},
            {"findpaihang", "frmBusReorder"}, {"showbusreorder0", "frmBusReorder"}, {"showbusreorder1", "frmBusReorder"},
            {"showbusreorder2", "frmBusReorder"}, {"showchart", "frmChart"}, {"dataandchart", "frmChart"}, {"wareinlist", "frmWareInList"},
            {"warelosslist", "frmWareLossList"}, {"warein", "message"}, {"wareloss", "frmWareLoss"}, {"relogin", "frmLogin"},
            {"nosuchword", ""}, {"", ""}};
        for (const auto& [word, leads] : rows)
            QTest::newRow(word) << QString::fromLatin1(word) << QString::fromLatin1(leads); // clang-format on
    }
    void words() {
        auto [word, leads] = fetch<QString, QString>("word", "leads");
        NEW_VENUE(v);
        frmMain w;
        w.Init();
        w.ShowHomePage(false);
        const QUrl page = w.browser()->source();
        Msg::setNextAnswer(QMessageBox::No); // the exit asks first: stay
        const QString opened = click(w, mixedCase(word));
        const QStringList shown = messages();
        if (leads == u"page 1"_s) {
            QCOMPARE(child<QTabWidget>(&w, "ctbThis")->currentIndex(), 1);
        } else if (leads == u"message"_s) {
            QCOMPARE(shown.size(), 1);
        } else {
            QCOMPARE(opened, leads);
            QCOMPARE(shown, QStringList());
        }
        // A link with a word never leaves the page.
        if (leads != u"page 1"_s && leads != u"frmLogin"_s) QCOMPARE(w.browser()->source(), page);
    }

    void homeAddress() {
        NEW_VENUE(v);
        frmMain w;
        w.Init();
        // The venue's own page wins over the program's.
        QDir(v.home()).mkpath(u"webface"_s);
        QFile own(v.home() + u"/webface/mine.htm"_s);
        QVERIFY(own.open(QIODevice::WriteOnly));
        own.write("<html><body><a href=\"#common\">营业</a></body></html>");
        own.close();
        QVERIFY(SetIni(u"WebTop"_s, u"mine.htm"_s));
        w.runCommand(u"mnuReturnTop"_s);
        QCOMPARE(w.browser()->source().fileName(), u"mine.htm"_s);
        // By mouse: a click on the link runs its command.
        w.resize(1000, 700);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QTextBrowser* b = w.browser();
        const QTextCursor link = b->document()->find(u"营业"_s);
        QTextCursor at(b->document());
        at.setPosition(link.selectionStart() + 1);
        QTest::mouseClick(b->viewport(), Qt::LeftButton, {}, b->cursorRect(at).center());
        QCOMPARE(child<QTabWidget>(&w, "ctbThis")->currentIndex(), 1);
        w.ShowHomePage(true);
        QCOMPARE(w.browser()->source(), QUrl(u"qrc:/webface/index.htm"_s));
        w.ShowWebPage(u"member"_s);
        QCOMPARE(w.browser()->source(), QUrl(u"qrc:/webface/member.htm"_s));
        // The "set as home" link writes the standard page's name back.
        click(w, u"SetWebTop"_s);
        QCOMPARE(GetIni(u"WebTop"_s), u"index.htm"_s);
        QCOMPARE(messages(), QStringList{u"已将此页设置为系统首页！"_s});
    }
};

QTEST_MAIN(TestHomePage)
#include "test_home_page.moc"
