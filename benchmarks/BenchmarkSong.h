#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace tessaly::bench {

struct TimedMessage {
    uint32_t timeMs;
    uint32_t message;  // packed short message
};

// A busy arrangement of the kind the instrument plays: a piano melody in
// eighths, held string chords and a drum pattern, for `seconds` seconds.
std::vector<TimedMessage> benchmarkSong(int seconds);

// Writes the messages as a type 0 standard MIDI file whose ticks are
// milliseconds. False when the file cannot be written.
bool writeStandardMidiFile(const std::string& path, const std::vector<TimedMessage>& messages);

}  // namespace tessaly::bench
