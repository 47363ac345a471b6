#pragma once
#include <string>

#include "platform/testing/ScriptedDialogs.h"
#include "shell/HeadlessProgram.h"

namespace tessaly {

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

// A whole program of its own for one export: the headless instrument on the
// recording platform in virtual time, in a temporary data folder, started as
// a user starts it. It shares nothing with the live program, so that it can
// run on a worker thread while the live one plays. What start-up sent stays
// in the MIDI log: it is the state the play begins from.
class RenderProgram {
public:
    explicit RenderProgram(const RenderFolders& folders);
    RenderProgram(const RenderProgram&) = delete;
    RenderProgram& operator=(const RenderProgram&) = delete;

    Instrument& instrument() { return *headless_.app; }
    std::string dataFolder() const { return headless_.dir.string(); }
    // Copies a file into the data folder's scores folder; its new path.
    std::string copyIntoScores(const std::string& path);

    RenderDialogs dialogs;

private:
    HeadlessProgram headless_;

public:
    VirtualEventLoop& loop = headless_.loop;
    EventLog& log = headless_.log;
    RecordingMidiPort& midi = headless_.midi;
    RecordingWaveOut& wave = headless_.wave;

private:
    void borrowUserFiles(const std::string& userFolder);
    void start(const std::string& shippedData);
};

}  // namespace tessaly
