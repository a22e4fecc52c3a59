#include "StatusArt.h"
#include "AppState.h"
#include <QFileInfo>
#include <QHash>
#include <QPainter>
#include <QPainterPath>

namespace {
QHash<QString, QIcon>& iconCache() {
    static QHash<QString, QIcon> cache;
    return cache;
}

QString fileNameOf(const QString& key) {
    // The reserved picture has always been called "Reserve".
    return key == QLatin1String("Reservation") ? QStringLiteral("Reserve") : key;
}

QPixmap venuePicture(const QString& key) {
    if (App().AppPath.isEmpty()) return {};
    for (const char* ext : {".png", ".jpg", ".bmp"}) {
        const QString path = App().AppPath + QStringLiteral("/Image/") + fileNameOf(key) + QLatin1String(ext);
        if (QFileInfo::exists(path)) {
            QPixmap pm(path);
            if (!pm.isNull()) return pm;
        }
    }
    return {};
}

// The white sign inside the disc, drawn in a 100 x 100 box.
void drawSign(QPainter& p, const QString& key) {
    QPen pen(Qt::white, 9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    if (key == QLatin1String("Use")) {
        // A microphone: the guests are singing.
        p.setBrush(Qt::white);
        p.setPen(Qt::NoPen);
        p.drawRoundedRect(QRectF(38, 20, 24, 38), 12, 12);
        p.setPen(pen);
        p.setBrush(Qt::NoBrush);
        p.drawArc(QRectF(28, 30, 44, 40), 180 * 16, 180 * 16);
        p.drawLine(QPointF(50, 70), QPointF(50, 80));
        p.drawLine(QPointF(38, 81), QPointF(62, 81));
    } else if (key == QLatin1String("Stop")) {
        // No entry.
        pen.setWidth(12);
        p.setPen(pen);
        p.drawLine(QPointF(28, 50), QPointF(72, 50));
    } else if (key == QLatin1String("Reservation")) {
        // A calendar page.
        p.drawRoundedRect(QRectF(26, 30, 48, 44), 6, 6);
        p.drawLine(QPointF(26, 44), QPointF(74, 44));
        p.drawLine(QPointF(38, 22), QPointF(38, 34));
        p.drawLine(QPointF(62, 22), QPointF(62, 34));
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::white);
        p.drawEllipse(QPointF(50, 59), 6, 6);
    } else if (key == QLatin1String("Lock")) {
        // A padlock: the room is being cleaned.
        p.drawArc(QRectF(36, 20, 28, 34), 0, 180 * 16);
        p.drawLine(QPointF(36, 37), QPointF(36, 46));
        p.drawLine(QPointF(64, 37), QPointF(64, 46));
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::white);
        p.drawRoundedRect(QRectF(28, 44, 44, 34), 6, 6);
    } else {
        // Free: a tick.
        QPainterPath tick;
        tick.moveTo(28, 52);
        tick.lineTo(44, 67);
        tick.lineTo(73, 34);
        pen.setWidth(11);
        p.setPen(pen);
        p.drawPath(tick);
    }
}
} // namespace

StatusLook LookOf(const QString& key) {
    if (key == QLatin1String("Use")) return {QColor(0xd8, 0x43, 0x15), QColor(0xff, 0xe6, 0xd5)};
    if (key == QLatin1String("Stop")) return {QColor(0x61, 0x61, 0x61), QColor(0xee, 0xee, 0xee)};
    if (key == QLatin1String("Reservation")) return {QColor(0x15, 0x65, 0xc0), QColor(0xe3, 0xf2, 0xfd)};
    if (key == QLatin1String("Lock")) return {QColor(0x6a, 0x1b, 0x9a), QColor(0xf3, 0xe5, 0xf5)};
    return {QColor(0x2e, 0x7d, 0x32), QColor(0xe8, 0xf5, 0xe9)};
}

QPixmap StatusPixmap(const QString& key, int size) {
    const QPixmap own = venuePicture(key);
    if (!own.isNull()) return own.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 100.0, size / 100.0);
    p.setPen(Qt::NoPen);
    p.setBrush(LookOf(key).strong);
    p.drawEllipse(QRectF(3, 3, 94, 94));
    drawSign(p, key);
    return pm;
}

QIcon StatusIcon(const QString& key) {
    auto it = iconCache().constFind(key);
    if (it != iconCache().constEnd()) return *it;
    QIcon icon;
    for (int s : {16, 24, 32, 48, 64})
        icon.addPixmap(StatusPixmap(key, s));
    iconCache().insert(key, icon);
    return icon;
}

void ResetStatusArt() {
    iconCache().clear();
}
