#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmHouseChange;
}

// Moving a running bill to another free room (换台).
class frmHouseChange : public QDialog {
    Q_OBJECT
  public:
    explicit frmHouseChange(QWidget* parent = nullptr);
    ~frmHouseChange() override;

    // Modal; true when the bill moved.
    bool Edit(const QString& expenseID);

    bool prepare(const QString& expenseID);
    void OKButton_Click();
    bool changed() const { return m_changed; }
    // "A02 已换台到 A03" after a change.
    QString summary() const { return m_summary; }

  private:
    std::unique_ptr<Ui::frmHouseChange> ui;
    QString m_expenseID;
    bool m_changed = false;
    QString m_summary;
};
