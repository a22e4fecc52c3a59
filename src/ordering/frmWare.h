#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmWare;
}

// "商品及服务": one article with its type, price, cost, unit, stock mark and commission.
// Adding stays open for the next article of the same type.
class frmWare : public QDialog {
    Q_OBJECT
  public:
    explicit frmWare(QWidget* parent = nullptr);
    ~frmWare() override;

    // Modal; true when at least one article was saved.
    bool Add();
    bool Edit(const QString& id);

    // The halves of Add and Edit before the modal loop.
    void startAdd();
    bool startEdit(const QString& id);
    void cmdOK_Click();
    bool saved() const { return m_saved; }
    QString savedId() const { return m_id; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fillTypes();
    void showStock();
    std::unique_ptr<Ui::frmWare> ui;
    int m_mode = 0; // 0 new, 1 edit
    QString m_id;
    bool m_saved = false;
};
