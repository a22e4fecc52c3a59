#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmWareType;
}

// "商品分类": one goods type, its key typed by the user, and the flags that steer pricing,
// the member discount and the tickets.
class frmWareType : public QDialog {
    Q_OBJECT
  public:
    explicit frmWareType(QWidget* parent = nullptr);
    ~frmWareType() override;

    // Modal; true when saved.
    bool Add();
    bool Edit(const QString& id);

    // The halves of Add and Edit before the modal loop.
    void startAdd();
    bool startEdit(const QString& id);
    void cmdOK_Click();
    bool saved() const { return m_saved; }

  private:
    void enableTickets();
    std::unique_ptr<Ui::frmWareType> ui;
    int m_mode = 0; // 0 new, 1 edit
    bool m_saved = false;
};
