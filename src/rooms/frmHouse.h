#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmHouse;
}

// One room: its code, type and remark. Adding stays open for the next room.
class frmHouse : public QDialog {
    Q_OBJECT
  public:
    explicit frmHouse(QWidget* parent = nullptr);
    ~frmHouse() override;

    // Modal; true when at least one room was saved.
    bool Add();
    bool Edit(const QString& theID);

    // The two halves of Add and Edit around the modal loop.
    void startAdd();
    bool startEdit(const QString& theID);
    void cmdOK_Click();

    bool saved() const { return m_saved; }

  private:
    void fillTypes();
    std::unique_ptr<Ui::frmHouse> ui;
    int m_mode = 0; // 0 new, 1 edit
    QString m_id;
    bool m_saved = false;
};
