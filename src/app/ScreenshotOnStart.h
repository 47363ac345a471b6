#pragma once
#include <QString>

class QWidget;

namespace tessaly {

// When the environment names a file in TESSALY_SCREENSHOT, the window is
// saved there as a picture once it has been shown, and the program quits.
// For documentation and visual checks under a virtual display.
void screenshotOnStartIfAsked(QWidget& window);

}  // namespace tessaly
