#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

// What is in force when play starts: the tonality and tempo lists, the
// rhythm page's metre and the duration the reader keeps from before.
struct JianpuStart {
    int keyIndex = 0;        // into kTonalityNames
    int tempo = 70;          // beats a minute
    int beatsPerBar = 4;     // 2, 3 or 4
    int16_t keptDuration = 0;
};

enum class JianpuEventKind { Note, Rest, Key, Tempo, Instruments, Rhythm, RhythmStop };

// One thing the player does, in the order it does it.
struct JianpuEvent {
    JianpuEventKind kind = JianpuEventKind::Note;
    int degree = 0;  // 1..7, notes only
    int octave = 0;  // -2..2, notes only
    int ticks = 0;   // notes and rests, in eighths of a beat
    int value = 0;   // the key's index, the tempo, the set or rhythm number
    int from = 0;    // the item's characters [from, to), counted from 0
    int to = 0;
};

struct JianpuError {
    int from = 0;
    int to = 0;
    std::string text;  // the characters that stop play
    std::string message;
};

// Where a reading that ran to the end of its text goes on when the text grows:
// the reader's place and kept duration before the last item, and how many
// events came before it.
struct JianpuResume {
    int32_t pos = 1;
    int16_t duration = 0;
    bool sounded = false;
    int keyIndex = 0;
    int tempo = 70;
    std::size_t events = 0;
};

// A score read as the player reads it.
struct JianpuReading {
    int keyIndex = 0;  // in force at the first note or rest
    int tempo = 70;
    int beatsPerBar = 4;
    std::vector<JianpuEvent> events;
    bool stopped = false;  // reached TZ
    int stopFrom = -1;
    std::optional<JianpuError> error;
    std::optional<JianpuResume> resume;  // none after TZ or an error
};

// The score is taken in capitals, as play takes it.
std::string scoreInCapitals(std::string_view text);

// Reads the text item by item with the player's reader and the player's rules.
// Reading ends at TZ, at the first item the player would stop on (the error,
// with its place and a message in Chinese), or at the end of the text.
JianpuReading readJianpu(std::string_view text, const JianpuStart& start);

// Reads on a text that has grown behind the one `reading` was made from,
// which must have a place to resume.
void readJianpuOn(std::string_view text, JianpuReading& reading);

// The longest score the player can read: its length is a 16-bit number.
constexpr int kLongestReadableScore = 32767;

}  // namespace tessaly
