#pragma once
#include "MemberService.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmMember;
}

// One member. In add mode it stays open after a save, ready for the next member.
class frmMember : public QDialog {
    Q_OBJECT
  public:
    explicit frmMember(QWidget* parent = nullptr);
    ~frmMember() override;

    // Modal; true when a save of this opening succeeded.
    bool Add();
    bool Edit(const QString& memberCode);

    // The halves of Add and Edit around the modal loop.
    void startAdd();
    bool startEdit(const QString& memberCode);
    void OKButton_Click();
    // The class combo's click: the points box takes the class's starting points.
    void LoadSetupValue();
    void ClearData();
    // The picture chosen by cmdImageSet; cmdPhotoPaste takes the clipboard's, cmdImageDel clears it.
    void setPhotoFile(const QString& path);
    void cmdPhotoPaste_Click();
    void cmdImageDel_Click();
    bool saved() const { return m_saved; }
    int mode() const { return m_mode; }

  private:
    void Init();
    void showPhoto(const QByteArray& data);
    void setBirthday(const QDate& day);
    MemberInput input() const;

    std::unique_ptr<Ui::frmMember> ui;
    int m_mode = 0; // 0 new, 1 edit
    QString m_code; // the code the member had when opened
    int m_state = 0;
    MemberPhoto m_photo;
    bool m_saved = false;
};
