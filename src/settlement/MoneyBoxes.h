#pragma once
#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QSignalBlocker>

// What the two money windows (checkout and counter till) do alike with their boxes.
namespace MoneyBoxes {
// Shows `text` without the box reporting an edit; an unchanged box is left alone, so its
// cursor and selection stay.
inline void setText(QLineEdit* box, const QString& text) {
    if (box->text() == text) return;
    const QSignalBlocker block(box);
    box->setText(text);
}

// Whether a focus change stays within the window (not to a message box or a menu), so that a
// box's leaving rule applies.
inline bool leftWithinWindow(QEvent* event) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}
} // namespace MoneyBoxes
