#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmChongzhiList;
}

// The top-ups of a period with their sums.
class frmChongzhiList : public QDialog {
    Q_OBJECT
  public:
    explicit frmChongzhiList(QWidget* parent = nullptr);
    ~frmChongzhiList() override;

    // Modal, searching at once. 0 today, 1 this week, 2 this month; anything else today.
    void ShowMe(int period = 0);

    void prepare(int period);
    void optDay_Click(int index);
    void cmdFind_Click();
    void cmdChongzhi_Click();
    void Command1_Click();

  private:
    std::unique_ptr<Ui::frmChongzhiList> ui;
};
