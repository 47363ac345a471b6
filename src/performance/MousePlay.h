#pragma once

namespace tessaly {

class MainWindow;
class MidiOut;
struct SharedState;

// The on-screen keyboard under the mouse: a key the pointer is dragged over
// sounds as a key press would, without writing to the score; the strip
// Label1 is the damper.
class MousePlay {
public:
    MousePlay(SharedState& state, MidiOut& midi, MainWindow& form) : state_(state), midi_(midi), form_(form) {}

    void wire();
    void Picture1_DragOver(int Index);
    void Label1_MouseMove();

private:
    // The note of LastPlayedOffset off on the three melody channels, and its double.
    void stopLastNote();
    void showKeyUp(int offset);

    SharedState& state_;
    MidiOut& midi_;
    MainWindow& form_;
};

}  // namespace tessaly
