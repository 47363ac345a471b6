#pragma once

class QWidget;

namespace tessaly {

class EditorViewHost;
class Instrument;

// The program's windows that a picture can be taken of.
struct ScreenshotWindows {
    QWidget& splash;
    QWidget& main;
    QWidget& farewell;
    EditorViewHost& editor;
    QWidget& scoreEntry;
};

// When the environment names a file in TESSALY_SCREENSHOT, a picture of one
// window is saved there once it is up, and the program quits. Which window
// TESSALY_SCREENSHOT_OF says: "splash", "main" (the default), "shortcuts"
// (the main window on its settings tab), "rhythm" (the rhythm tab with the
// rhythm running), "chords" (on its chord tab), "help" (the help tab), "keymap"
// (the key map unfolded), "small" (the small window), "entry" (the score entry
// window with a score opened), "dialog" (the open dialog of the score panel),
// "farewell", or "editor" and "editor44": the music editor with a few bars
// written, in 2/4 and 4/4, or "editor-failure": the box of a run-time failure
// met in the editor. The shaped windows are
// taken from the screen around them, so that their shape shows.
// For documentation and visual checks under a virtual display.
void screenshotOnStartIfAsked(Instrument& instrument, const ScreenshotWindows& windows);

}  // namespace tessaly
