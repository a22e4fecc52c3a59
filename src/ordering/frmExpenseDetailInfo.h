#pragma once
#include <QDialog>
#include <memory>

namespace Ui {
class frmExpenseDetailInfo;
}

// "备注信息": the note of one bill line, chosen from the notes used before or typed anew.
class frmExpenseDetailInfo : public QDialog {
    Q_OBJECT
  public:
    explicit frmExpenseDetailInfo(QWidget* parent = nullptr);
    ~frmExpenseDetailInfo() override;

    // Modal, for line `detailID`; true when the note was stored.
    bool Edit(const QString& detailID);
    // The half of Edit before the modal loop.
    void prepare(const QString& detailID);
    void OKButton_Click();
    // Forgets the note in the box as a suggestion.
    void cmdDel_Click();
    bool saved() const { return m_saved; }
    // The note as stored.
    QString note() const { return m_note; }

  private:
    std::unique_ptr<Ui::frmExpenseDetailInfo> ui;
    QString m_detailID;
    bool m_saved = false;
    QString m_note;
};
