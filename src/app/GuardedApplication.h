#pragma once
#include <QApplication>
#include <functional>

// The program's application object with a last resort: an error that escaped every slot,
// timer and dialog is shown in the documented way instead of ending the program, and the
// hook (the main window saving its memo) runs first, so nothing typed is lost.
class GuardedApplication : public QApplication {
  public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;
    void setOnError(std::function<void()> hook) { m_onError = std::move(hook); }

  private:
    std::function<void()> m_onError;
};
