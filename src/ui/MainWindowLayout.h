#pragma once
#include <QRect>
#include <vector>

namespace tessaly {

class MainWindow;

// Where the main window's controls stand, in pixels within their container:
// the form, tabs, panels, score box, status lines and the on-screen keyboard.
void placeMainWindowControls(MainWindow& form);

// The areas of the form that its background frames as cards.
std::vector<QRect> mainWindowCards();

// Static captions of the melody panel that belong to no control: text and place.
struct PanelCaption {
    const char* text;
    QRect place;
};
std::vector<PanelCaption> melodyPanelCaptions();
// The row captions of the shortcut page.
std::vector<PanelCaption> shortcutPageCaptions();

}  // namespace tessaly
