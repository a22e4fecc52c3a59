#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmSetup;
}

// "数据管理": backup, restore and purge of the venue's data.
class frmSetup : public QDialog {
    Q_OBJECT
  public:
    explicit frmSetup(QWidget* parent = nullptr);
    ~frmSetup() override;

    void ShowMe();
    void cmdSelectBackup_Click();
    void cmdBackup_Click();
    void cmdSelectResume_Click();
    void cmdResume_Click();
    void cmdClearBusinessData_Click();
    void cmdClearAllData_Click();
    // After a restore or a purge the program ends, so nothing cached outlives the data.
    bool programMustEnd() const { return m_end; }

  private:
    void purge(bool includeMasterData, const QString& closing);
    void finish();

    std::unique_ptr<Ui::frmSetup> ui;
    bool m_end = false;
};
