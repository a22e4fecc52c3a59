#pragma once
#include "WareIn.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmWareIn;
}

// "商品进货": a receipt from a supplier, or a return to one, entered line by line and saved
// as a whole.
class frmWareIn : public QDialog {
    Q_OBJECT
  public:
    explicit frmWareIn(QWidget* parent = nullptr);
    ~frmWareIn() override;

    // Modal, a new receipt; true when saved.
    bool Add();
    void prepare();
    // The article typed in txtMnemonics; `moveOn` after Enter when found.
    void findWare(bool moveOn);
    void addLine(bool out);
    void cmdDel_Click();
    void SaveData();
    bool saved() const { return m_saved; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void clearEntry();

    std::unique_ptr<Ui::frmWareIn> ui;
    std::optional<WareInGoods> m_currentWare; // CurrentWare
    QString m_looked;                        // the mnemonic last looked up
    QList<WareInLine> m_lines;              // in the order of the list
    bool m_saved = false;
};
