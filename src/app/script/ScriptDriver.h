#pragma once
#include <iosfwd>
#include <memory>
#include <string>

#include "platform/Platform.h"
#include "platform/posix/FlockInstanceLock.h"
#include "platform/testing/EventLog.h"
#include "platform/testing/RecordingPlatform.h"
#include "platform/testing/ScriptedDialogs.h"
#include "platform/testing/ScriptedMidiInput.h"
#include "platform/testing/VirtualEventLoop.h"
#include "platform/WallClock.h"
#include "shell/StartFile.h"

namespace tessaly {

class Instrument;
class SynthRendering;
class ExportButtons;

struct ScriptOptions {
    std::string appDir;  // empty: a fresh temporary folder, removed at the end
    bool synth = false;
    std::string wavPath;
    std::string soundFont;  // with --synth: this .sf2 instead of the usual search
    // The data that ships with the program, seeded into a new AppDir.
    std::string shippedData = defaultShippedData();
    static std::string defaultShippedData();
};

// Runs the whole program without windows, in virtual time, on the recording
// platform, one command a line. Exit status: 0 done or ended, 2 bad line,
// 3 fatal failure.
class ScriptDriver {
public:
    ScriptDriver(ScriptOptions options, std::ostream& out);
    ~ScriptDriver();
    int run(std::istream& script);

    Instrument& instrument() { return *instrument_; }

private:
    // Returns true when the program ended during the command.
    bool execute(const std::string& line);
    void printMidi();
    void printEvents();
    // "show FORM" and "hide FORM" go to the event log.
    void logFormVisibility();
    // Runs virtual time until the main window is active or the program ended.
    void runUntilMainWindowActive();

    ScriptOptions options_;
    std::ostream& out_;
    bool ownsAppDir_ = false;  // before appDir_: set while appDir_ is chosen
    std::string appDir_;
    VirtualEventLoop loop_;
    EventLog log_;
    std::unique_ptr<SynthRendering> synth_;  // with --synth: the real synthesizer behind the recording
    RecordingMidiPort midi_;
    RecordingWaveOut wave_;
    RecordingMessageBoxes boxes_;
    FlockInstanceLock instanceLock_;
    RecordingMciCommands mci_;
    ScriptedDialogs dialogs_;
    // The dialogs the program sees: a file named by "open-file" answers first.
    PresetOpenDialog startDialogs_{dialogs_};
    RecordingUrlOpener urls_;
    VirtualWallClock clock_;
    ScriptedMidiInput midiIn_;
    Platform platform_;
    std::unique_ptr<Instrument> instrument_;
    // The export buttons, exporting at the click: a run stays deterministic.
    std::unique_ptr<ExportButtons> exportButtons_;
};

// A value as the driver prints it: CR as \r, LF as \n, backslash doubled.
std::string escapeValue(const std::string& value);

}  // namespace tessaly
