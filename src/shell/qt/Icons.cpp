#include "shell/qt/Icons.h"

#include <QPainter>
#include <QPolygonF>
#include <QPixmap>

namespace bw::qt {

namespace {

const QColor kInk(0x2b, 0x3a, 0x4a);
const QColor kBrass(0xb0, 0x8d, 0x57);

void DrawKind(QPainter& p, const QString& kind) {
    p.setPen(QPen(kInk, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(kBrass);
    if (kind == "vehicle") {
        // A tank in side view: hull, turret, gun and tracks.
        p.drawRoundedRect(QRectF(3, 14, 24, 8), 3, 3);
        p.drawRoundedRect(QRectF(9, 9, 11, 6), 2, 2);
        p.drawLine(QPointF(20, 11), QPointF(29, 9));
        p.setBrush(kInk);
        for (int x = 7; x <= 23; x += 5) p.drawEllipse(QPointF(x, 22), 1.6, 1.6);
    } else if (kind == "fighter") {
        // A delta-winged fighter seen from above.
        p.drawPolygon(QPolygonF({{16, 3}, {19, 13}, {29, 22}, {19, 21}, {18, 27}, {14, 27}, {13, 21}, {3, 22}, {13, 13}}));
    } else if (kind == "dropship") {
        p.drawEllipse(QRectF(7, 3, 18, 24));
        p.drawLine(QPointF(16, 7), QPointF(16, 23));
    } else {
        // A long warship hull.
        p.drawPolygon(QPolygonF({{2, 16}, {8, 11}, {28, 11}, {30, 16}, {28, 21}, {8, 21}}));
    }
}

void DrawBadge(QPainter& p, const QString& action) {
    QRectF badge(18, 17, 13, 13);
    QColor fill = action == "new" ? QColor(0x2e, 0x8b, 0x57) : action == "open" ? QColor(0x2f, 0x6d, 0xb5) : QColor(0xc0, 0x39, 0x2b);
    p.setPen(QPen(Qt::white, 1.2));
    p.setBrush(fill);
    p.drawEllipse(badge);
    p.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::RoundCap));
    QPointF c = badge.center();
    if (action == "new") {
        p.drawLine(c + QPointF(-3.5, 0), c + QPointF(3.5, 0));
        p.drawLine(c + QPointF(0, -3.5), c + QPointF(0, 3.5));
    } else if (action == "open") {
        p.drawLine(c + QPointF(-3.5, 0), c + QPointF(3, 0));
        p.drawLine(c + QPointF(0.5, -3), c + QPointF(3, 0));
        p.drawLine(c + QPointF(0.5, 3), c + QPointF(3, 0));
    } else {
        p.drawLine(c + QPointF(-3, -3), c + QPointF(3, 3));
        p.drawLine(c + QPointF(-3, 3), c + QPointF(3, -3));
    }
}

QPixmap Render(const QString& kind, const QString& action, int size, bool disabled) {
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 32.0, size / 32.0);
    if (disabled) p.setOpacity(0.35);
    DrawKind(p, kind);
    DrawBadge(p, action);
    return pm;
}

}  // namespace

QIcon DesignIcon(const QString& kind, const QString& action) {
    QIcon icon;
    for (int size : {16, 24, 32, 48, 64}) {
        icon.addPixmap(Render(kind, action, size, false), QIcon::Normal);
        icon.addPixmap(Render(kind, action, size, true), QIcon::Disabled);
    }
    return icon;
}

}  // namespace bw::qt
