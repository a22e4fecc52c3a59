#pragma once
#include "MessageBox.h"
#include "Refusal.h"
#include <QLineEdit>
#include <QWidget>

// Shows a service's refusal on a form and puts the focus on the control it names,
// with a line edit's text selected so that typing replaces it.
inline void ShowRefusal(QWidget* form, const Refusal& r) {
    Msg::show(form, r.message, r.icon, QMessageBox::Ok, QMessageBox::NoButton, r.title);
    if (r.field.isEmpty()) return;
    if (auto* w = form->findChild<QWidget*>(r.field)) {
        w->setFocus(Qt::OtherFocusReason);
        if (auto* edit = qobject_cast<QLineEdit*>(w)) edit->selectAll();
    }
}
