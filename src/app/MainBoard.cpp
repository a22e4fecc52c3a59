// The room commands of the main window: what the board's selection allows, and the
// commands that open, stop, resume, move and merge rooms.
#include "MessageBox.h"
#include "PrintUi.h"
#include "ReservationService.h"
#include "RefusalShow.h"
#include "RoomBoard.h"
#include "RoomService.h"
#include "fThe.h"
#include "frmCloseHouse.h"
#include "frmExpenseAmalgamate.h"
#include "frmEditReservation.h"
#include "frmExpenseDetail.h"
#include "frmHouseChange.h"
#include "frmMain.h"
#include "frmOpenHouse.h"
#include "frmOutSale.h"
#include "frmPrintQueue.h"
#include <QAction>
#include <QLineEdit>
#include <QMenu>

namespace {
struct StateRule {
    QStringList names;
    bool common, use, reservation, stopOrLock;
};

const QList<StateRule>& stateRules() {
    static const QList<StateRule> rules = {
        {{QStringLiteral("mnuOpOpen"), QStringLiteral("tbrOPENHOUSE")}, true, false, true, false},
        {{QStringLiteral("mnuOpExpense"), QStringLiteral("tbrEXPENSE")}, false, true, false, false},
        {{QStringLiteral("mnuOpEnd"), QStringLiteral("tbrCLOSEHOUSE")}, false, true, false, false},
        {{QStringLiteral("mnuPrintExpense")}, false, true, false, false},
        {{QStringLiteral("mnuHouseStop")}, true, false, false, false},
        {{QStringLiteral("mnuHouseResume")}, false, false, false, true},
        {{QStringLiteral("mnuHouseChange")}, false, true, false, false},
        {{QStringLiteral("mnuReservation")}, true, false, false, false},
        {{QStringLiteral("mnuReservationView"), QStringLiteral("mnuReservationCancel")},
         false,
         false,
         true,
         false},
    };
    return rules;
}

// What a double click or Enter does to a room of each status.
QString defaultCommand(const QString& status) {
    if (status == QLatin1String("Use")) return QStringLiteral("mnuOpExpense");
    if (status == QLatin1String("Stop") || status == QLatin1String("Lock"))
        return QStringLiteral("mnuHouseResume");
    if (status == QLatin1String("Reservation")) return QStringLiteral("mnuReservationView");
    return QStringLiteral("mnuOpOpen");
}
} // namespace

void frmMain::wireBoard() {
    connect(m_board, &RoomBoard::selectionShown, this, &frmMain::applyRoomState);
    connect(m_board, &RoomBoard::defaultActionRequested, this,
            [this](const QString& status) { runCommand(defaultCommand(status)); });
    connect(m_board, &RoomBoard::closeRequested, this, [this] { runCommand(QStringLiteral("mnuOpEnd")); });
    connect(m_board, &RoomBoard::finderCommand, this, [this](QChar key) {
        QAction* a =
            action(key == QLatin1Char('j') ? QStringLiteral("mnuOpEnd") : QStringLiteral("mnuOpOpen"));
        if (a && a->isEnabled()) a->trigger();
    });
    connect(m_board, &RoomBoard::menuRequested, this, [this](const QPoint& pos) {
        if (QMenu* m = m_menus.value(QStringLiteral("营业(&B)"))) m->popup(pos);
    });

    wire(QStringLiteral("mnuOpOpen"), [this] { OpenRoom(); });
    wire(QStringLiteral("tbrOPENHOUSE"), [this] { runCommand(QStringLiteral("mnuOpOpen")); });
    wire(QStringLiteral("mnuHouseStop"), [this] { HouseStop(); });
    wire(QStringLiteral("mnuHouseResume"), [this] { HouseResume(); });
    wire(QStringLiteral("mnuHouseChange"), [this] { ChangeRoom(); });
    wire(QStringLiteral("mnuExpenseAmalgamate"), [this] { MergeBills(); });
    wire(QStringLiteral("mnuOpEnd"), [this] { CloseRoom(); });
    wire(QStringLiteral("tbrCLOSEHOUSE"), [this] { runCommand(QStringLiteral("mnuOpEnd")); });
    wire(QStringLiteral("mnuPayAfter"), [this] { PayAfter(); });
    // The running bill of the room on paper, the room's last bill again, the print queue.
    wire(QStringLiteral("mnuPrintExpense"), [this] { PrintExpenseListFor(this, m_board->selectedTag()); });
    wire(QStringLiteral("mnuReprintExpense"), [this] { ReprintRoomBill(this, m_board->selectedTheID()); });
    wire(QStringLiteral("mnuPrintQueue"), [this] { frmPrintQueue::ShowMe(this); });
    // Ordering into the selected room's bill; the panel shows the new lines afterwards.
    wire(QStringLiteral("mnuOpExpense"),
         [this] { AddExpense(m_board->selectedTheID(), m_board->selectedTag()); });
    wire(QStringLiteral("tbrEXPENSE"), [this] { runCommand(QStringLiteral("mnuOpExpense")); });
    // The counter till needs no room.
    wire(QStringLiteral("mnuOutSale"), [this] {
        frmOutSale dlg(this);
        dlg.ShowMe();
    });
    wire(QStringLiteral("tbrOUTSALE"), [this] { runCommand(QStringLiteral("mnuOutSale")); });
    wire(QStringLiteral("mnuReservation"), [this] { MakeReservation(); });
    wire(QStringLiteral("mnuReservationView"), [this] { ViewReservation(); });
    wire(QStringLiteral("mnuReservationCancel"), [this] { CancelReservation(); });
}

void frmMain::applyRoomState(const QString& status) {
    const bool use = status == QLatin1String("Use"), reservation = status == QLatin1String("Reservation");
    const bool stopOrLock = status == QLatin1String("Stop") || status == QLatin1String("Lock");
    const bool common = !status.isEmpty() && !use && !reservation && !stopOrLock;
    for (const StateRule& r : stateRules()) {
        const bool on = (common && r.common) || (use && r.use) || (reservation && r.reservation) ||
                        (stopOrLock && r.stopOrLock);
        // A command whose window is not there yet stays off.
        for (const QString& name : r.names)
            if (QAction* a = action(name)) a->setEnabled(on && isWired(name));
    }
}

// Every command takes its room when it starts: a refresh while its dialog is open may move
// the board's selection, and what the dialog did still belongs to the room it was opened for.
void frmMain::OpenRoom() {
    const QString theID = m_board->selectedTheID();
    if (theID.isEmpty()) return;
    const QString code = m_board->codeOf(theID);
    frmOpenHouse dlg(this);
    const QString key = dlg.Add(theID);
    if (key.isEmpty()) return;
    m_board->setRoomState(theID, QStringLiteral("Use"), QStringLiteral("使用"), key);
    announce(code + QStringLiteral(" 已开单"));
    // Straight on to ordering; the right was asked in the dialog.
    if (dlg.wantsExpense()) AddExpense(theID, key);
}

void frmMain::AddExpense(const QString& theID, const QString& tag) {
    if (tag.isEmpty()) return;
    frmExpenseDetail dlg(this);
    dlg.Add(tag);
    if (!dlg.summary().isEmpty()) announce(dlg.summary());
    // The panel shows the new lines when the room is still the one shown.
    if (m_board->selectedTheID() == theID) m_board->ShowSelected();
}

void frmMain::HouseStop() {
    const QString theID = m_board->selectedTheID();
    if (theID.isEmpty()) return;
    const QString code = m_board->codeOf(theID);
    if (!Msg::confirm(this, QStringLiteral("确定要暂停使用包厢 %1 吗？").arg(code), QMessageBox::Ok)) return;
    if (const Refused r = RoomService().HouseStop(theID)) {
        ShowRefusal(this, *r);
        m_board->LoadRoomList();
        return;
    }
    m_board->setRoomState(theID, QStringLiteral("Stop"), QStringLiteral("停用"), QString());
    announce(code + QStringLiteral(" 已暂停使用"));
}

void frmMain::HouseResume() {
    const QString theID = m_board->selectedTheID();
    if (theID.isEmpty()) return;
    const QString code = m_board->codeOf(theID);
    if (const Refused r = RoomService().HouseResume(theID)) {
        ShowRefusal(this, *r);
        m_board->LoadRoomList();
        return;
    }
    m_board->setRoomState(theID, QStringLiteral("Common"), QStringLiteral("空闲"), QString());
    announce(code + QStringLiteral(" 已恢复使用"));
}

void frmMain::ChangeRoom() {
    const QString tag = m_board->selectedTag();
    if (tag.isEmpty()) return;
    frmHouseChange dlg(this);
    if (!dlg.Edit(tag)) return;
    m_board->LoadRoomList();
    announce(dlg.summary());
}

void frmMain::MergeBills() {
    frmExpenseAmalgamate dlg(this);
    if (!dlg.Add()) return;
    m_board->LoadRoomList();
    announce(dlg.summary());
}

void frmMain::CloseRoom() {
    const QString tag = m_board->selectedTag();
    const QString theID = m_board->selectedTheID();
    if (tag.isEmpty() || m_board->selectedStatus() != QLatin1String("Use")) return;
    frmCloseHouse dlg(this);
    const bool saved = dlg.Edit(tag);
    if (saved) announce(dlg.closedSummary());
    if (!saved || dlg.closedTheID() != theID) {
        m_board->LoadRoomList();
        return;
    }
    // The room is free now, or locked for the venue's minutes.
    Rows room;
    try {
        room = fThe().GetByID(theID);
    } catch (const DbError&) {
        m_board->LoadRoomList();
        return;
    }
    if (!room.isEmpty() && room.first().integer(QStringLiteral("State")) == 4)
        m_board->setRoomState(theID, QStringLiteral("Lock"), QStringLiteral("锁定"), QString());
    else
        m_board->setRoomState(theID, QStringLiteral("Common"), QStringLiteral("空闲"), QString());
}

void frmMain::MakeReservation() {
    const QString theID = m_board->selectedTheID();
    bool isNow = false;
    frmEditReservation dlg(this);
    const QString id = dlg.Add(isNow, theID);
    if (id.isEmpty() || !isNow) return;
    // The list read again shows the room the dialog reserved, whichever was chosen there.
    m_board->LoadRoomList();
    if (m_board->selectedTheID() == theID && m_board->selectedStatus() == QLatin1String("Reservation"))
        announce(m_board->codeOf(theID) + QStringLiteral(" 已预留"));
}

void frmMain::ViewReservation() {
    const QString tag = m_board->selectedTag();
    if (tag.isEmpty() || m_board->selectedStatus() != QLatin1String("Reservation")) return;
    frmEditReservation dlg(this);
    dlg.View(tag);
}

void frmMain::CancelReservation() {
    const QString theID = m_board->selectedTheID();
    if (theID.isEmpty() || m_board->selectedStatus() != QLatin1String("Reservation")) return;
    const QString code = m_board->codeOf(theID);
    if (const Refused r = ReservationService().freeRoom(theID, m_board->selectedTag())) {
        ShowRefusal(this, *r);
        m_board->LoadRoomList();
        return;
    }
    m_board->setRoomState(theID, QStringLiteral("Common"), QStringLiteral("空闲"), QString());
    announce(code + QStringLiteral(" 已取消预留"));
}

void frmMain::PayAfter() {
    frmCloseHouse dlg(this);
    if (!dlg.DoPayAfter()) return;
    m_board->LoadRoomList();
    announce(dlg.closedSummary());
}
