#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessaly {

constexpr int kNoteTokenCount = 33;
constexpr int kLowestNoteBase = 36;  // NoteBase of tonality "C"
constexpr int kOnScreenKeyCount = 65;
constexpr int kRestCode = 254;       // XZ
constexpr int kStopCode = 255;       // TZ and any other text

// A note key of the typing keyboard and the token it plays.
struct NoteKey {
    int keyCode;
    const char* label;  // as the key's tip names it
    const char* token;
    int offset;         // semitones above NoteBase
    int tipId;          // resource string of the key's tip
};
extern const std::array<NoteKey, kNoteTokenCount> kNoteKeys;

// A tonality key: the NoteBase it selects, its caption and tonality index.
struct TonalityKey {
    int keyCode;
    int noteBase;
    const char* caption;
    int tonalityIndex;
};
extern const std::array<TonalityKey, 7> kTonalityKeys;

// The instrument quick keys Q, W, E, R and the list index each selects.
struct QuickKey {
    int keyCode;
    int listIndex;
};
extern const std::array<QuickKey, 4> kQuickKeys;

// The twelve tonalities by index, flats only.
extern const std::array<const char*, 12> kTonalityNames;

// Semitone offset of one of the 33 note tokens (exact, case-sensitive).
std::optional<int> tokenOffset(std::string_view token);
// The numeric form of a token: offsets for notes, 65..85 for chord tokens,
// 254 for XZ, 255 for TZ and anything else.
int noteCode(std::string_view token);

bool isWhiteKey(int offset);

// The tip strings 401..433 of the note keys; empty for other ids.
std::string noteTipString(int id);

}  // namespace tessaly
