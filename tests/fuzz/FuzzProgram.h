#pragma once
// The whole program on the recording platform in virtual time, started once
// and kept for every input of a fuzzer or a soak.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/testing/RecordingPlatform.h"
#include "platform/testing/ScriptedDialogs.h"
#include "platform/testing/VirtualEventLoop.h"
#include "shell/Instrument.h"

namespace tessaly::fuzz {

[[noreturn]] inline void fail() { std::abort(); }

struct Program {
    VirtualEventLoop loop;
    EventLog log;
    RecordingMidiPort midi{loop};
    RecordingWaveOut wave{log};
    RecordingMessageBoxes boxes{log};
    ScriptedDialogs dialogs;
    Platform platform{loop, midi, wave, boxes};
    std::filesystem::path dir;
    std::unique_ptr<Instrument> app;

    explicit Program(const std::string& name) {
        // Memory-backed where there is one: saves sync their files, and a
        // disk would make every input wait for it.
        std::error_code error;
        std::filesystem::path base = std::filesystem::is_directory("/dev/shm", error)
                                         ? std::filesystem::path("/dev/shm")
                                         : std::filesystem::temp_directory_path();
        dir = base / (name + "-" + std::to_string(::getpid()));
        std::filesystem::remove_all(dir);
        std::filesystem::create_directories(dir / "音效");
        platform.dialogs = &dialogs;
        app = std::make_unique<Instrument>(platform, dir.string());
        app->start();
        // The main window is ready once the splash has handed over.
        while (!app->activated() && !app->ended()) loop.advance(1);
        if (!app->activated()) fail();
        midi.take();
        log.take();
    }
    ~Program() {
        app.reset();
        std::error_code error;
        std::filesystem::remove_all(dir, error);
    }
};

}  // namespace tessaly::fuzz
