#pragma once
#include <QDialog>
#include <memory>
#include <optional>

namespace Ui {
class frmPrintQueue;
}
class QComboBox;

// "打印队列": the print jobs, newest first, with a picture of the selected slip. A job that
// did not come out is printed again on its printer, or sent to another one.
class frmPrintQueue : public QDialog {
    Q_OBJECT
  public:
    explicit frmPrintQueue(QWidget* parent = nullptr);
    ~frmPrintQueue() override;

    static void ShowMe(QWidget* parent);

    void Load();
    QString selectedJob() const;
    bool selectJob(const QString& jobID);
    void cmdPrint_Click();
    void cmdPrintTo_Click();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void send(const std::optional<QString>& printer);
    void showPreview();

    std::unique_ptr<Ui::frmPrintQueue> ui;
};

// The printer a list of PrinterChoices stands on: the value of the entry shown, or the text
// typed into it.
QString ChosenPrinter(const QComboBox* list);
// Fills such a list and selects the saved printer; an unknown one selects the first entry.
// A list without the default entry holds only printers that can be named.
void FillPrinterList(QComboBox* list, const QString& saved, bool withDefault = true);
