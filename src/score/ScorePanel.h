#pragma once

namespace tessaly {

class Accompaniment;
class ChordLayers;
class ControlSystem;
class Dialogs;
class MainWindow;
class ScorePlayer;
struct SharedState;

// The score panel: the score box Text3, the five buttons Yuepu (audition and
// stop, delete, open, clear, save) and the two buttons to the other windows.
class ScorePanel {
public:
    ScorePanel(SharedState& state, MainWindow& form, ScorePlayer& player, Accompaniment& accompaniment,
               ChordLayers& chords, Dialogs& dialogs,
               ControlSystem& controls);

    void wire();

    void Yuepu_Click(int Index);
    void Yuepu_MouseDown(int Index);
    void XINJIAN_Click();
    void BJCK_Click();

private:
    void audition();
    void deleteFile();
    void open();
    void clear();
    void save();
    // The timer stopped at interval 0, the melody and the chords silenced.
    void stopPlaying();
    // The counters of a start of play, then the first read.
    void startPlay();
    void showWindowInstead(const char* formName);

    SharedState& state_;
    MainWindow& form_;
    ScorePlayer& player_;
    Accompaniment& accompaniment_;
    ChordLayers& chords_;
    Dialogs& dialogs_;
    ControlSystem& controls_;
};

extern const char* const kScoreFilter;
extern const char* const kAutoPlayHint;

}  // namespace tessaly
