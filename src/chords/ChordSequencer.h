#pragma once

namespace tessaly {

class ChordLayers;
class MainWindow;
class MidiOut;
struct ChordState;
struct SharedState;

// The chord audition of the chord page: one pass of the order on its own
// timer HXYS, started and stopped by Check6; and the page's three speeds.
// The looping paths that carry the chord with the rhythm, the keyboard and
// the score are the accompaniment step's.
class ChordSequencer {
public:
    ChordSequencer(SharedState& state, ChordState& chords, MidiOut& midi, MainWindow& form, ChordLayers& layers)
        : state_(state), chords_(chords), midi_(midi), form_(form), layers_(layers) {}

    void wire();

    void HXYS_Timer();
    void Check6_Click();
    void Option4_Click(int Index);

private:
    SharedState& state_;
    ChordState& chords_;
    MidiOut& midi_;
    MainWindow& form_;
    ChordLayers& layers_;
};

}  // namespace tessaly
