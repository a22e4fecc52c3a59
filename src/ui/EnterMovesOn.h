#pragma once
#include <QObject>

class QWidget;

// Enter in a line edit, combo or spin box moves the focus to the next field, as Tab does.
// Buttons and multi-line boxes keep their own Enter.
class EnterMovesOn : public QObject {
public:
    static void install(QWidget* form);

protected:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};
