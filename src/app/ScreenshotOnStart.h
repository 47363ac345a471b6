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

// When the environment names a file in TESSALY_SCREENSHOT, the program stages
// one scene and, once it stands, writes FILE.ready; the script that started it
// then takes the whole screen as the X server shows it (scripts/screen-scene.sh)
// and ends the program. The scene, TESSALY_SCREENSHOT_OF: "splash", "main" (the
// default), "shortcuts", "rhythm" (the rhythm running), "chords", "help",
// "keymap" (the key map unfolded), "small" (the small window), "entry" (the
// score entry window with a score), "dialog" (the score panel's open dialog),
// "farewell", "editor" and "editor44" (a few bars in 2/4 and 4/4),
// "editor-import" (a demonstration score imported), "timed-box" (a score the
// player cannot read), "input-box" (the editor's bar count) and "fatal-box"
// (a run-time failure met in the editor, with where the song was kept).
void screenshotOnStartIfAsked(Instrument& instrument, const ScreenshotWindows& windows);

}  // namespace tessaly
