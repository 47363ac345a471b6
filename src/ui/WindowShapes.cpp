#include "ui/WindowShapes.h"

#include <QBitmap>
#include <QPainter>
#include <QPainterPath>
#include <QStringList>

namespace tessaly {

namespace {

// A path filled into a one-bit picture: the mask follows the antialiased
// outline's inside rather than a polygon's corners.
QRegion regionOfPath(const QPainterPath& path, const QSize& size) {
    QBitmap bitmap(size);
    bitmap.fill(Qt::color0);
    QPainter painter(&bitmap);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawPath(path);
    painter.end();
    return QRegion(bitmap);
}

}  // namespace

QRegion roundedRegion(const QSize& size, int radius) {
    if (radius <= 0) return QRegion(0, 0, size.width(), size.height());
    QPainterPath path;
    path.addRoundedRect(QRectF(0, 0, size.width(), size.height()), radius, radius);
    return regionOfPath(path, size);
}

QPainterPath centredTextPath(const QString& text, const QFont& font, const QSize& size) {
    QPainterPath letters;
    letters.addText(0, 0, font, text);
    // Centre the outline itself, not the font's line box, so that the letters
    // sit in the middle whatever the face's ascent.
    const QRectF box = letters.boundingRect();
    letters.translate(size.width() / 2.0 - box.center().x(), size.height() / 2.0 - box.center().y());
    return letters;
}

QRegion textRegion(const QString& text, const QFont& font, const QSize& size) {
    return regionOfPath(centredTextPath(text, font, size), size);
}

QFont farewellFont(int pixelSize) {
    QFont font;
    font.setFamilies(QStringList{QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Noto Serif CJK SC"),
                                 QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("Sans Serif")});
    font.setPixelSize(pixelSize);
    font.setWeight(QFont::Black);
    return font;
}

}  // namespace tessaly
