#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaly {

struct EditorState;

// The NoteCode of a slot's token: notes by their offset, the 21 chord tokens
// 65..85, "XZ" 254, and 255 for everything else ("TZ", "--", "", "MA").
int16_t SYYPSB(std::string_view token);

// Empties the song's bars 0..BarCount and sets BarCount to 0; a song whose
// BarCount is below 1 is left as it is.
void QKYP(EditorState& song);

// Tracks 0..6 carry notes, 7..11 percussion hits.
constexpr int kMelodyTracks = 7;
constexpr int kTracks = 12;
constexpr bool isMelodyTrack(int track) { return track < kMelodyTracks; }

// The value in decimal, filled on the left with "0" to `width` digits, never cut.
std::string zeroFilled(long long value, int width);
// A 32-bit value in upper-case hexadecimal (-1 is "FFFFFFFF"), filled on the
// left with "0" to two digits, never cut.
std::string hexField(int32_t value);
// The value of two hexadecimal characters as the tolerant reading takes them.
int32_t hexValue(std::string_view digits);

// TickMs of the editor for a tempo: the whole part of 15000 / tempo. A tempo
// of 0 is fatal, as is a result beyond 16 bits.
int16_t editorTickMs(double tempo);

}  // namespace tessaly
