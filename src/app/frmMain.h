#pragma once
#include <QHash>
#include <QMainWindow>
#include <functional>
#include <memory>

namespace Ui {
class frmMain;
}
class QAction;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTimer;
class QTextBrowser;
class QUrl;
class QToolBar;
class QDockWidget;
class QMenu;
class RoomBoard;

// The main window: three pages (home, board, memo), the menu, the toolbar and the
// status bar. Subsystems wire their commands in; an unwired item stays disabled.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    // First load after the first sign-in.
    void Init();
    void refreshOperatorPanel();
    QAction* action(const QString& name) const;
    void wire(const QString& name, std::function<void()> handler);
    void SaveInfo();
    // The reminder memo to config.ini: at the exit, and when an error escaped everything.
    void SaveMemo();
    void Relogin();
    // The refresh seconds typed in txtTime, applied on leaving the box.
    void txtTime_LostFocus();
    QTimer* refreshTimer() const { return m_tmRefurbish; }
    QWidget* boardPage() const;
    RoomBoard* board() const { return m_board; }
    bool isWired(const QString& name) const { return m_handlers.contains(name); }
    // Runs a menu command as its menu item would: its right first, then its action.
    void runCommand(const QString& name);
    // The home page (MainHome.cpp): page 0 with the venue's pages of webface/, whose "#"
    // links run the commands of the one command table.
    void ShowHomePage(bool useDefault);
    void ShowWebPage(const QString& name);
    void SetWebTop(const QString& page);
    // A home page link: "...#word" runs the command the word names (letter case aside; an
    // unknown word does nothing), a page of this program is shown in place, any other
    // address goes to the desktop's browser.
    void navigate(const QUrl& url);
    void runWord(const QString& word);
    QTextBrowser* browser() const { return m_wbr; }
    // What the last action did, on the status bar until the next action.
    void announce(const QString& text);
    QString announced() const;

  private:
    void buildMenus();
    void buildToolbar();
    void buildStatusBar();
    void buildHelpPanel();
    void toolbarClicked(const QString& key);
    void showHelpFor(QWidget* focused);
    // The board's commands (MainBoard.cpp).
    void wireBoard();
    void buildHomePage();
    void MakeReservation();
    void ViewReservation();
    void CancelReservation();
    void applyRoomState(const QString& statusKey);
    void OpenRoom();
    void AddExpense(const QString& theID, const QString& tag);
    void HouseStop();
    void HouseResume();
    void ChangeRoom();
    void MergeBills();
    void CloseRoom();
    void PayAfter();
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

    std::unique_ptr<Ui::frmMain> ui;
    QHash<QString, QAction*> m_actions;
    QHash<QString, std::function<void()>> m_handlers;
    QHash<QString, QMenu*> m_menus;
    RoomBoard* m_board = nullptr;
    QToolBar* m_tbrMain = nullptr;
    QLabel* m_sbAppName = nullptr;
    QLabel* m_sbOperator = nullptr;
    QLabel* m_sbAction = nullptr;
    QLineEdit* m_txtTime = nullptr;
    QTimer* m_tmRefurbish = nullptr;
    QTextBrowser* m_wbr = nullptr;
    QDockWidget* m_helpDock = nullptr;
    QPlainTextEdit* m_txtHelp = nullptr;
    bool m_exiting = false;
    bool m_firstRunHelp = false; // the help is shown for the first run, not by choice
};
