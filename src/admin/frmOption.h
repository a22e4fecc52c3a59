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
    void loadWareTypes();
    // The goods of the selected type, or all goods while no type is selected.
    void loadWares();

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
    void cmdWareTypeAdd_Click();
    void cmdWareTypeEdit_Click();
    void cmdWareTypeDel_Click();
    void cmdWareLevel_Click();
    void Command1_Click();
    void cmdWareAdd_Click();
    void cmdWareEdit_Click();
    void cmdWareDel_Click();
    void cmdRefresh_Click();
    // "显示栏目" of the goods list's menu: the column chooser.
    void mnuSetupHouseAssortSet_Click();

private:
    void loadRules();
    static QString selectedKey(QTreeWidget* list);
    QString selectedWareType() const;
    QString selectedWare() const;
    void editWareLevel(const QString& id);
    std::unique_ptr<Ui::frmOption> ui;
};
