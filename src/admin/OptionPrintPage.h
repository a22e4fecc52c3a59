#pragma once
#include <QWidget>
#include <memory>

namespace Ui {
class OptionPrintPage;
}
struct PrintOptions;

// The options window's page of printing, company and other settings.
class OptionPrintPage : public QWidget {
    Q_OBJECT
  public:
    explicit OptionPrintPage(QWidget* parent = nullptr);
    ~OptionPrintPage() override;

    void load();
    // Saves after C013 and the checks; true when the window may close.
    bool cmdSave_Click();
    void cmdSee_Click();

  Q_SIGNALS:
    void saved();
    void cancelled();

  private:
    PrintOptions typed() const;
    void enableParts();

    std::unique_ptr<Ui::OptionPrintPage> ui;
};
