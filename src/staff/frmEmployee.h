#pragma once
#include "EmployeeService.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmEmployee;
}

// One employee. Unlike the member dialog it always closes after a save.
class frmEmployee : public QDialog {
    Q_OBJECT
  public:
    explicit frmEmployee(QWidget* parent = nullptr);
    ~frmEmployee() override;

    bool Add();
    bool Edit(const QString& id);
    static bool IsCanSetupList() { return true; }

    void startAdd();
    bool startEdit(const QString& id);
    void cmdOK_Click();
    // The photo chosen by cmdImageSet; cmdImageDel clears it.
    void setPhotoFile(const QString& path);
    void cmdImageDel_Click();
    bool saved() const { return m_saved; }
    QString savedId() const { return m_id; }

  private:
    void showPhoto(const QByteArray& data);
    EmployeeInput input() const;

    std::unique_ptr<Ui::frmEmployee> ui;
    QString m_id;
    PhotoChange m_photo;
    bool m_saved = false;
    int m_storedState = 0; // kept when the list has no entry for it
};
