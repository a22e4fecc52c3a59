#include "Artwork.h"
#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

QPixmap SoftNameBanner(QSize size, qreal dpr) {
    QPixmap pm(size * dpr);
    pm.setDevicePixelRatio(dpr);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient g(0, 0, size.width(), size.height());
    g.setColorAt(0, QColor(0x1d, 0x1f, 0x4e));
    g.setColorAt(1, QColor(0x6a, 0x1b, 0x7a));
    p.fillRect(QRect(QPoint(0, 0), size), g);
    // A few stars.
    QRandomGenerator rng(42);
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 40; ++i) {
        const qreal x = rng.bounded(size.width()), y = rng.bounded(size.height());
        const qreal r = 0.6 + rng.bounded(1.6);
        p.setBrush(QColor(255, 255, 255, 60 + rng.bounded(150)));
        p.drawEllipse(QPointF(x, y), r, r);
    }
    QFont f = p.font();
    f.setPixelSize(size.height() * 38 / 100);
    f.setBold(true);
    p.setFont(f);
    p.setPen(QColor(0xff, 0xd5, 0x6b));
    p.drawText(QRect(0, 0, size.width(), size.height() * 72 / 100), Qt::AlignCenter, QStringLiteral("星澜 KTV"));
    f.setPixelSize(size.height() * 14 / 100);
    f.setBold(false);
    p.setFont(f);
    p.setPen(QColor(230, 230, 255));
    p.drawText(QRect(0, size.height() * 62 / 100, size.width(), size.height() * 30 / 100), Qt::AlignCenter,
               QStringLiteral("包厢营业管理系统"));
    return pm;
}

QIcon ToolIcon(const QString& glyph, const QColor& color) {
    QIcon icon;
    for (int s : {16, 24, 32, 48}) {
        QPixmap pm(s, s);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        QPainterPath path;
        path.addRoundedRect(QRectF(1, 1, s - 2, s - 2), s / 5.0, s / 5.0);
        p.fillPath(path, color);
        QFont f = p.font();
        f.setPixelSize(int(s * (glyph.size() > 1 ? 0.42 : 0.62)));
        f.setBold(true);
        p.setFont(f);
        p.setPen(Qt::white);
        p.drawText(QRect(0, 0, s, s), Qt::AlignCenter, glyph);
        icon.addPixmap(pm);
    }
    return icon;
}
