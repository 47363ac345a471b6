#pragma once
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace tessaly {

// One short message as the program sent it, ms after the start of the play;
// packed as the MIDI port takes it (status in bits 0..7, data in 8..23).
struct TimedMessage {
    uint32_t ms;
    uint32_t message;
};

// From ms on, a quarter note lasts this long.
struct TempoChange {
    uint32_t ms;
    uint32_t microsecondsPerQuarter;
};

// A play heard through the program's own player in virtual time: the state
// the program had set up on each channel before the play (at 0 ms), then
// every message of the play at its time, and the tempo its timer kept.
struct CapturedPlay {
    std::vector<TimedMessage> messages;
    std::vector<TempoChange> tempo;  // the first at 0 ms
    int beatsPerBar = 0;             // quarter notes in a bar where the play knows it, else 0
    uint32_t endMs = 0;              // the last message of the play
    uint32_t volumeWord = 0xFFFFFFFF;  // the wave volume the program had set: the master gain

    // Note-ons with a velocity above 0.
    std::size_t noteCount() const;
};

// Why an export could not be made, in the words the user is told.
struct ExportFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// "无法写入文件：PATH：CAUSE", the cause in words (an errno, or a cause of FileAccess.h).
std::string exportFailureText(const std::string& path, int error);

inline int statusOf(uint32_t message) { return static_cast<int>(message & 0xFF); }
inline int data1Of(uint32_t message) { return static_cast<int>((message >> 8) & 0xFF); }
inline int data2Of(uint32_t message) { return static_cast<int>((message >> 16) & 0xFF); }

}  // namespace tessaly
