#pragma once
#include <QRect>
#include <vector>

class QPainter;

namespace tessaly {

// The program's pictures, drawn rather than loaded so that they fit any size:
// the keys of the on-screen keyboard (102..105) and the main window's background.
// False for an id that has no picture (0: none).
bool drawPicture(QPainter& painter, const QRectF& area, int pictureId);

// The main window's background, with a soft card under each of the given areas.
void drawMainBackground(QPainter& painter, const QRect& area, const std::vector<QRect>& cards);

}  // namespace tessaly
