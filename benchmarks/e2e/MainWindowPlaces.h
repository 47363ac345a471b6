#pragma once

// Where the probe clicks: the centres of the main window's controls as its
// layout places them, in pixels from the window's top left corner.
struct ControlCentre {
    int x = 0, y = 0;
};

struct MainWindowPlaces {
    ControlCentre open;      // "打开" under the score box
    ControlCentre audition;  // "试听", "停止" while a score plays
    ControlCentre keyboard;  // the keyboard button, which takes the keys
};

MainWindowPlaces mainWindowPlaces();
