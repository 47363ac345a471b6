#pragma once

namespace tessaly {

class MainWindow;
struct Platform;
struct SharedState;

// Rhythm files: one line of a fixed layout, loaded from RhythmFileText.
class RhythmFiles {
public:
    RhythmFiles(Platform& platform, SharedState& state, MainWindow& form)
        : platform_(platform), state_(state), form_(form) {}

    // Loads RhythmFileText into the pattern: a text too short to be a rhythm
    // file is refused with a message; otherwise the volume field is taken.
    void OpenJZwj();

private:
    Platform& platform_;
    SharedState& state_;
    MainWindow& form_;
};

}  // namespace tessaly
