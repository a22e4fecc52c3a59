#pragma once
#include "StockEntry.h"
#include <memory>

namespace Ui {
class frmWareIn;
}

// "商品进货": a receipt from a supplier, or a return to one, entered line by line and saved
// as a whole.
class frmWareIn : public StockEntry {
    Q_OBJECT
  public:
    explicit frmWareIn(QWidget* parent = nullptr);
    ~frmWareIn() override;

    // Modal, a new receipt; true when saved.
    bool Add();
    void prepare();
    void addLine(bool out);
    void SaveData();

  private:
    QList<QLineEdit*> entryBoxes() const override;

    std::unique_ptr<Ui::frmWareIn> ui;
};
