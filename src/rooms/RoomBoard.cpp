#include "RoomBoard.h"
#include "ChangeFeed.h"
#include "Clock.h"
#include "ExpenseLines.h"
#include "Format.h"
#include "MessageBox.h"
#include "NewID.h"
#include "ScreenFit.h"
#include "StatusArt.h"
#include <QButtonGroup>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTabBar>
#include <QTreeView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
// The smallest tile; on a wider board the tiles grow up to half as large again, then more fit.
const QSize BaseTile(132, 112);
constexpr double MaxTileScale = 1.5;

// A room as a tile: the status colour and picture together, the room code large, and for a
// room in use the time it has run and what it owes so far. Everything is drawn in proportion
// to the tile, so a larger board shows larger numbers.
class RoomTileDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize tile = BaseTile;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return tile; }

    void paint(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QString key = index.data(RoomBoard::StatusRole).toString();
        const StatusLook look = LookOf(key);
        const bool selected = option.state & QStyle::State_Selected;
        const QRectF r = QRectF(option.rect).adjusted(4, 4, -4, -4);
        const double s = qMax(0.5, r.height() / double(BaseTile.height() - 8));
        auto px = [s](double v) { return int(v * s + 0.5); };
        p->save();
        p->setRenderHint(QPainter::Antialiasing);
        QPainterPath tile;
        tile.addRoundedRect(r, 8, 8);
        p->fillPath(tile, selected ? look.strong.lighter(185) : look.fill);
        p->setPen(QPen(selected ? look.strong.darker(140) : look.strong, selected ? 4 : 2));
        p->drawPath(tile);

        const QRectF icon(r.left() + px(7), r.top() + px(7), px(22), px(22));
        // The icon keeps its drawn pictures, so a repaint draws no picture anew.
        StatusIcon(key).paint(p, icon.toRect());

        QFont small = option.font;
        small.setPixelSize(px(14));
        small.setBold(true);
        p->setFont(small);
        p->setPen(look.strong.darker(115));
        p->drawText(QRectF(icon.right() + 4, r.top() + px(6), r.right() - icon.right() - px(10), px(24)),
                    Qt::AlignRight | Qt::AlignVCenter, index.siblingAtColumn(1).data().toString());

        const bool inUse = key == QLatin1String("Use");
        QFont big = option.font;
        big.setPixelSize(px(inUse ? 26 : 30));
        big.setBold(true);
        p->setFont(big);
        p->setPen(QColor(0x21, 0x21, 0x21));
        const QRectF codeRect(r.left() + 4, r.top() + px(inUse ? 30 : 36), r.width() - 8,
                              px(inUse ? 32 : 40));
        p->drawText(
            codeRect, Qt::AlignCenter,
            QFontMetrics(big).elidedText(index.data().toString(), Qt::ElideRight, int(codeRect.width())));

        if (inUse) {
            QFont f = option.font;
            f.setPixelSize(px(13));
            p->setFont(f);
            p->setPen(look.strong.darker(125));
            const QDateTime open = ParseTime(index.data(RoomBoard::OpenTimeRole).toString());
            if (open.isValid()) {
                const qint64 m = qMax<qint64>(0, MinutesBetween(open, Now()));
                p->drawText(QRectF(r.left() + 4, codeRect.bottom(), r.width() - 8, px(20)), Qt::AlignCenter,
                            QStringLiteral("已用 %1:%2").arg(m / 60).arg(m % 60, 2, 10, QLatin1Char('0')));
            }
            const QString amount = index.data(RoomBoard::AmountRole).toString();
            if (!amount.isEmpty()) {
                f.setPixelSize(px(15));
                f.setBold(true);
                p->setFont(f);
                p->setPen(look.strong.darker(150));
                p->drawText(QRectF(r.left() + 4, r.bottom() - px(24), r.width() - 8, px(22)), Qt::AlignCenter,
                            QFontMetrics(f).elidedText(amount, Qt::ElideLeft, int(r.width() - 8)));
            }
        }
        p->restore();
    }
};

QLabel* valueLabel(QWidget* parent, const QString& name) {
    auto* l = new QLabel(parent);
    l->setObjectName(name);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
}
} // namespace

RoomBoard::RoomBoard(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("RoomBoard"));
    buildUi();
}

RoomBoard::~RoomBoard() = default;

void RoomBoard::buildUi() {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(0, 0, 0, 0);
    root->setSpacing(4);

    m_ctabThis = new QTabBar(this);
    m_ctabThis->setObjectName(QStringLiteral("ctabThis"));
    m_ctabThis->setExpanding(false);
    m_ctabThis->setDocumentMode(true);
    m_ctabThis->setFocusPolicy(Qt::NoFocus);
    root->addWidget(m_ctabThis);
    connect(m_ctabThis, &QTabBar::currentChanged, this, [this] {
        if (!m_loading) LoadRoomList();
    });
    m_ctabThis->setToolTip(QStringLiteral("Ctrl+PgDn 下一类包厢，Ctrl+PgUp 上一类包厢"));
    // The room types by keyboard, from anywhere on the board.
    const std::pair<QKeySequence, int> tabKeys[] = {{QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1},
                                                    {QKeySequence(Qt::CTRL | Qt::Key_Tab), 1},
                                                    {QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1},
                                                    {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1},
                                                    {QKeySequence(Qt::CTRL | Qt::Key_Backtab), -1}};
    for (const auto& [keys, step] : tabKeys) {
        auto* sc = new QShortcut(keys, this);
        sc->setContext(Qt::WidgetWithChildrenShortcut);
        connect(sc, &QShortcut::activated, this, [this, step = step] { stepTab(step); });
    }

    m_toolRow = new QHBoxLayout;
    m_filters = new QButtonGroup(this);
    const struct {
        const char* name;
        const char* caption;
        ShowMode mode;
    } filters[] = {{"cmdShowAll", "全部包厢", ShowMode::All},
                   {"cmdShowNoUse", "未使用包厢", ShowMode::NoUse},
                   {"cmdShowUse", "使用中包厢", ShowMode::Use}};
    for (const auto& f : filters) {
        auto* b = new QPushButton(QString::fromUtf8(f.caption), this);
        b->setObjectName(QLatin1String(f.name));
        b->setCheckable(true);
        b->setFocusPolicy(Qt::NoFocus);
        m_filters->addButton(b, int(f.mode));
        m_toolRow->addWidget(b);
    }
    m_filters->button(int(ShowMode::All))->setChecked(true);
    connect(m_filters, &QButtonGroup::idClicked, this, [this](int id) { setShowMode(ShowMode(id)); });

    m_cmdView = new QPushButton(QStringLiteral("显示详情"), this);
    m_cmdView->setObjectName(QStringLiteral("cmdView"));
    m_cmdView->setFocusPolicy(Qt::NoFocus);
    connect(m_cmdView, &QPushButton::clicked, this, [this] { setDetailsView(!detailsView()); });
    m_cmdRefurbish = new QPushButton(QStringLiteral("刷新"), this);
    m_cmdRefurbish->setObjectName(QStringLiteral("cmdRefurbish"));
    m_cmdRefurbish->setFocusPolicy(Qt::NoFocus);
    connect(m_cmdRefurbish, &QPushButton::clicked, this, &RoomBoard::LoadRoomTabs);
    m_toolRow->addSpacing(8);
    m_toolRow->addWidget(m_cmdView);
    m_toolRow->addWidget(m_cmdRefurbish);
    m_toolRow->addSpacing(16);
    m_toolRow->addWidget(new QLabel(QStringLiteral("包厢操作(F5):"), this));
    m_txtFindHouse = new QLineEdit(this);
    m_txtFindHouse->setObjectName(QStringLiteral("txtFindHouse"));
    m_txtFindHouse->setMaximumWidth(110);
    m_txtFindHouse->setToolTip(QStringLiteral("输入包厢号后按回车定位，空格执行默认操作，j 结帐，o 开单"));
    m_txtFindHouse->installEventFilter(this);
    m_toolRow->addWidget(m_txtFindHouse);
    m_txtFindHouseInfo = new QLabel(this);
    m_txtFindHouseInfo->setObjectName(QStringLiteral("txtFindHouseInfo"));
    m_txtFindHouseInfo->setStyleSheet(QStringLiteral("color:#c62828"));
    m_toolRow->addWidget(m_txtFindHouseInfo);
    m_toolRow->addStretch(1);
    root->addLayout(m_toolRow);

    auto* split = new QSplitter(Qt::Horizontal, this);
    root->addWidget(split, 1);

    m_model = new QStandardItemModel(0, 3, this);
    m_model->setHorizontalHeaderLabels(
        {QStringLiteral("包厢"), QStringLiteral("状态"), QStringLiteral("消费单号")});

    m_stack = new QStackedWidget(split);
    m_stack->setObjectName(QStringLiteral("lvwThis"));
    m_icons = new QListView(m_stack);
    m_icons->setObjectName(QStringLiteral("lvwThisIcons"));
    m_icons->setViewMode(QListView::IconMode);
    m_icons->setMovement(QListView::Static);
    m_icons->setResizeMode(QListView::Adjust);
    m_icons->setWrapping(true);
    m_icons->setUniformItemSizes(true);
    m_icons->setGridSize(BaseTile);
    m_icons->setSpacing(0);
    m_icons->setModel(m_model);
    m_tiles = new RoomTileDelegate(m_icons);
    m_icons->setItemDelegate(m_tiles);
    m_icons->viewport()->installEventFilter(this);
    m_icons->setSelectionMode(QAbstractItemView::SingleSelection);
    m_icons->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_details = new QTreeView(m_stack);
    m_details->setObjectName(QStringLiteral("lvwThisDetails"));
    m_details->setModel(m_model);
    m_details->setSelectionModel(m_icons->selectionModel());
    m_details->setRootIsDecorated(false);
    m_details->setUniformRowHeights(true);
    m_details->setAlternatingRowColors(true);
    m_details->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_details->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_details->setColumnWidth(0, 120);
    m_details->setColumnWidth(1, 80);
    m_stack->addWidget(m_icons);
    m_stack->addWidget(m_details);
    for (QAbstractItemView* v :
         {static_cast<QAbstractItemView*>(m_icons), static_cast<QAbstractItemView*>(m_details)}) {
        v->installEventFilter(this);
        v->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(v, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& i) {
            if (i.isValid()) Q_EMIT defaultActionRequested(selectedStatus());
        });
        connect(v, &QWidget::customContextMenuRequested, this, [this, v](const QPoint& pos) {
            const QModelIndex i = v->indexAt(pos);
            if (!i.isValid()) return;
            v->setCurrentIndex(i.siblingAtColumn(0));
            Q_EMIT menuRequested(v->viewport()->mapToGlobal(pos));
        });
    }
    // The current item is the selected room. A mouse press makes the item current before it
    // selects it, so the panel and the commands follow the current item, and the selection
    // is kept on it (a ctrl click cannot leave the board without a room).
    QItemSelectionModel* sel = m_icons->selectionModel();
    connect(sel, &QItemSelectionModel::currentChanged, this, [this, sel](const QModelIndex& now) {
        if (now.isValid() && !sel->isRowSelected(now.row()))
            sel->select(now, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        if (!m_loading) ShowSelected();
    });
    connect(sel, &QItemSelectionModel::selectionChanged, this, [sel] {
        const QModelIndex now = sel->currentIndex();
        if (now.isValid() && !sel->isRowSelected(now.row()))
            sel->select(now, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    });

    auto* right = new QWidget(this);
    auto* rightLay = new QVBoxLayout(right);
    rightLay->setContentsMargins(4, 0, 0, 0);
    auto* box = new QGroupBox(QStringLiteral("包厢消费信息"), right);
    auto* form = new QFormLayout(box);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setRowWrapPolicy(QFormLayout::DontWrapRows);
    form->setVerticalSpacing(4);
    const struct {
        const char* caption;
        const char* name;
    } rows[] = {{"包厢：", "lblHouse"},
                {"计费标准：", "lblPayLevelName"},
                {"计费方式：", "lblPayLevelType"},
                {"最低消费：", "lblIsUseMinMoney"},
                {"开台时间：", "lblOpenTime"},
                {"消费时长：", "lblExpendtime"},
                {"顾客人数：", "lblCustomerNum"},
                {"商品消费：", "lblExpenseMoney"},
                {"包厢费用：", "lblHouseMoney"},
                {"应收金额：", "lblOughtMoney"},
                {"备注：", "lblDesc"}};
    for (const auto& row : rows) {
        QLabel* l = valueLabel(box, QLatin1String(row.name));
        m_panel.insert(QLatin1String(row.name), l);
        form->addRow(QString::fromUtf8(row.caption), l);
    }
    QFont houseFont = m_panel[QStringLiteral("lblHouse")]->font();
    houseFont.setBold(true);
    houseFont.setPointSizeF(houseFont.pointSizeF() * 1.25);
    m_panel[QStringLiteral("lblHouse")]->setFont(houseFont);
    QLabel* ought = m_panel[QStringLiteral("lblOughtMoney")];
    QFont big = ought->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.6);
    ought->setFont(big);
    ought->setStyleSheet(QStringLiteral("color:#c62828"));
    // Long tariff names and notes wrap instead of being cut.
    for (const char* name : {"lblDesc", "lblPayLevelName", "lblHouse"})
        m_panel[QLatin1String(name)]->setWordWrap(true);
    // The figures always get their room; the lines give way on a small screen.
    box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    rightLay->addWidget(box);

    auto* detailBox = new QGroupBox(QStringLiteral("消费明细"), right);
    auto* detailLay = new QVBoxLayout(detailBox);
    m_lvwDetail = new QTreeWidget(detailBox);
    m_lvwDetail->setObjectName(QStringLiteral("lvwDetail"));
    SetupExpenseDetailList(m_lvwDetail);
    m_lvwDetail->setFocusPolicy(Qt::ClickFocus);
    m_lvwDetail->setMinimumHeight(24);
    m_lvwDetail->header()->setSectionsClickable(true);
    connect(m_lvwDetail->header(), &QHeaderView::sectionClicked, this, &RoomBoard::sortDetail);
    detailLay->addWidget(m_lvwDetail);
    rightLay->addWidget(detailBox, 1);

    split->addWidget(m_stack);
    // On a short screen the panel scrolls rather than squeezing its lines into one another.
    QScrollArea* rightScroll = ScreenFit::scrollable(right, split);
    rightScroll->setMinimumWidth(qMax(rightScroll->minimumWidth(), 320));
    split->addWidget(rightScroll);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 2);
    showPanel({});
}

void RoomBoard::sortDetail(int column) {
    QHeaderView* h = m_lvwDetail->header();
    const bool same = h->isSortIndicatorShown() && h->sortIndicatorSection() == column;
    const Qt::SortOrder order =
        same && h->sortIndicatorOrder() == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_lvwDetail->sortItems(column, order);
    h->setSortIndicatorShown(true);
    h->setSortIndicator(column, order);
}

QWidget* RoomBoard::currentView() const {
    return m_stack->currentWidget();
}

bool RoomBoard::detailsView() const {
    return m_stack->currentWidget() == m_details;
}

void RoomBoard::setDetailsView(bool details) {
    const bool hadFocus = currentView()->hasFocus();
    m_stack->setCurrentWidget(details ? static_cast<QWidget*>(m_details) : m_icons);
    m_cmdView->setText(details ? QStringLiteral("显示图标") : QStringLiteral("显示详情"));
    if (hadFocus) currentView()->setFocus();
}

void RoomBoard::setShowMode(ShowMode mode) {
    m_filters->button(int(mode))->setChecked(true);
    if (mode == m_mode) return;
    m_mode = mode;
    LoadRoomList();
}

QString RoomBoard::currentAssortID() const {
    const int i = m_ctabThis->currentIndex();
    return i < 0 ? QString() : StripKey(m_ctabThis->tabData(i).toString());
}

void RoomBoard::loadRoomTabs() {
    const QString current = m_ctabThis->currentIndex() < 0
                                ? QString()
                                : m_ctabThis->tabData(m_ctabThis->currentIndex()).toString();
    const QList<BoardTab> tabs = m_service.tabs();
    m_loading = true;
    while (m_ctabThis->count() > 0)
        m_ctabThis->removeTab(m_ctabThis->count() - 1);
    int keep = 0;
    for (const BoardTab& t : tabs) {
        const int i = m_ctabThis->addTab(t.assortName);
        m_ctabThis->setTabData(i, QString(QStringLiteral("K") + t.assortID));
        if (QStringLiteral("K") + t.assortID == current) keep = i;
    }
    if (m_ctabThis->count() > 0) m_ctabThis->setCurrentIndex(keep);
    m_loading = false;
    LoadRoomList();
}

void RoomBoard::fillModel(const QList<BoardRoom>& rooms) {
    m_model->setRowCount(0);
    m_model->setRowCount(int(rooms.size()));
    int row = 0;
    for (const BoardRoom& r : rooms)
        setItem(row++, r);
}

void RoomBoard::setItem(int row, const BoardRoom& r) {
    auto* code = new QStandardItem(StatusIcon(r.status.key), r.theCode);
    code->setData(QString(QStringLiteral("K") + r.theID), KeyRole);
    code->setData(r.status.key, StatusRole);
    code->setData(r.expenseID, TagRole);
    code->setData(r.openTime, OpenTimeRole);
    code->setData(r.oughtMoney, AmountRole);
    m_model->setItem(row, 0, code);
    m_model->setItem(row, 1, new QStandardItem(r.status.label));
    m_model->setItem(row, 2, new QStandardItem(r.expenseID));
}

void RoomBoard::applyChanges(const QStringList& keys) {
    if (m_loading || m_ctabThis->count() == 0) return;
    const bool any = ChangeFeed::isAnyChange(keys);
    QStringList ids;
    for (const QString& key : keys) {
        QString id = ChangeFeed::roomOf(key);
        if (const QString bill = ChangeFeed::billOf(key); !bill.isEmpty())
            for (int i = 0; i < m_model->rowCount(); ++i)
                if (m_model->item(i, 0)->data(TagRole).toString() == bill)
                    id = m_model->item(i, 0)->data(KeyRole).toString().mid(1);
        if (!id.isEmpty() && !ids.contains(id)) ids << id;
    }
    if (!any && ids.isEmpty()) return;
    QList<BoardRoom> fresh;
    try {
        fresh = m_service.rooms(currentAssortID(), m_mode, Now(), any ? QStringList() : ids);
    } catch (const DbError&) {
        return;
    }
    // Where each room stands in the list now.
    QHash<QString, int> rowOf;
    for (int i = 0; i < m_model->rowCount(); ++i)
        rowOf.insert(m_model->item(i, 0)->data(KeyRole).toString().mid(1), i);
    QSet<QString> seen;
    for (const BoardRoom& r : std::as_const(fresh))
        seen.insert(r.theID);
    // A room that joins or leaves this list (opened elsewhere while only free rooms show, a new
    // room): the list is read again as a whole.
    bool joinsOrLeaves = any && fresh.size() != m_model->rowCount();
    for (const BoardRoom& r : std::as_const(fresh))
        joinsOrLeaves = joinsOrLeaves || !rowOf.contains(r.theID);
    for (const QString& id : std::as_const(ids))
        joinsOrLeaves = joinsOrLeaves || (rowOf.contains(id) && !seen.contains(id));
    if (joinsOrLeaves) return LoadRoomList();

    const QString selected = selectedTheID();
    bool selectedChanged = false;
    m_loading = true;
    for (const BoardRoom& r : std::as_const(fresh)) {
        const int row = rowOf.value(r.theID);
        const QStandardItem* it = m_model->item(row, 0);
        if (it->text() == r.theCode && it->data(StatusRole).toString() == r.status.key &&
            it->data(TagRole).toString() == r.expenseID && it->data(OpenTimeRole).toString() == r.openTime &&
            it->data(AmountRole).toString() == r.oughtMoney)
            continue;
        setItem(row, r);
        selectedChanged = selectedChanged || r.theID == selected;
    }
    if (selectedChanged) makeCurrent(itemOf(selected)->index());
    m_loading = false;
    // The panel shows the running bill too: it is read again whenever its room was named.
    if (selectedChanged || (!any && ids.contains(selected)) || (any && !selected.isEmpty())) ShowSelected();
}

void RoomBoard::loadRoomList() {
    // A refresh keeps the room the cashier is reading, when it is still listed.
    const QString keep = selectedKey();
    m_loading = true;
    const QString assort = currentAssortID();
    fillModel(m_ctabThis->count() == 0 ? QList<BoardRoom>() : m_service.rooms(assort, m_mode, Now()));
    int row = 0;
    for (int i = 0; i < m_model->rowCount(); ++i)
        if (m_model->item(i, 0)->data(KeyRole).toString() == keep) {
            row = i;
            break;
        }
    if (m_model->rowCount() > 0) makeCurrent(m_model->index(row, 0));
    m_loading = false;
    if (m_model->rowCount() > 0)
        ShowSelected();
    else {
        showPanel({});
        m_lvwDetail->clear();
        Q_EMIT selectionShown(QString()); // no room: no room command applies
    }
}

QStandardItem* RoomBoard::selectedItem() const {
    const QModelIndex current = m_icons->selectionModel()->currentIndex();
    return current.isValid() ? m_model->item(current.row(), 0) : nullptr;
}

QStandardItem* RoomBoard::itemOf(const QString& theID) const {
    const QString key = QStringLiteral("K") + theID;
    for (int i = 0; i < m_model->rowCount(); ++i)
        if (m_model->item(i, 0)->data(KeyRole).toString() == key) return m_model->item(i, 0);
    return nullptr;
}

void RoomBoard::makeCurrent(const QModelIndex& idx) {
    m_icons->selectionModel()->setCurrentIndex(idx, QItemSelectionModel::ClearAndSelect |
                                                        QItemSelectionModel::Rows);
    m_icons->scrollTo(idx);
}

QString RoomBoard::selectedKey() const {
    const QStandardItem* it = selectedItem();
    return it ? it->data(KeyRole).toString() : QString();
}
QString RoomBoard::selectedTheID() const {
    return selectedKey().mid(1);
}
QString RoomBoard::selectedStatus() const {
    const QStandardItem* it = selectedItem();
    return it ? it->data(StatusRole).toString() : QString();
}
QString RoomBoard::selectedTag() const {
    const QStandardItem* it = selectedItem();
    return it ? it->data(TagRole).toString() : QString();
}

QString RoomBoard::codeOf(const QString& theID) const {
    const QStandardItem* it = itemOf(theID);
    return it ? it->text() : QString();
}

bool RoomBoard::selectRoom(const QString& theID) {
    const QStandardItem* it = itemOf(theID);
    if (!it) return false;
    makeCurrent(it->index());
    return true;
}

void RoomBoard::setSelectedState(const QString& statusKey, const QString& label, const QString& tag) {
    if (const QStandardItem* it = selectedItem())
        setRoomState(it->data(KeyRole).toString().mid(1), statusKey, label, tag);
}

void RoomBoard::setRoomState(const QString& theID, const QString& statusKey, const QString& label,
                             const QString& tag) {
    QStandardItem* it = itemOf(theID);
    if (!it) {
        LoadRoomList();
        return;
    }
    const bool inUse = statusKey == QLatin1String("Use");
    it->setIcon(StatusIcon(statusKey));
    it->setData(statusKey, StatusRole);
    it->setData(tag, TagRole);
    it->setData(inUse ? TimeText(Now()) : QString(), OpenTimeRole);
    it->setData(inUse ? QStringLiteral("￥0.00") : QString(), AmountRole);
    m_model->item(it->row(), 1)->setText(label);
    m_model->item(it->row(), 2)->setText(tag);
    m_loading = true;
    makeCurrent(it->index());
    m_loading = false;
    ShowSelected();
}

void RoomBoard::stepTab(int step) {
    const int n = m_ctabThis->count();
    if (n < 2) return;
    m_ctabThis->setCurrentIndex(((m_ctabThis->currentIndex() + step) % n + n) % n);
}

QSize RoomBoard::tileSize() const {
    return static_cast<RoomTileDelegate*>(m_tiles)->tile;
}

// The tiles fill the width of the board: on a wider board they grow (larger numbers, seen
// from across the counter) until half as large again, then more of them fit in a row.
void RoomBoard::fitTiles() {
    // Room for a scroll bar that may come, so the row does not wrap early.
    const int width =
        m_icons->viewport()->width() - m_icons->style()->pixelMetric(QStyle::PM_ScrollBarExtent) - 4;
    if (width <= 0) return;
    const int minWidth = BaseTile.width();
    int cols = qMax(1, width / minWidth);
    if (width / double(cols) > minWidth * MaxTileScale) ++cols;
    // A narrow board (a small or scaled screen) keeps the smallest tiles: more rooms in sight.
    const int tileW = cols < 4 ? minWidth : qMax(minWidth, width / cols - 1);
    const double scale = qBound(1.0, double(tileW) / minWidth, MaxTileScale);
    const QSize tile(tileW, int(BaseTile.height() * scale));
    auto* d = static_cast<RoomTileDelegate*>(m_tiles);
    if (d->tile == tile) return;
    d->tile = tile;
    m_icons->setGridSize(tile);
}

void RoomBoard::showPanel(const BoardPanel& p) {
    m_panel[QStringLiteral("lblHouse")]->setText(p.house);
    m_panel[QStringLiteral("lblPayLevelName")]->setText(p.payLevelName);
    m_panel[QStringLiteral("lblOpenTime")]->setText(p.openTime);
    m_panel[QStringLiteral("lblExpendtime")]->setText(p.expendTime);
    m_panel[QStringLiteral("lblExpenseMoney")]->setText(p.expenseMoney);
    m_panel[QStringLiteral("lblHouseMoney")]->setText(p.houseMoney);
    m_panel[QStringLiteral("lblOughtMoney")]->setText(p.oughtMoney);
    m_panel[QStringLiteral("lblCustomerNum")]->setText(p.customerNum);
    m_panel[QStringLiteral("lblDesc")]->setText(p.description);
    m_panel[QStringLiteral("lblIsUseMinMoney")]->setText(p.isUseMinMoney);
    m_panel[QStringLiteral("lblPayLevelType")]->setText(p.payLevelType);
}

void RoomBoard::showSelected() {
    const QStandardItem* it = selectedItem();
    if (!it) return;
    const QString status = it->data(StatusRole).toString();
    const QString tag = it->data(TagRole).toString();
    showPanel(m_service.panel(it->data(KeyRole).toString().mid(1), status, tag, Now()));
    LoadDataExpenseDetail(status == QLatin1String("Use") ? tag : QString(), m_lvwDetail, false);
    Q_EMIT selectionShown(status);
}

bool RoomBoard::findRoom(const QString& text) {
    if (text.isEmpty()) return false;
    // The current list first: a room the cashier sees wins over one of another tab.
    int found = -1;
    for (int i = 0; i < m_model->rowCount() && found < 0; ++i)
        if (m_model->item(i, 0)->text().compare(text, Qt::CaseInsensitive) == 0) found = i;
    if (found >= 0) {
        makeCurrent(m_model->index(found, 0));
        return true;
    }
    const QList<FoundRoom> rooms = m_service.findRooms(text);
    if (rooms.isEmpty()) return false;
    const FoundRoom& room = rooms.first();
    if (!itemOf(room.theID)) {
        int tab = -1;
        for (int i = 0; i < m_ctabThis->count(); ++i)
            if (m_ctabThis->tabData(i).toString() == QStringLiteral("K") + room.assortID) tab = i;
        if (tab < 0) return false;
        m_loading = true;
        m_ctabThis->setCurrentIndex(tab);
        m_loading = false;
        LoadRoomList();
        // The filter hides it: show all rooms.
        if (!itemOf(room.theID) && m_mode != ShowMode::All) setShowMode(ShowMode::All);
    }
    return selectRoom(room.theID);
}

void RoomBoard::findHouse(int key) {
    if (!findRoom(m_txtFindHouse->text())) {
        m_txtFindHouseInfo->setText(QStringLiteral("当前的包厢列表中没找到此包厢！"));
        m_txtFindHouse->selectAll();
        return;
    }
    m_txtFindHouseInfo->clear();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        currentView()->setFocus();
        return;
    }
    m_txtFindHouse->clear();
    if (key == Qt::Key_Space)
        Q_EMIT defaultActionRequested(selectedStatus());
    else
        Q_EMIT finderCommand(key == Qt::Key_J ? QLatin1Char('j') : QLatin1Char('o'));
}

bool RoomBoard::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_icons->viewport() && event->type() == QEvent::Resize) fitTiles();
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    auto* ke = static_cast<QKeyEvent*>(event);
    if (watched == m_txtFindHouse) {
        const QString t = ke->text();
        if (ke->key() == Qt::Key_Return || ke->key() == Qt::Key_Enter || ke->key() == Qt::Key_Space) {
            findHouse(ke->key());
            return true;
        }
        if (t == QLatin1String("j") || t == QLatin1String("o")) {
            findHouse(t == QLatin1String("j") ? Qt::Key_J : Qt::Key_O);
            return true;
        }
        return false;
    }
    if (watched == m_icons || watched == m_details) {
        if (!selectedItem()) return false;
        if (ke->key() == Qt::Key_Return || ke->key() == Qt::Key_Enter) {
            Q_EMIT defaultActionRequested(selectedStatus());
            return true;
        }
        const QString t = ke->text();
        if (t == QLatin1String(".") || t == QLatin1String("j")) {
            if (selectedStatus() == QLatin1String("Use")) Q_EMIT closeRequested();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// ---- reads that never end the program

template <class F> void RoomBoard::guarded(const char* procedure, F&& read) {
    try {
        read();
    } catch (const DbError& e) {
        m_loading = false;
        // One message at a time, however often the refresh comes round meanwhile.
        if (m_showingError) return;
        m_showingError = true;
        Msg::critical(this, e.message(QString::fromLatin1(procedure), QStringLiteral("frmMain")));
        m_showingError = false;
    }
}

void RoomBoard::LoadRoomTabs() {
    guarded("LoadRoomTabs", [this] { loadRoomTabs(); });
}

void RoomBoard::LoadRoomList() {
    guarded("LoadRoomList", [this] { loadRoomList(); });
}

void RoomBoard::ShowSelected() {
    guarded("ShowSelected", [this] { showSelected(); });
}
