#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmOption;
}
class QTreeWidget;

// "营业设置": the one tabbed window for the venue's setup.
class frmOption : public QDialog {
    Q_OBJECT
public:
    explicit frmOption(QWidget* parent = nullptr);
    ~frmOption() override;

    void ShowMe(int page = 0);
    void loadPayLevels();
    void loadHouseAssorts();
    void loadHouses();

    void cmdPayLevelAdd_Click();
    void cmdPayLevelEdit_Click();
    void cmdPayLevelDel_Click();
    void cmdAllDiscount_Click();
    void cmdAllowLow2High_Click();
    void cmdSaveCZ_Click();
    void cmdHouseAssortAdd_Click();
    void cmdHouseAssortEdit_Click();
    void cmdHouseAssortDel_Click();
    void cmdHouseAdd_Click();
    void cmdHouseAddBat_Click();
    void cmdHouseEdit_Click();
    void cmdHouseDel_Click();

private:
    void loadRules();
    static QString selectedKey(QTreeWidget* list);
    std::unique_ptr<Ui::frmOption> ui;
};
