#pragma once
#include "StockEntry.h"
#include <memory>

namespace Ui {
class frmWareLoss;
}

// "商品报溢/报损": goods found over (a positive quantity) or short (a negative one) at a
// count, valued at their selling price. Changes the stock, never the cost.
class frmWareLoss : public StockEntry {
    Q_OBJECT
  public:
    explicit frmWareLoss(QWidget* parent = nullptr);
    ~frmWareLoss() override;

    bool Add();
    void prepare();
    void addLine();
    void SaveData();

  private:
    QList<QLineEdit*> entryBoxes() const override;
    void wareFound() override;
    void showMoney();

    std::unique_ptr<Ui::frmWareLoss> ui;
};
