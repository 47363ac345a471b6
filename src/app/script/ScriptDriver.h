#pragma once
#include <iosfwd>
#include <memory>
#include <string>

#include "platform/Platform.h"
#include "platform/testing/EventLog.h"
#include "platform/testing/RecordingPlatform.h"
#include "platform/testing/ScriptedDialogs.h"
#include "platform/testing/VirtualEventLoop.h"

namespace tessaly {

class Instrument;

struct ScriptOptions {
    std::string appDir;  // empty: a fresh temporary folder, removed at the end
    bool synth = false;
    std::string wavPath;
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

    ScriptOptions options_;
    std::ostream& out_;
    std::string appDir_;
    bool ownsAppDir_ = false;
    VirtualEventLoop loop_;
    EventLog log_;
    RecordingMidiPort midi_;
    RecordingWaveOut wave_;
    RecordingMessageBoxes boxes_;
    ScriptedDialogs dialogs_;
    Platform platform_;
    std::unique_ptr<Instrument> instrument_;
};

// A value as the driver prints it: CR as \r, LF as \n, backslash doubled.
std::string escapeValue(const std::string& value);

}  // namespace tessaly
