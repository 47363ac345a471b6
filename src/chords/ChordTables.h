#pragma once
#include <cstdint>
#include <string_view>

namespace tessaly {

struct ChordState;

// Codes of the figure notation.
constexpr int32_t kFirstChordCode = 65;  // "CL" of degree 1
constexpr int32_t kLastChordCode = 85;   // "CM" of degree 7
constexpr int32_t kRestCode = 254;       // "XZ"
constexpr int32_t kHoldCode = 255;       // any pair that is not a token

// The code of a two-character pattern token; 255 for any other pair,
// lower case, "--" and the score's own note names included.
int32_t patternTokenCode(std::string_view pair);

// ChordDegreeMap from its text resource, and ChordVoicingTable from its own.
void parseDegreeMap(ChordState& chords);
void parseVoicingTable(ChordState& chords);

// The thirteen built-in chord orders into ChordOrderList.
void fillChordOrderList(ChordState& chords);

}  // namespace tessaly
