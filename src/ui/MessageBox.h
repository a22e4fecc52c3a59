#pragma once
#include <QMessageBox>
#include <QString>
#include <functional>

class QWidget;

// Every message the program shows goes through here, so tests can read what was said
// and pre-answer questions without a modal loop.
namespace Msg {
enum class Icon { None, Information, Exclamation, Critical, Question };

struct Shown {
    QString text;
    QString title;
    Icon icon;
};

QMessageBox::StandardButton show(QWidget* parent, const QString& text, Icon icon = Icon::Information,
                                 QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                 QMessageBox::StandardButton defaultButton = QMessageBox::NoButton,
                                 const QString& title = {});
inline void info(QWidget* p, const QString& t, const QString& title = {}) { show(p, t, Icon::Information, QMessageBox::Ok, QMessageBox::NoButton, title); }
inline void warn(QWidget* p, const QString& t, const QString& title = {}) { show(p, t, Icon::Exclamation, QMessageBox::Ok, QMessageBox::NoButton, title); }
inline void critical(QWidget* p, const QString& t, const QString& title = {}) { show(p, t, Icon::Critical, QMessageBox::Ok, QMessageBox::NoButton, title); }
// OK/Cancel question; true on OK.
bool confirm(QWidget* p, const QString& text, QMessageBox::StandardButton defaultButton = QMessageBox::Ok);

// "错误信息: " + message, and "错误描述: " + description on a further line when given.
void ShowError(const QString& message, const QString& description = {});

// Test seam: while installed, messages are recorded and answered without a window.
void installRecorder();
void uninstallRecorder();
bool recording();
void setNextAnswer(QMessageBox::StandardButton answer);
QList<Shown> taken(); // returns and clears what was shown
} // namespace Msg
