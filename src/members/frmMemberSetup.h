#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmMemberSetup;
}
struct MemberClassInput;

// One member class.
class frmMemberSetup : public QDialog {
    Q_OBJECT
  public:
    explicit frmMemberSetup(QWidget* parent = nullptr);
    ~frmMemberSetup() override;

    // Modal; true when saved.
    bool Add();
    bool Edit(const QString& setupID);

    void startAdd();
    bool startEdit(const QString& setupID);
    void OKButton_Click();
    bool saved() const { return m_saved; }

  private:
    void showClass(const MemberClassInput& in);
    std::unique_ptr<Ui::frmMemberSetup> ui;
    QString m_id;
    bool m_saved = false;
};
