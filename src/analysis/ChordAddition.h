#pragma once
#include <string>

namespace tessaly {

class Editor;
struct ChordState;

// Arranges an imported melody: the chord page's progression as it stands in
// ChordStepTable goes under the song on tracks 4, 5 and 6, cycled from the
// first slot to the end, and the rhythm page's three rows onto tracks 7, 8
// and 9 of every bar; the editor takes the main window's chord and rhythm
// instruments and its tempo. The melody itself is not looked at.
class ChordAddition {
public:
    ChordAddition(Editor& editor, ChordState& chords) : e_(editor), chords_(chords) {}

    void ZNHXTJ();
    // The chord tracks' tokens from their codes, for the slots before LastSlotIndex.
    void FXJSHX();

private:
    Editor& e_;
    ChordState& chords_;
};

// The token a chord step's code stands for in the editor: notes by their
// offset, whole chords by their root ("DC" for 73), "XZ" for 254, and "--"
// for anything else, 255 included.
std::string chordStepToken(int code);

}  // namespace tessaly
