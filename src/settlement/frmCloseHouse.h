#pragma once
#include "fExpense.h"
#include <optional>
#include "CheckoutModel.h"
#include "Money.h"
#include <QDateTime>
#include <QDialog>
#include <memory>

namespace Ui {
class frmCloseHouse;
}
class QLineEdit;

// Settling a bill: the amounts, the member with discount and stored value, and the
// closing as paid now, free or deferred. Also the place where deferred bills are settled.
class frmCloseHouse : public QDialog {
    Q_OBJECT
  public:
    explicit frmCloseHouse(QWidget* parent = nullptr);
    ~frmCloseHouse() override;

    // Modal checkout of an open bill; true when the bill was closed.
    bool Edit(const QString& expenseID);
    // Modal settling of deferred bills; true when one was closed.
    bool DoPayAfter();
    // The room of the last bill closed here.
    QString closedTheID() const { return m_closedTheID; }
    // What the last close did, for the main window's status line: "A05 已结帐 找零 ￥5.00".
    QString closedSummary() const { return m_closedSummary; }

    // The halves of Edit and DoPayAfter around the modal loop.
    void prepare(const QString& expenseID, bool payAfter);
    bool saved() const { return m_saved; }

    void LoadBill();
    void LoadMember();
    void ClearMember();
    bool CheckForm();
    void SaveData();
    void cmdFreeMoney_Click();
    void cmdPayAfter_Click();
    void cmdFindjzrinfo_Click();
    void cmdSelect_Click();
    void txtpw_Enter();

    const CheckoutModel& model() const { return m_model; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;

  private:
    // Another till changed this bill: closed there, the window says so and closes; changed
    // there, it shows the bill as it is now.
    void billChangedElsewhere(const QStringList& keys);
    QStringList m_staleKeys; // changed elsewhere while a dialog of this window was open
    // The deferred bills found by the search box, with their sum; the chosen one stays chosen.
    void fillDeferredList(); // throws DbError
    void showBill();
    void clearBill();
    void chooseBill();
    void showBoxes();
    void dtpCloseTime_Change();
    void txtOughtMoney_LostFocus();

    std::unique_ptr<Ui::frmCloseHouse> ui;
    CheckoutModel m_model;
    QString m_expenseID;
    QString m_theID;
    Money m_goodsMoney, m_roomMoney, m_cost;
    CloseMode m_closeMode = CloseMode::Paid;
    bool m_isPayAfter = false;
    bool m_saved = false;
    bool m_loadedDeferred = false; // the bill on the window is a deferred one
    QDateTime m_closeTag;          // the closing time as the window opened it
    QString m_closedTheID;
    std::optional<BillSnapshot> m_seen; // the bill as loaded, compared at the commit
    QString m_closedSummary;
};
