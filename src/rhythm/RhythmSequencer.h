#pragma once

namespace tessaly {

class Accompaniment;
class ChordLayers;
class MainWindow;
struct Platform;
struct SharedState;

// The rhythm played alone: BzQd starts and stops the timer BZDS, whose tick
// carries the accompaniment step every fourth tick. With Check5 on, Timer1
// and Timer3 carry the same step instead.
class RhythmSequencer {
public:
    RhythmSequencer(Platform& platform, SharedState& state, MainWindow& form, Accompaniment& accompaniment,
                    ChordLayers& chords);

    void wire();

    void BzQd_Click();
    void BZDS_Timer();

private:
    Platform& platform_;
    SharedState& state_;
    MainWindow& form_;
    Accompaniment& accompaniment_;
    ChordLayers& chords_;
};

}  // namespace tessaly
