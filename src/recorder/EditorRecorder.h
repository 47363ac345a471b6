#pragma once
#include <string>

#include "recorder/RecorderCommands.h"

namespace tessaly {

class EditorRecorderPanel;
struct EditorRecorderState;
struct SharedState;
struct Platform;

// The editor's recorder: the options LUYINJI (play, stop, record, save), the
// quality list yinzi, and the timer Lyjsj, which counts minutes and seconds
// and notices the end of play. Nothing keeps it from playing while it records.
// Its controls are made afresh with the editor's window at each opening; the
// state outlives them.
class EditorRecorder {
public:
    EditorRecorder(Platform& platform, SharedState& shared, EditorRecorderState& state, Dialogs& dialogs);

    // Attaches the handlers to the window's recorder controls as they are now.
    void wire(EditorRecorderPanel& panel);
    // The editor's form load: depth, rate and the quality list to their defaults.
    void Form_Load();
    void LUYINJI_Click(int Index);
    void yinzi_Click();
    void Lyjsj_Timer();

private:
    void play();
    void stop();
    void record();
    void save();
    void resetTime();
    std::string dialogFolder() const;

    SharedState& shared_;
    EditorRecorderState& state_;
    EditorRecorderPanel* panel_ = nullptr;
    RecorderCommands commands_;
};

}  // namespace tessaly
