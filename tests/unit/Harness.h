#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "platform/testing/RecordingPlatform.h"
#include "platform/testing/VirtualEventLoop.h"
#include "shell/Instrument.h"

namespace tessaly::testing {

// The program on the recording platform in virtual time, started as a user
// starts it, with the start-up messages already taken.
struct Harness {
    VirtualEventLoop loop;
    EventLog log;
    RecordingMidiPort midiPort{loop};
    RecordingWaveOut wave{log};
    RecordingMessageBoxes boxes{log};
    Platform platform{loop, midiPort, wave, boxes};
    std::filesystem::path appDir;
    std::unique_ptr<Instrument> app;

    explicit Harness(bool started = true) {
        appDir = std::filesystem::temp_directory_path() /
                 ("tessaly-unit-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)));
        std::filesystem::create_directories(appDir / "音效");
        app = std::make_unique<Instrument>(platform, appDir.string());
        if (started) {
            app->start();
            // The splash window hands over to the main window after its timer.
            while (!app->activated() && !app->ended()) loop.advance(1);
            midiPort.take();
        }
    }
    ~Harness() {
        app.reset();
        std::error_code error;
        std::filesystem::remove_all(appDir, error);
    }

    void keyDown(int code, int shift = 0) {
        auto key = static_cast<int16_t>(code);
        app->form1.SFYXYZ.onKeyDown(key, static_cast<int16_t>(shift));
    }
    void keyUp(int code) {
        auto key = static_cast<int16_t>(code);
        app->form1.SFYXYZ.onKeyUp(key, 0);
    }
    void press(int code) {
        keyDown(code);
        keyUp(code);
    }

    // The messages since the last call as "B0 B1 B2".
    std::vector<std::string> sent() {
        std::vector<std::string> out;
        for (const RecordedMidi& m : midiPort.take())
            out.push_back(std::to_string(m.message & 0xFF) + " " + std::to_string((m.message >> 8) & 0xFF) + " " +
                          std::to_string((m.message >> 16) & 0xFF));
        return out;
    }
};

}  // namespace tessaly::testing
