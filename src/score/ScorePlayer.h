#pragma once
#include <cstdint>
#include <memory>

namespace tessaly {

class ScoreCharacters;

class Accompaniment;
class ChordLayers;
class Dialogs;
class MainWindow;
class MidiOut;
class RhythmFiles;
struct Platform;
struct ScoreItem;
struct SharedState;

// Plays ScoreText: the reader YSCX reads item by item, one item ahead of the
// sound, and the tick of Timer3 starts the notes and carries the
// accompaniment when Check5 is on.
class ScorePlayer {
public:
    ScorePlayer(Platform& platform, SharedState& state, MidiOut& midi, MainWindow& form,
                Accompaniment& accompaniment, ChordLayers& chords, RhythmFiles& rhythmFiles, Dialogs& dialogs);
    ~ScorePlayer();

    void wire();

    // Reads on through any run of commands to the next note, rest or stop.
    void YSCX();
    void Timer3_Timer();

    // Stops the note the player sounds on the melody channels, with its double.
    void stopMelody();
    // RhythmStep, ChordStep, ScoreTick back to 0 and ChordIndex to 1.

private:
    // One item; true when the reader goes on to the next item at once.
    bool readOne(const ScoreCharacters& text);
    bool tonality(const ScoreItem& item);
    bool tempo(const ScoreItem& item);
    bool rhythm(const ScoreItem& item);
    bool instruments(const ScoreItem& item);
    void note(const ScoreItem& item);
    void rest();
    void stop();
    void unknownToken();
    void loadRhythmFile(int n);
    void computeTickMs();
    void moveOn();

    Platform& platform_;
    SharedState& state_;
    MidiOut& midi_;
    MainWindow& form_;
    Accompaniment& accompaniment_;
    ChordLayers& chords_;
    RhythmFiles& rhythmFiles_;
    Dialogs& dialogs_;
    // Shown in the status line on every tick; nothing advances it.
    int16_t statusCounter_ = 0;
    std::unique_ptr<ScoreCharacters> characters_;
    uint64_t indexedChanges_ = 0;  // of ScoreText when characters_ was built
};


}  // namespace tessaly
