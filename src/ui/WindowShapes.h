#pragma once
#include <QFont>
#include <QPainterPath>
#include <QRegion>
#include <QSize>
#include <QString>

namespace tessaly {

// A rectangle of the given size with its corners rounded to the radius,
// as a window mask. A radius of 0 or less leaves the rectangle whole.
QRegion roundedRegion(const QSize& size, int radius);

// The outline of the text's letters, centred in the given size.
QPainterPath centredTextPath(const QString& text, const QFont& font, const QSize& size);

// The letters of the text, centred in the given size, as a window mask:
// only the strokes belong to it.
QRegion textRegion(const QString& text, const QFont& font, const QSize& size);

// A large bold face that has the Chinese letters.
QFont farewellFont(int pixelSize);

}  // namespace tessaly
