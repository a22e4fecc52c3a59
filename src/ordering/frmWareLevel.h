#pragma once
#include "PayLevel.h"
#include "WareLevel.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmWareLevel;
}
class QComboBox;
class QLineEdit;

// The discount periods of a goods type: four periods by whole hours, each with a factor
// on the catalogue price.
class frmWareLevel : public QDialog {
    Q_OBJECT
  public:
    explicit frmWareLevel(QWidget* parent = nullptr);
    ~frmWareLevel() override;

    // Modal; true when saved.
    bool Edit(const QString& wareLevelID);
    // Loads without showing (tests and callers that show it themselves).
    void prepare(const QString& wareLevelID);
    bool cmdOK_Click();
    WareLevelInput input() const;

  private:
    void fill(const WareLevelInput& in);
    void endChosen(int i);
    void refillEnds(int from);
    QComboBox* end(int i) const;
    QLineEdit* box(const char* base, int i) const;

    std::unique_ptr<Ui::frmWareLevel> ui;
    PeriodChain m_chain;
    QString m_id;
    bool m_filling = false;
};
