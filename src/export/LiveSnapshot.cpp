#include "export/LiveSnapshot.h"

#include "export/PlaySources.h"
#include "export/RenderProgram.h"
#include "runtime/FatalFailure.h"
#include "shell/Instrument.h"

namespace tessaly {

namespace {

std::string indexed(const std::string& name, int index, const std::string& property) {
    return name + "(" + std::to_string(index) + ")." + property;
}

// The main window's settings that a score's play reads, and those whose
// events set up what it reads (instruments, volumes, tempo, key, sync, the
// accompaniment, the chord figures, the rhythm folder).
std::vector<std::string> scoreControls(Instrument& live) {
    std::vector<std::string> names;
    for (int i = 0; i < 3; ++i) {
        names.push_back(indexed("Form1.ComSounds", i, "ListIndex"));
        names.push_back(indexed("Form1.Zxlyl", i, "ListIndex"));
        names.push_back(indexed("Form1.Check3", i, "Value"));
        names.push_back(indexed("Form1.LblInst", i, "ListIndex"));
        if (live.form1.rhythmPage.Option1[i].value()) names.push_back(indexed("Form1.Option1", i, "Value"));
    }
    for (const char* name : {"SD.ListIndex", "SD.Text", "YD.ListIndex", "Check1.Value", "Check5.Value",
                             "Combo1.ListIndex", "Combo2.ListIndex", "Combo3.ListIndex", "xuanyue.ListIndex",
                             "HxYL.ListIndex", "VsbVol.ListIndex", "Text4.Text", "Text5.Text", "Text7.Text",
                             "Text6.Text", "File1.Path", "File1.Pattern"})
        names.push_back(std::string("Form1.") + name);
    return names;
}

// The editor's settings of the bar on show, the time signature first.
std::vector<std::string> songControls(Instrument& live) {
    std::vector<std::string> names;
    for (int i = 0; i < 3; ++i)
        if (live.YYBJ.settings().JPFL[i].value()) names.push_back(indexed("YYBJ.JPFL", i, "Value"));
    for (int t = 0; t < 12; ++t) {
        names.push_back(indexed("YYBJ.SYYQ", t, "ListIndex"));
        names.push_back(indexed("YYBJ.YQYL", t, "ListIndex"));
    }
    for (const char* name : {"DQYD.ListIndex", "DQSUDU.ListIndex", "DQSUDU.Text", "Check1(0).Value",
                             "Check1(1).Value", "HScroll3.Value"})
        names.push_back(std::string("YYBJ.") + name);
    return names;
}

std::shared_ptr<LiveSnapshot> snapshotOf(Instrument& live, LiveSnapshot::Kind kind,
                                         const std::vector<std::string>& controls) {
    auto snapshot = std::make_shared<LiveSnapshot>();
    snapshot->kind = kind;
    for (const std::string& name : controls)
        if (std::optional<std::string> value = live.controls.get(name)) snapshot->controls.emplace_back(name, *value);
    snapshot->shared = live.state;
    snapshot->chords = live.chordState;
    snapshot->pans = live.midi.ChannelPan;
    snapshot->velocities = live.midi.ChannelVelocity;
    snapshot->layerVelocities = live.midi.LayerVelocity;
    snapshot->steps = live.midi.StepTable;
    snapshot->dialogFolder = live.dialogs.currentFolder();
    snapshot->dataFolder = live.appDir();
    snapshot->shippedData = live.shippedData();
    return snapshot;
}

// The state behind the controls, over whatever their events made of it.
void copyState(Instrument& app, const LiveSnapshot& snapshot) {
    const std::string appDir = app.state.AppDir, pathInUse = app.state.FilePathInUse;
    app.state = snapshot.shared;
    app.state.AppDir = appDir;
    app.state.FilePathInUse = pathInUse;
    app.state.AutoPlaying = 0;
    app.chordState = snapshot.chords;
    app.midi.ChannelPan = snapshot.pans;
    app.midi.ChannelVelocity = snapshot.velocities;
    app.midi.LayerVelocity = snapshot.layerVelocities;
    app.midi.StepTable = snapshot.steps;
    if (snapshot.song) {
        EditorState& song = app.editor.s;
        // What belongs to this program's own window stays its own.
        const int16_t shownSlots = song.ShownSlotsMinusOne, started = song.EditorStarted;
        const std::string dialogFolder = song.DialogFolder;
        song = *snapshot.song;
        song.ShownSlotsMinusOne = shownSlots;
        song.EditorStarted = started;
        song.DialogFolder = dialogFolder;
    }
}

}  // namespace

std::shared_ptr<const LiveSnapshot> snapshotScore(Instrument& live) {
    auto snapshot = snapshotOf(live, LiveSnapshot::Kind::Score, scoreControls(live));
    snapshot->scoreText = live.form1.Text3.text();
    return snapshot;
}

std::shared_ptr<const LiveSnapshot> snapshotSong(Instrument& live) {
    auto snapshot = snapshotOf(live, LiveSnapshot::Kind::Song, songControls(live));
    snapshot->song = std::make_unique<EditorState>(live.editor.s);
    return snapshot;
}

PlayStart livePlay(RenderProgram& program, const LiveSnapshot& snapshot) {
    Instrument& app = program.instrument();
    try {
        if (snapshot.kind == LiveSnapshot::Kind::Song) app.form1.BJCK.userClick();
        for (const auto& [name, value] : snapshot.controls)
            if (app.controls.get(name) != value) app.controls.set(name, value);
        copyState(app, snapshot);
        program.dialogs.standIn(snapshot.dialogFolder);
        return snapshot.kind == LiveSnapshot::Kind::Song ? editorSongPlay(program)
                                                          : scoreTextPlay(program, snapshot.scoreText);
    } catch (const FatalFailure& failure) {
        throw ExportFailure(std::string("运行时错误：") + failure.what());
    }
}

}  // namespace tessaly
