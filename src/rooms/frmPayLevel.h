#pragma once
#include "PayLevel.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmPayLevel;
}
class QComboBox;
class QLineEdit;

// The tariff editor: four periods by whole hours, fixed-rate and by-time pages.
class frmPayLevel : public QDialog {
    Q_OBJECT
public:
    explicit frmPayLevel(QWidget* parent = nullptr);
    ~frmPayLevel() override;

    bool Add();
    bool Edit(const QString& id);
    // Prepare without showing (tests and callers that show it themselves).
    void prepare(const QString& id);
    bool cmdOK_Click();
    PayLevelInput input() const;
    QString savedId() const { return m_id; }

private:
    void fill(const PayLevelInput& in);
    void endChosen(int i);
    void showPrivilege();
    void refillEnds(int from);
    QComboBox* end(int i) const;
    QLineEdit* box(const char* base, int i) const;

    std::unique_ptr<Ui::frmPayLevel> ui;
    PeriodChain m_chain;
    QString m_id;
    bool m_filling = false;
};
