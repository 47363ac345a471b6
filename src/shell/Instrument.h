#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "chords/ChordLayers.h"
#include "chords/ChordPageHandlers.h"
#include "chords/ChordSequencer.h"
#include "chords/ChordState.h"
#include "editor/Editor.h"
#include "forms/ControlSystem.h"
#include "forms/EditorWindow.h"
#include "forms/FarewellWindow.h"
#include "forms/JianpuWindow.h"
#include "forms/MainWindow.h"
#include "forms/ScoreEntryWindow.h"
#include "forms/SplashWindow.h"
#include "jianpu/JianpuPanel.h"
#include "midi/MidiOut.h"
#include "performance/EffectKeys.h"
#include "performance/KeyboardPlay.h"
#include "performance/MidiKeyboard.h"
#include "performance/MousePlay.h"
#include "performance/ShortcutPage.h"
#include "platform/Platform.h"
#include "platform/testing/ScriptedDialogs.h"
#include "recorder/MainRecorder.h"
#include "recorder/RecorderState.h"
#include "rhythm/Accompaniment.h"
#include "rhythm/PatternEditing.h"
#include "rhythm/RhythmSequencer.h"
#include "shell/FatalEndSaves.h"
#include "shell/SettingsFile.h"
#include "shell/StartUp.h"
#include "shell/HelpPanel.h"
#include "shell/MainPanels.h"
#include "shell/MainWindowShell.h"
#include "rhythm/RhythmFiles.h"
#include "score/ScoreEntry.h"
#include "score/ScorePanel.h"
#include "score/ScorePlayer.h"
#include "state/SharedState.h"

namespace tessaly {

// The whole program without windows: shared state, the MIDI module, the
// form models and the subsystems that handle their events. The application
// (real or scripted) gives it the platform and drives it.
class Instrument {
public:
    // shippedData: the folder of the data that ships with the program, copied
    // into a new AppDir on its first start.
    Instrument(Platform& platform, std::string appDir, std::string shippedData = {});
    ~Instrument();

    // The program starts as a user starts it: the splash window shows; its
    // timer later shows the main window, which loads and is activated.
    void start();
    // The user closes the main window: the farewell window ends the program later.
    void close();
    // Told to end from outside (a logout, a kill): a window that stands in for
    // the main window is left as by its close box, then the main window closes
    // as by its own.
    void closeFromOutside();
    bool ended() const { return ended_; }
    // The process's exit status once ended: 0, or 1 when the start failed.
    int exitStatus() const { return exitStatus_; }
    // The program ends at once.
    void end(int exitStatus = 0);
    std::function<void()> onEnd;
    // The main window has been activated once.
    bool activated() const { return activated_; }
    const std::string& appDir() const { return appDir_; }
    const std::string& shippedData() const { return shippedData_; }

    // Main window events.
    void Form_Load();
    void Form_Activate();
    void QDCSH();
    void ComDevies_Click();
    // Chord order and figures at start-up.
    void CSHX();

    Platform& platform;
    ControlSystem controls;
    SharedState state;
    ChordState chordState;
    MidiOut midi;
    MainWindow form1;
    ChordLayers chords;
    Accompaniment accompaniment;
    EffectKeys effects;
    KeyboardPlay keyboard;
    MidiKeyboard midiKeyboard;
    MousePlay mouse;
    SplashWindow DZQQD;
    FarewellWindow Form3;
    SettingsFile settings;
    ShortcutPage shortcuts;
    StartUp startUp;
    MainPanels panels;
    HelpPanel help;
    MainWindowShell windowShell;
    // Answers cancel to every dialog while the platform gives none.
    ScriptedDialogs unansweredDialogs;
    Dialogs& dialogs;
    RhythmFiles rhythmFiles;
    ScorePlayer scorePlayer;
    ScorePanel scorePanel;
    ScoreEntryWindow YYLR;
    ScoreEntry scoreEntry;
    RhythmSequencer rhythmSequencer;
    PatternEditing patternEditing;
    ChordSequencer chordSequencer;
    ChordPageHandlers chordPageHandlers;
    RecorderState recorderState;
    MainRecorder recorder;
    // The music editor's window and its logic.
    EditorWindow YYBJ;
    Editor editor;
    // The score as numbered notation, in a window of its own.
    JianpuWindow JPXS;
    JianpuPanel jianpu;
    // What is written before the program ends by a run-time failure.
    FatalEndSaves fatalEndSaves;

private:
    void registerVariables();
    void fillCatalogueLists();

    std::string appDir_;
    std::string shippedData_;
    // Where work is kept when the program ends unasked, in the order tried.
    std::vector<std::string> recoveryFolders_;
    bool activated_ = false;
    bool ended_ = false;
    int exitStatus_ = 0;
};

// The text the information panel shows at start.
extern const char* const kStartHint;

}  // namespace tessaly
