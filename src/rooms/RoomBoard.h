#pragma once
#include "BoardService.h"
#include <QWidget>

class QButtonGroup;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QStackedWidget;
class QStandardItem;
class QStandardItemModel;
class QStyledItemDelegate;
class QTabBar;
class QTreeView;
class QTreeWidget;

// The room board of the main window: a tab per room type, the rooms of the current tab as
// tiles or as a table, the filter, the detail panel of the selected room with its running
// bill, and the room finder. The commands themselves belong to the main window; the board
// tells it what is selected and what the cashier asked for.
class RoomBoard : public QWidget {
    Q_OBJECT
  public:
    // Data roles of a room item (column 0).
    enum Role { KeyRole = Qt::UserRole, StatusRole, TagRole, OpenTimeRole, AmountRole };

    explicit RoomBoard(QWidget* parent = nullptr);
    ~RoomBoard() override;

    // Tabs again, then the list; the tab and the selected room stay when they still exist.
    // A database error is shown and the board stays as it was: the program runs on.
    void LoadRoomTabs();
    void LoadRoomList();
    void ShowSelected();
    // What another till (or another window) changed: the rooms "R"+TheID and bills "E"+ExpenseID
    // listed, or anything ("*"). Only the tiles concerned are read again and updated in place,
    // and the panel when it shows one of them; a room that joins or leaves the list reads the
    // list again. A database error here is left to the refresh timer to report.
    void applyChanges(const QStringList& keys);

    void setShowMode(ShowMode mode);
    ShowMode showMode() const { return m_mode; }
    void setDetailsView(bool details);
    bool detailsView() const;

    // The selected room, the one current room of the board whether reached by click, key,
    // finder or refresh: key "K" + TheID, its status key and its bill.
    QString selectedKey() const;
    QString selectedTheID() const;
    QString selectedStatus() const;
    QString selectedTag() const;
    QString currentAssortID() const;
    // Selects the room with this TheID in the current list; false when not listed.
    bool selectRoom(const QString& theID);
    // Sets the selected item after a command and shows it again.
    void setSelectedState(const QString& statusKey, const QString& label, const QString& tag);
    // Sets the room `theID` after a command on it, makes it the selected room and shows it;
    // when it is no longer listed the list is read again.
    void setRoomState(const QString& theID, const QString& statusKey, const QString& label,
                      const QString& tag);
    // The code of the room with this TheID in the current list; empty when not listed.
    QString codeOf(const QString& theID) const;
    // Finds a room by the start of its code, letter case aside, on every tab: the current
    // list first, then the other tabs. True when found and selected.
    bool findRoom(const QString& text);
    // The next or previous room-type tab, round the end.
    void stepTab(int step);
    QSize tileSize() const;

    // The row of the board page where the main window adds its own boxes.
    QHBoxLayout* toolRow() const { return m_toolRow; }
    QLineEdit* findBox() const { return m_txtFindHouse; }
    QWidget* currentView() const;
    QStandardItemModel* model() const { return m_model; }
    QTreeWidget* detailList() const { return m_lvwDetail; }

  Q_SIGNALS:
    // After the panel shows a room: the main window sets its commands by the status, an
    // empty one when the list has no room.
    void selectionShown(const QString& statusKey);
    // Double click, Enter, or space in the finder.
    void defaultActionRequested(const QString& statusKey);
    // "." or "j" on a room in use.
    void closeRequested();
    // "j" or "o" in the finder on a found room.
    void finderCommand(QChar key);
    void menuRequested(const QPoint& globalPos);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void loadRoomTabs();
    void loadRoomList();
    void showSelected();
    template <class F> void guarded(const char* procedure, F&& read);
    void buildUi();
    void fillModel(const QList<BoardRoom>& rooms);
    void setItem(int row, const BoardRoom& r);
    QStandardItem* selectedItem() const;
    QStandardItem* itemOf(const QString& theID) const;
    void makeCurrent(const QModelIndex& idx);
    void fitTiles();
    void findHouse(int key);
    void showPanel(const BoardPanel& p);
    void sortDetail(int column);

    BoardService m_service;
    ShowMode m_mode = ShowMode::All;
    bool m_loading = false;
    bool m_showingError = false;

    QHBoxLayout* m_toolRow = nullptr;
    QTabBar* m_ctabThis = nullptr;
    QButtonGroup* m_filters = nullptr;
    QPushButton* m_cmdView = nullptr;
    QPushButton* m_cmdRefurbish = nullptr;
    QLineEdit* m_txtFindHouse = nullptr;
    QLabel* m_txtFindHouseInfo = nullptr;
    QStackedWidget* m_stack = nullptr;
    QListView* m_icons = nullptr;
    QTreeView* m_details = nullptr;
    QStandardItemModel* m_model = nullptr;
    QTreeWidget* m_lvwDetail = nullptr;
    QHash<QString, QLabel*> m_panel;
    QStyledItemDelegate* m_tiles = nullptr; // the tiles, sized by fitTiles
};
