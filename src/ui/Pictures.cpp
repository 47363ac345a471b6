#include "ui/Pictures.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include "forms/MainWindow.h"
#include "ui/KeyMapPicture.h"

namespace tessaly {

namespace {

// A key: square at the top where it goes under the key bed, round at the tip.
QPainterPath keyShape(const QRectF& r, qreal radius) {
    QPainterPath path;
    path.moveTo(r.topLeft());
    path.lineTo(r.topRight());
    path.lineTo(r.right(), r.bottom() - radius);
    path.quadTo(r.bottomRight(), QPointF(r.right() - radius, r.bottom()));
    path.lineTo(r.left() + radius, r.bottom());
    path.quadTo(r.bottomLeft(), QPointF(r.left(), r.bottom() - radius));
    path.closeSubpath();
    return path;
}

void drawKey(QPainter& p, const QRectF& area, QColor top, QColor bottom, QColor outline, QColor lip, qreal lipHeight) {
    QRectF r = area.adjusted(0.5, 0, -0.5, -0.5);
    QPainterPath shape = keyShape(r, 3);
    QLinearGradient body(r.topLeft(), r.bottomLeft());
    body.setColorAt(0, top);
    body.setColorAt(1, bottom);
    p.fillPath(shape, body);
    if (lipHeight > 0) {
        // The front edge of a key that stands up.
        QRectF front(r.left() + 1.5, r.bottom() - lipHeight, r.width() - 3, lipHeight - 1);
        p.fillPath(keyShape(front, 2), lip);
    }
    p.setPen(QPen(outline, 1));
    p.drawPath(shape);
}

}  // namespace

bool drawPicture(QPainter& p, const QRectF& area, int pictureId) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    bool drawn = true;
    switch (pictureId) {
    case kWhiteKeyUp: drawKey(p, area, QColor(0xff, 0xff, 0xff), QColor(0xe6, 0xe8, 0xee), QColor(0x4a, 0x52, 0x60), QColor(0xd2, 0xd6, 0xdf), 7); break;
    case kWhiteKeyDown: drawKey(p, area, QColor(0xc9, 0xdc, 0xf5), QColor(0x8f, 0xb4, 0xe8), QColor(0x2f, 0x4f, 0x80), QColor(), 0); break;
    case kBlackKeyUp: drawKey(p, area, QColor(0x45, 0x48, 0x50), QColor(0x0b, 0x0c, 0x10), QColor(0x00, 0x00, 0x00), QColor(0x5c, 0x60, 0x6a), 6); break;
    case kKeyMapPicture: drawKeyMap(p, area); break;
    case kBlackKeyDown: drawKey(p, area, QColor(0x2c, 0x55, 0x90), QColor(0x12, 0x22, 0x3e), QColor(0x00, 0x00, 0x00), QColor(), 0); break;
    default: drawn = false;
    }
    p.restore();
    return drawn;
}

void drawMainBackground(QPainter& p, const QRect& area, const std::vector<QRect>& cards) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(area.topLeft(), area.bottomRight());
    sky.setColorAt(0, QColor(0x14, 0x20, 0x36));
    sky.setColorAt(0.55, QColor(0x1d, 0x36, 0x52));
    sky.setColorAt(1, QColor(0x12, 0x2a, 0x3c));
    p.fillRect(area, sky);

    QRadialGradient glow(QPointF(area.width() * 0.78, area.height() * 0.05), area.width() * 0.45);
    glow.setColorAt(0, QColor(0x6f, 0xb7, 0xe8, 70));
    glow.setColorAt(1, QColor(0x6f, 0xb7, 0xe8, 0));
    p.fillRect(area, glow);

    // A faint staff running through the window, bending like a phrase.
    p.setPen(QPen(QColor(255, 255, 255, 22), 1));
    for (int line = 0; line < 5; ++line) {
        QPainterPath staff;
        qreal y = area.height() * 0.62 + line * 7;
        staff.moveTo(0, y);
        staff.cubicTo(area.width() * 0.3, y - 40, area.width() * 0.6, y + 30, area.width(), y - 20);
        p.drawPath(staff);
    }

    for (const QRect& card : cards) {
        p.setPen(QPen(QColor(255, 255, 255, 40), 1));
        p.setBrush(QColor(255, 255, 255, 18));
        p.drawRoundedRect(QRectF(card).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
    }
    p.restore();
}

}  // namespace tessaly
