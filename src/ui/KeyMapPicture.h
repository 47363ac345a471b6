#pragma once
#include <QRectF>

class QPainter;

namespace tessaly {

// The size the key map is drawn for; it is scaled to any other.
constexpr int kKeyMapWidth = 980, kKeyMapHeight = 204;

// The whole key map: the typing keyboard as it stands, each key with what it
// does: the note it plays coloured by register, the tonality keys, the
// instrument keys, the function keys, the effect keys, the keypad and Esc;
// under it the legend of the colours.
void drawKeyMap(QPainter& painter, const QRectF& area);

}  // namespace tessaly
