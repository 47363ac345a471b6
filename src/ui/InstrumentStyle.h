#pragma once
#include <QFont>
#include <QString>

namespace tessaly {

// The look of the instrument's windows: a CJK-capable font, light text on the
// dark background picture, tabs, and the keyboard button in a warm accent.
QFont instrumentFont();
QFont scoreFont();
QString instrumentStyleSheet();

}  // namespace tessaly
