#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmOpenHouse;
}

// Opening a room for a party: guests, door money, the hand-written slip number and how the
// stay is billed.
class frmOpenHouse : public QDialog {
    Q_OBJECT
  public:
    explicit frmOpenHouse(QWidget* parent = nullptr);
    ~frmOpenHouse() override;

    // Modal; the key of the new bill, or empty text when nothing was opened.
    QString Add(const QString& theID);
    // True when the cashier chose to go straight on to ordering and may do so.
    bool wantsExpense() const { return m_wantsExpense; }

    // The halves of Add around the modal loop.
    bool prepare(const QString& theID);
    void OKButton_Click();
    void cmdExpense_Click();
    QString result() const { return m_result; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool SaveData();

    std::unique_ptr<Ui::frmOpenHouse> ui;
    QString m_theID;
    QString m_result;
    bool m_wantsExpense = false;
};
