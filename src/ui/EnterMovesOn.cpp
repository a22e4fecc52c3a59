#include "EnterMovesOn.h"
#include "TextLimit.h"
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QAbstractItemView>
#include <QDateTimeEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidget>

void EnterMovesOn::install(QWidget* form, const QList<QWidget*>& except) {
    // The typing forms are these: their length limits count characters.
    LimitByCharacters(form);
    auto* f = new EnterMovesOn(form);
    for (QWidget* w : form->findChildren<QWidget*>()) {
        if (except.contains(w)) continue;
        if (qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) || qobject_cast<QAbstractSpinBox*>(w))
            w->installEventFilter(f);
    }
}

bool EnterMovesOn::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(event);
        if ((k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) && k->modifiers() == Qt::NoModifier) {
            auto* w = qobject_cast<QWidget*>(watched);
            // A line edit inside a combo box belongs to the combo.
            if (w && qobject_cast<QComboBox*>(w->parentWidget())) w = w->parentWidget();
            if (auto* combo = qobject_cast<QComboBox*>(w); combo && combo->view() && combo->view()->isVisible())
                return false;
            if (w) {
                QWidget* next = w->nextInFocusChain();
                while (next && next != w && (!(next->focusPolicy() & Qt::TabFocus) || !next->isEnabled() ||
                                             !next->isVisible() || next->isAncestorOf(w)))
                    next = next->nextInFocusChain();
                if (next) next->setFocus(Qt::TabFocusReason);
                return true;
            }
        }
    }
    return QObject::eventFilter(watched, event);
}
