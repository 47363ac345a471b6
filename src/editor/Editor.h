#pragma once
#include <functional>
#include <memory>
#include <optional>

#include "analysis/ScoreImport.h"
#include "editor/BarEditing.h"
#include "editor/BarSettings.h"
#include "editor/EditFiles.h"
#include "editor/EditorSequencer.h"
#include "editor/EditorState.h"
#include "editor/EditorWindowEvents.h"
#include "forms/EditorWindow.h"
#include "recorder/EditorRecorder.h"
#include "shell/FatalEndSaves.h"

namespace tessaly {

class Accompaniment;
class ChordLayers;
struct ChordState;
class ControlSystem;
struct EditorRecorderState;
class Dialogs;
class MainWindow;
class MidiOut;
struct Platform;
struct SharedState;

// The music editor: the song, the handlers of its window YYBJ, and what it
// shares with the rest of the program. The window's controls are made afresh
// at every opening; the handlers are attached to them each time.
class Editor {
    std::unique_ptr<EditorState> state_;

public:
    Editor(Platform& platform, SharedState& shared, MidiOut& midi, ChordLayers& chords, ChordState& chordState,
           EditorRecorderState& recorderState, Accompaniment& accompaniment, MainWindow& mainForm, EditorWindow& form,
           Dialogs& dialogs, ControlSystem& controls);
    ~Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    EditorState& s;
    Platform& platform;
    SharedState& shared;
    MidiOut& midi;
    ChordLayers& chords;
    Accompaniment& accompaniment;
    MainWindow& mainForm;
    EditorWindow& form;
    Dialogs& dialogs;
    ControlSystem& controls;

    BarEditing barEditing;
    BarSettings barSettings;
    EditorSequencer sequencer;
    EditFiles files;
    EditorWindowEvents window;
    ScoreImport scoreImport;
    EditorRecorder recorder;

    EditorBarPanel& bar() { return form.bar(); }
    EditorSettingsPanel& settings() { return form.settings(); }
    EditorCommandPanel& commands() { return form.commands(); }

    // Attaches the handlers to the window's controls as they are now.
    void wire();
    // Attaches the handler of a percussion box loaded at run time.
    void wireStep(int row, long index);

    // The editor's export button: set by whoever exports.
    std::function<void()> exportSong;

    // Makes the song and the editor's state readable by name.
    void registerVariables(ControlSystem& registry);

    // Writes the song as an edit file under a name that says it was
    // recovered, for the end of the program by a run-time failure; nothing
    // when the song is empty.
    std::optional<FatalEndSaves::Saved> saveForRecovery(const std::vector<std::string>& folders);
};

}  // namespace tessaly
