#pragma once
#include "Db.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmDbLink;
}

// "设置数据连接": the embedded file or a PostgreSQL server, remembered in config.ini.
class frmDbLink : public QDialog {
    Q_OBJECT
public:
    frmDbLink(const QString& home, QWidget* parent = nullptr);
    ~frmDbLink() override;
    DbConfig chosen() const;
    bool cmdTest_Click();
    void cmdOK_Click();

private:
    void showMode();
    QString m_home;
    std::unique_ptr<Ui::frmDbLink> ui;
};
