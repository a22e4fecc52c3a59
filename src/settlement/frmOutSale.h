#pragma once
#include "OrderEntry.h"
#include "OutSaleModel.h"
#include <QDialog>
#include <QHash>
#include <memory>

namespace Ui {
class frmOutSale;
}
class QTreeWidgetItem;

// "外卖": the counter till. Lines live only in the window until the sale is paid; F4 then
// stores the sale, its lines and the stock they take in one go, and the window clears itself
// for the next customer.
class frmOutSale : public QDialog {
    Q_OBJECT
  public:
    explicit frmOutSale(QWidget* parent = nullptr);
    ~frmOutSale() override;

    // Modal; whether a sale was stored while the window was open.
    bool ShowMe();
    // The window before the modal loop: goods priced for now, the check boxes restored.
    void Init();

    void AddLine();
    void DeleteLine();
    void SaveData();
    void txtInput_Enter();
    void cmdWareAdd_Click();

    const OutSaleModel& model() const { return m_model; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fillGoods();
    void showBoxes();
    void showSum();
    void ResetInput();
    void clearSale();
    void txtOughtMoney_LostFocus();

    std::unique_ptr<Ui::frmOutSale> ui;
    OrderEntry m_goods;
    OutSaleModel m_model;
    QHash<QString, QTreeWidgetItem*> m_listItems; // WareID -> its row of lvwWare
    bool m_saved = false;
};
