#pragma once
#include <memory>
#include <string>

#include "platform/Platform.h"
#include "platform/testing/EventLog.h"
#include "platform/testing/RecordingPlatform.h"
#include "platform/testing/ScriptedDialogs.h"
#include "platform/testing/VirtualEventLoop.h"

namespace tessaly {

class Instrument;

// The dialogs of a render program: answered from the queue like the script
// driver's, and able to stand where the live program's last dialog went.
class RenderDialogs : public ScriptedDialogs {
public:
    void standIn(const std::string& folder) {
        if (!folder.empty()) wentTo(folder + "/");
    }
};

// Where a render program takes its files from.
struct RenderFolders {
    std::string shippedData;  // the data that ships with the program
    // A data folder whose settings file, chord figures and rhythm files the
    // render uses, as the program would find them there; it is only read.
    std::string userFolder;
};

// A whole program of its own for one export: the instrument on the recording
// platform in virtual time, in a temporary data folder, started as a user
// starts it. It shares nothing with the live program, so that it can run on
// a worker thread while the live one plays.
class RenderProgram {
public:
    explicit RenderProgram(const RenderFolders& folders);
    ~RenderProgram();
    RenderProgram(const RenderProgram&) = delete;
    RenderProgram& operator=(const RenderProgram&) = delete;

    Instrument& instrument() { return *instrument_; }
    const std::string& dataFolder() const { return dir_; }
    // Copies a file into the data folder's scores folder; its new path.
    std::string copyIntoScores(const std::string& path);

    VirtualEventLoop loop;
    EventLog log;
    RecordingMidiPort midi{loop};
    RecordingWaveOut wave{log};
    RecordingMessageBoxes boxes{log};
    RenderDialogs dialogs;
    Platform platform{loop, midi, wave, boxes};

private:
    void borrowUserFiles(const std::string& userFolder);
    void start();

    std::string dir_;
    std::unique_ptr<Instrument> instrument_;
};

}  // namespace tessaly
