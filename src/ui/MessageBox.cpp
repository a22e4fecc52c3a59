#include "MessageBox.h"
#include "AppState.h"
#include <QApplication>
#include <QList>

namespace {
struct Recorder {
    bool on = false;
    QList<Msg::Shown> shown;
    QList<QMessageBox::StandardButton> answers;
};
Recorder& rec() {
    static Recorder r;
    return r;
}
QMessageBox::Icon qtIcon(Msg::Icon i) {
    switch (i) {
    case Msg::Icon::Information: return QMessageBox::Information;
    case Msg::Icon::Exclamation: return QMessageBox::Warning;
    case Msg::Icon::Critical: return QMessageBox::Critical;
    case Msg::Icon::Question: return QMessageBox::Question;
    default: return QMessageBox::NoIcon;
    }
}
} // namespace

namespace Msg {
QMessageBox::StandardButton show(QWidget* parent, const QString& text, Icon icon, QMessageBox::StandardButtons buttons,
                                 QMessageBox::StandardButton defaultButton, const QString& title) {
    const QString caption = title.isEmpty() ? App().AppTitle : title;
    if (rec().on) {
        rec().shown.append({text, caption, icon});
        if (!rec().answers.isEmpty()) return rec().answers.takeFirst();
        if (defaultButton != QMessageBox::NoButton) return defaultButton;
        return (buttons & QMessageBox::Ok) ? QMessageBox::Ok : QMessageBox::Yes;
    }
    QMessageBox box(qtIcon(icon), caption, text, buttons, parent ? parent : QApplication::activeWindow());
    if (buttons & QMessageBox::Ok) box.setButtonText(QMessageBox::Ok, QStringLiteral("确定"));
    if (buttons & QMessageBox::Cancel) box.setButtonText(QMessageBox::Cancel, QStringLiteral("取消"));
    if (buttons & QMessageBox::Yes) box.setButtonText(QMessageBox::Yes, QStringLiteral("是"));
    if (buttons & QMessageBox::No) box.setButtonText(QMessageBox::No, QStringLiteral("否"));
    if (defaultButton != QMessageBox::NoButton) box.setDefaultButton(defaultButton);
    return QMessageBox::StandardButton(box.exec());
}

bool confirm(QWidget* p, const QString& text, QMessageBox::StandardButton defaultButton) {
    return show(p, text, Icon::Question, QMessageBox::Ok | QMessageBox::Cancel, defaultButton) == QMessageBox::Ok;
}

void ShowError(const QString& message, const QString& description) {
    QString t = QStringLiteral("错误信息: ") + message;
    if (!description.isEmpty()) t += QStringLiteral("\n错误描述: ") + description;
    show(nullptr, t, Icon::Critical);
}

void installRecorder() {
    rec().on = true;
    rec().shown.clear();
    rec().answers.clear();
}
void uninstallRecorder() { rec().on = false; }
bool recording() { return rec().on; }
void setNextAnswer(QMessageBox::StandardButton a) { rec().answers.append(a); }
QList<Shown> taken() {
    QList<Shown> s = rec().shown;
    rec().shown.clear();
    return s;
}
} // namespace Msg
