#pragma once
#include <string>

namespace tessaly {

class Dialogs;
class MainWindow;
class ScoreEntryWindow;
struct SharedState;

// The handlers of the score entry window: a plain editor for scores, with
// no sound. The main window is hidden while it is open and comes back when
// it closes, by its button or its close box.
class ScoreEntry {
public:
    ScoreEntry(SharedState& state, ScoreEntryWindow& window, MainWindow& main, Dialogs& dialogs)
        : state_(state), window_(window), main_(main), dialogs_(dialogs) {}

    void wire();

    void Form_Load();
    void Form_Unload();
    void DKYP_Click();
    void Command1_Click();
    void FANHUI_Click();

    // The path last named in one of the window's dialogs.
    const std::string& lastPath() const { return lastPath_; }

private:
    std::string startFolder_;
    std::string lastPath_;
    SharedState& state_;
    ScoreEntryWindow& window_;
    MainWindow& main_;
    Dialogs& dialogs_;
};

// The name a typed score is saved under: a four-character ending (".txt",
// ".abc") is cut off, then ".txt" is added.
std::string entrySaveName(const std::string& chosen);

}  // namespace tessaly
