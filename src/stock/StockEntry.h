#pragma once
#include "WareIn.h"
#include <QDialog>

class QLineEdit;
class QTreeWidget;

// What the receipt and the adjustment windows share: the article found by its mnemonic, the
// entry boxes cleared after each line, the lines removed from the list.
class StockEntry : public QDialog {
    Q_OBJECT
  public:
    using QDialog::QDialog;

    // The article typed in txtMnemonics; `moveOn` after Enter when found.
    void findWare(bool moveOn);
    void cmdDel_Click();
    bool saved() const { return m_saved; }

  protected:
    // After setupUi: finds the shared boxes by their names.
    void bindEntry();
    bool eventFilter(QObject* watched, QEvent* event) override;
    void clearEntry();
    // The boxes cleared after a line, beyond the mnemonic and the article's name and unit.
    virtual QList<QLineEdit*> entryBoxes() const = 0;
    virtual void wareFound() {}
    QTreeWidget* lines() const { return m_list; }

    std::optional<WareInGoods> m_currentWare; // CurrentWare
    QLineEdit* m_mnemonics = nullptr;
    QLineEdit* m_wareName = nullptr;
    QLineEdit* m_wareUnit = nullptr;
    QTreeWidget* m_list = nullptr;
    bool m_saved = false;
    QString m_looked; // the mnemonic last looked up
};
