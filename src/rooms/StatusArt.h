#pragma once
#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

// The look of a room status on the board: its colours and its picture. Keys are the board's
// status keys: Common, Use, Stop, Reservation, Lock.
struct StatusLook {
    QColor strong; // border, icon disc, label
    QColor fill;   // tile background
};
StatusLook LookOf(const QString& statusKey);

// The status picture, drawn at `size` pixels. A venue may put its own pictures in Image/
// under the names Common, Use, Stop, Reserve and Lock (.png, .jpg or .bmp).
QPixmap StatusPixmap(const QString& statusKey, int size);
// Large and small pictures of one status in one icon.
QIcon StatusIcon(const QString& statusKey);
// Forgets the pictures made so far (after the venue folder changes).
void ResetStatusArt();
