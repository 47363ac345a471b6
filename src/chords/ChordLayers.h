#pragma once
#include <cstdint>

namespace tessaly {

class MidiOut;
struct SharedState;

// The three chord layers on channels 3, 4 and 5.
class ChordLayers {
public:
    ChordLayers(SharedState& state, MidiOut& midi) : state_(state), midi_(midi) {}

    // Silences the three chord channels.
    void HX1K();

    // One step of each layer. They sound nothing until the chord tables are
    // built; the callers already run them at the right moments.
    void BZHX() {}
    void BZHX2() {}
    void ZHHXJ() {}

    // A chord code sounded as three notes on a channel; silent until the chord tables are built.
    int16_t StrumCode = 0;
    int16_t StrumChannel = 0;
    void StrumChord() {}

private:
    SharedState& state_;
    MidiOut& midi_;
};

}  // namespace tessaly
