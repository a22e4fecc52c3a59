#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmChangePw;
}

// The password of an operator (kind 1) or of a member's card (kind 2).
class frmChangePw : public QDialog {
    Q_OBJECT
  public:
    explicit frmChangePw(QWidget* parent = nullptr);
    ~frmChangePw() override;

    // Modal. Any kind but 2 is an operator.
    void ShowMe(int kind, const QString& id);

    void prepare(int kind, const QString& id);
    void OKButton_Click();

  private:
    std::unique_ptr<Ui::frmChangePw> ui;
    int m_kind = 1;
    QString m_id;
};
