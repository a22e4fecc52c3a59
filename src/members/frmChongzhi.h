#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmChongzhi;
}
struct Refusal;

// A top-up of a member's stored-value card. One save closes it.
class frmChongzhi : public QDialog {
    Q_OBJECT
  public:
    explicit frmChongzhi(QWidget* parent = nullptr);
    ~frmChongzhi() override;

    // Modal; true when a top-up was saved. With a code the member is fixed and loads at once.
    bool Add(const QString& memberCode = {});

    void prepare(const QString& memberCode);
    // Enter in the code box: forget the member held and look the typed code up.
    void txtMemberCode_Enter();
    void LoadMember();
    void OKButton_Click();
    bool saved() const { return m_saved; }
    QString CurrentMember() const { return m_currentMember; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void refuse(const Refusal& r);
    std::unique_ptr<Ui::frmChongzhi> ui;
    QString m_currentMember;
    bool m_saved = false;
};
