#pragma once
#include "OrderEntry.h"
#include <QDialog>
#include <QHash>
#include <memory>

namespace Ui {
class frmExpenseDetail;
}
class QTreeWidgetItem;

// "消费明细": ordering goods and services into an open bill. Every confirmed order is written
// at once; closing only closes, after the batch's tickets were handed to the printers.
class frmExpenseDetail : public QDialog {
    Q_OBJECT
  public:
    // Data roles of the goods list and tree items (column 0).
    // The goods views' roles; the price role is the tag of a goods node.
    enum Role { KeyRole = Qt::UserRole, IndexRole, TagRole };

    explicit frmExpenseDetail(QWidget* parent = nullptr);
    ~frmExpenseDetail() override;

    // Modal, for bill `expenseID`; whether the last order written succeeded.
    bool Add(const QString& expenseID);
    // The window for the bill, before the modal loop.
    void Init(const QString& expenseID);

    // The one write path: the selected goods with the boxes as typed.
    void SaveData();
    // Voids the selected line of lvwDetail.
    void DeleteDetail();
    // Enter in the quick entry box.
    void txtInput_Enter();
    void cmdWareAdd_Click();
    void cmdDescription_Click();

    const OrderEntry& entry() const { return m_entry; }
    // What the last opening ordered, for the main window's status line; empty when nothing.
    QString summary() const { return m_summary; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void done(int result) override;

  private:
    void fillGoods();
    // Lines ordered or voided into this bill at another till show at once; the lines of
    // this opening keep their mark.
    void linesChangedElsewhere(const QStringList& keys);
    void reloadLines();
    std::optional<WareChoice> selectedWare() const;
    void AddDetailToList(const OrderedLine& line);
    void ShowThisSum();
    void ResetInput();
    void chkFree_Clicked();

    std::unique_ptr<Ui::frmExpenseDetail> ui;
    OrderEntry m_entry;
    QString m_summary;
    QHash<QString, QTreeWidgetItem*> m_listItems; // WareID -> its row of lvwWare
    bool m_freeByMouse = false;
    bool m_linesStale = false; // changed elsewhere while a dialog of this window was open
};
