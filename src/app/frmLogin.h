#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmLogin;
}

// The sign-in dialog. Accepted after a successful sign-in; rejected by 取消.
class frmLogin : public QDialog {
    Q_OBJECT
public:
    explicit frmLogin(QWidget* parent = nullptr);
    ~frmLogin() override;

    void cmdOK_Click();

private:
    void cmdSelectDB_Click();
    void failed();
    std::unique_ptr<Ui::frmLogin> ui;
};

// The web address behind lblWeb.
inline constexpr const char* MakerWeb = "https://www.xinglan-ktv.cn";
