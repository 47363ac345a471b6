#pragma once
#include <QRect>

class QPainter;

namespace tessaly {

// The splash window's title card: the name, a subtitle, a staff and a stretch
// of keyboard, drawn to fit the area.
void drawSplashCard(QPainter& painter, const QRect& area);

// What shows through the farewell window's letters: a warm glow with a sheen.
void drawFarewellFill(QPainter& painter, const QRect& area);

}  // namespace tessaly
