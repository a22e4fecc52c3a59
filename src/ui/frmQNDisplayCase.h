#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmQNDisplayCase;
}

// The columns of one list: order, shown or hidden, width, title and display rule.
class frmQNDisplayCase : public QDialog {
    Q_OBJECT
  public:
    explicit frmQNDisplayCase(QWidget* parent = nullptr);
    ~frmQNDisplayCase() override;

    // Modal; true when the columns were saved. The caller then fills its list again.
    static bool ShowSetup(const QString& name, QWidget* parent = nullptr);

    // The halves of ShowSetup around the modal loop. load is false, with the error shown,
    // when the columns could not be read.
    bool load(const QString& name);
    void OKButton_Click();
    bool saved() const { return m_saved; }

  private:
    void cmdUp_Click();
    void cmdDown_Click();
    void moveBy(int step);
    void setShown(bool shown);
    void showSelected();
    std::unique_ptr<Ui::frmQNDisplayCase> ui;
    QString m_name;
    bool m_saved = false;
};
