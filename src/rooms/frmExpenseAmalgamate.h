#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmExpenseAmalgamate;
}

// Folding the bill of one running room into another's (并台).
class frmExpenseAmalgamate : public QDialog {
    Q_OBJECT
  public:
    explicit frmExpenseAmalgamate(QWidget* parent = nullptr);
    ~frmExpenseAmalgamate() override;

    // Modal; true when two bills became one.
    bool Add();

    void prepare();
    void OKButton_Click();
    bool merged() const { return m_merged; }
    // "已并台：A03 并入 A01" after a merge.
    QString summary() const { return m_summary; }

  private:
    std::unique_ptr<Ui::frmExpenseAmalgamate> ui;
    bool m_merged = false;
    QString m_summary;
};
