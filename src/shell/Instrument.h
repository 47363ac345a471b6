#pragma once
#include <memory>
#include <string>

#include "chords/ChordLayers.h"
#include "forms/ControlSystem.h"
#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "performance/EffectKeys.h"
#include "performance/KeyboardPlay.h"
#include "platform/Platform.h"
#include "platform/testing/ScriptedDialogs.h"
#include "rhythm/Accompaniment.h"
#include "rhythm/RhythmFiles.h"
#include "score/ScorePanel.h"
#include "score/ScorePlayer.h"
#include "state/SharedState.h"

namespace tessaly {

// The whole program without windows: shared state, the MIDI module, the
// form models and the subsystems that handle their events. The application
// (real or scripted) gives it the platform and drives it.
class Instrument {
public:
    Instrument(Platform& platform, std::string appDir);
    ~Instrument();

    // The program starts as a user starts it: the main window loads, shows and
    // is activated for the first time.
    void start();
    // The user closes the main window.
    void close();
    bool ended() const { return ended_; }

    // Main window events.
    void Form_Load();
    void Form_Activate();
    void QDCSH();
    void ComDevies_Click();

    Platform& platform;
    ControlSystem controls;
    SharedState state;
    MidiOut midi;
    MainWindow form1;
    ChordLayers chords;
    Accompaniment accompaniment;
    EffectKeys effects;
    KeyboardPlay keyboard;
    // Answers cancel to every dialog while the platform gives none.
    ScriptedDialogs unansweredDialogs;
    Dialogs& dialogs;
    RhythmFiles rhythmFiles;
    ScorePlayer scorePlayer;
    ScorePanel scorePanel;

private:
    void registerVariables();
    void fillCatalogueLists();

    std::string appDir_;
    bool activated_ = false;
    bool ended_ = false;
};

// The text the information panel shows at start.
extern const char* const kStartHint;

}  // namespace tessaly
