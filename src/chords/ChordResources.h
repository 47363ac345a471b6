#pragma once

namespace tessaly {

// The text resources of the chord accompaniment, kept as the program has
// always stored them: comma-separated numbers for the two tables, and the
// text a missing pattern file is created from.
extern const char* const kDegreeMapText;     // ChordDegreeMap, 7 rows of 17 items
extern const char* const kVoicingTableText;  // ChordVoicingTable, 63 items
extern const char* const kPatternFileText;   // 113 figures and two line ends

}  // namespace tessaly
