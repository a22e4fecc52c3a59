#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmMemberList;
}
class QTreeWidget;

// The members: search, manage, top up, and their records; or pick one for checkout.
class frmMemberList : public QDialog {
    Q_OBJECT
  public:
    explicit frmMemberList(QWidget* parent = nullptr);
    ~frmMemberList() override;

    void ShowMe();
    // Pick mode; the chosen MemberCode, or empty text.
    QString SelectMember();

    // The halves of ShowMe and SelectMember around the modal loop. The list shows all members.
    void prepare(bool picking);
    void LoadMemberList();
    void ShowMemberRecords(const QString& code);
    void LoadChongzhiExpense();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void DeleteMember();
    void cmdClearPw_Click();
    void cmdChangePw_Click();
    void cmdChongzhi_Click();
    void cmdSetup_Click();
    void cmdSelect_Click();
    void Command1_Click();
    QString selectedCode() const;
    QString picked() const { return m_picked; }

  private:
    void showColumns(QTreeWidget* list, const QString& name);
    void fillRecords(QTreeWidget* list, const QString& name, bool chongzhi);
    std::unique_ptr<Ui::frmMemberList> ui;
    QString m_picked;
    QString m_recordsOf; // the member whose records the tabs show
};
