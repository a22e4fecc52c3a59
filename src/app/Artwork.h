#pragma once
#include <QIcon>
#include <QPixmap>
#include <QSize>

// The title picture of the sign-in window when the venue has no Image/softname.jpg.
QPixmap SoftNameBanner(QSize size, qreal dpr = 1.0);
// A toolbar picture: a rounded tile in `color` with a short glyph.
QIcon ToolIcon(const QString& glyph, const QColor& color);
