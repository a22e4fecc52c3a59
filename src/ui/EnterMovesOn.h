#pragma once
#include <QObject>

class QWidget;

// Enter in a line edit, combo or spin box moves the focus to the next field, as Tab does.
// Buttons and multi-line boxes keep their own Enter.
class EnterMovesOn : public QObject {
public:
    // `except` keeps its own Enter (a password box that signs in, say). The form's length
    // limits are made to count characters (LimitByCharacters).
    static void install(QWidget* form, const QList<QWidget*>& except = {});

protected:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};
