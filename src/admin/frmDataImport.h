#pragma once
#include "GoodsImport.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmDataImport;
}

// "数据导入": goods from a spreadsheet, previewed with the rows that would be refused.
class frmDataImport : public QDialog {
    Q_OBJECT
  public:
    explicit frmDataImport(QWidget* parent = nullptr);
    ~frmDataImport() override;

    // Returns the goods imported, for the caller to reload its list.
    int ShowMe();
    void cmdOpenFile_Click();
    void cmdShowData_Click();
    void cmdDo_Click();

  private:
    std::unique_ptr<Ui::frmDataImport> ui;
    GoodsImport::Preview m_preview;
    int m_imported = 0;
};
