#pragma once

#include <cstdint>

namespace tessaly {

// TickMs for a tempo: 7500 / tempo, halves to the even neighbour.
int16_t tickMsForTempo(double tempo);

class ChordLayers;
class MainWindow;
class MidiOut;
struct SharedState;

// The accompaniment that rides on a clock: rhythm steps and chord steps with
// their shared counters, stepped every fourth tick.
class Accompaniment {
public:
    Accompaniment(SharedState& state, MidiOut& midi, MainWindow& form, ChordLayers& chords)
        : state_(state), midi_(midi), form_(form), chords_(chords) {}

    // Expression on channels 3, 4 and 9: falls by 2 a tick, jumps back at each wrap.
    void sendAccentSweep();
    // True on the ticks that carry a step.
    bool onStepTick() const;
    // Chord layers, chord counters, the rhythm step and its counter.
    void step();
    // AccompanimentTick moves on, back to 0 past 2 * RhythmLastStep + 1.
    void advanceTick();
    // The downbeat at the first key of keyboard play under auto-sync.
    void downbeat();
    // Every start and stop of a clock begins the steps afresh.
    void resetCounters();

private:
    SharedState& state_;
    MidiOut& midi_;
    MainWindow& form_;
    ChordLayers& chords_;
};

}  // namespace tessaly
