#pragma once
#include <filesystem>
#include <memory>
#include <string>

#include "platform/testing/RecordingPlatform.h"
#include "platform/testing/ScriptedMidiInput.h"
#include "platform/testing/VirtualEventLoop.h"
#include "shell/Instrument.h"

namespace tessaly {

// The whole program without windows, on the recording platform in virtual
// time, in a data folder of its own that goes with it: what the unit tests,
// the fuzzers and the benchmarks drive. File dialogs and input boxes are
// answered from app->unansweredDialogs (cancelled when nothing is queued).
struct HeadlessProgram {
    struct Options {
        // Part of the folder's name, so that leftovers tell whose they were.
        std::string name = "tessaly-headless";
        // Started as a user starts it, and run until the main window is active.
        bool started = true;
        // Under /dev/shm where there is one: saves sync their files, and a
        // disk would make a fuzzer wait for every input.
        bool inMemory = false;
        // Where the data that ships with the program is; empty: where the build put it.
        std::string shippedData{};
        // Answers the file dialogs and input boxes in place of app->unansweredDialogs.
        Dialogs* dialogs = nullptr;
    };

    VirtualEventLoop loop;
    EventLog log;
    RecordingMidiPort midi{loop};
    RecordingWaveOut wave{log};
    RecordingMessageBoxes boxes{log};
    // The keyboards' ports and messages, as the test sets and sends them.
    ScriptedMidiInput midiIn;
    Platform platform{.loop = loop, .midi = midi, .wave = wave, .boxes = boxes, .midiIn = midiIn};
    std::filesystem::path dir;
    std::unique_ptr<Instrument> app;

    HeadlessProgram() : HeadlessProgram(Options{}) {}
    explicit HeadlessProgram(const Options& options);
    ~HeadlessProgram();
    HeadlessProgram(const HeadlessProgram&) = delete;
    HeadlessProgram& operator=(const HeadlessProgram&) = delete;

    // Starts the program and runs virtual time until the main window is
    // active; false when it ended instead. What start-up sent is taken.
    bool startUntilActive();
};

}  // namespace tessaly
