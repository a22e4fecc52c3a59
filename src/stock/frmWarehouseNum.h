#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmWarehouseNum;
}

// "库存情况": every article's stock against its minimum; what needs restocking in red.
class frmWarehouseNum : public QDialog {
    Q_OBJECT
  public:
    explicit frmWarehouseNum(QWidget* parent = nullptr);
    ~frmWarehouseNum() override;

    static void ShowMe(QWidget* parent);
    void LoadData();

  private:
    std::unique_ptr<Ui::frmWarehouseNum> ui;
};
