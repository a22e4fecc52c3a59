#pragma once
#include "Designs.h"
#include "ReceiptLayout.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmSeePrintType;
}

// The two styles of the checkout bill side by side, "详细格式" and "简洁格式", drawn by the
// printing itself from a sample bill on the bill printer's paper.
class frmSeePrintType : public QDialog {
    Q_OBJECT
  public:
    explicit frmSeePrintType(Paper paper = Paper::mm80, QWidget* parent = nullptr);
    ~frmSeePrintType() override;

    static void ShowMe(Paper paper, QWidget* parent);
    // The sample bill of both pictures.
    static Receipt sample(BillStyle style);

  private:
    std::unique_ptr<Ui::frmSeePrintType> ui;
};
