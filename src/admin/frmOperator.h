#pragma once
#include "OperatorService.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmOperator;
}

// One operator: name, password, limits, state and the rights list.
class frmOperator : public QDialog {
    Q_OBJECT
  public:
    explicit frmOperator(QWidget* parent = nullptr);
    ~frmOperator() override;

    // Modal; true when the row was saved.
    bool Add();
    bool Edit(const QString& operatorID);

    void startAdd();
    bool startEdit(const QString& operatorID);
    void OKButton_Click();
    bool saved() const { return m_saved; }
    QString savedId() const { return m_id; }

  private:
    void showRights(const QList<OperatorRight>& rights);
    OperatorInput input() const;

    std::unique_ptr<Ui::frmOperator> ui;
    QString m_id;
    bool m_saved = false;
};
