#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "shell/HeadlessProgram.h"

namespace tessaly::testing {

// The program on the recording platform in virtual time, started as a user
// starts it, with the start-up messages already taken.
struct Harness : HeadlessProgram {
    RecordingMidiPort& midiPort = midi;
    std::filesystem::path& appDir = dir;

    explicit Harness(bool started = true) : HeadlessProgram(Options{.name = "tessaly-unit", .started = started}) {}

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
