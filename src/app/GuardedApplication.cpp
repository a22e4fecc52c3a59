#include "GuardedApplication.h"
#include "Db.h"
#include "MessageBox.h"
#include <QWidget>

namespace {
// The procedure and the form of the documented text: the object the event was for, and
// the window it is in.
QString formOf(QObject* receiver) {
    auto* w = qobject_cast<QWidget*>(receiver);
    return w && w->window() ? w->window()->objectName() : QStringLiteral("frmMain");
}
} // namespace

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const DbError& e) {
        if (m_onError) m_onError();
        Msg::critical(nullptr, e.message(receiver->objectName(), formOf(receiver)));
    } catch (const std::exception& e) {
        if (m_onError) m_onError();
        Msg::critical(
            nullptr,
            DbError(-1, QString::fromUtf8(e.what())).message(receiver->objectName(), formOf(receiver)));
    }
    return false;
}
