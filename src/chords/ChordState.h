#pragma once
#include <cstdint>
#include <string>

#include "runtime/FixedTable.h"

namespace tessaly {

// ChordVoicingTable(note, row, type): three notes for each voicing type 1..3
// (low, centre, high) and row 0..7. Type 0 and row 0 exist and stay zero.
class VoicingTable {
public:
    int32_t& operator()(long note, long row, long type) { return cells_[note][row][type]; }
    int32_t operator()(long note, long row, long type) const { return cells_[note][row][type]; }

private:
    FixedTable<FixedTable<FixedTable<int32_t, 0, 3>, 0, 7>, 0, 3> cells_{};
};

// The chord accompaniment's tables and state. The counters it shares with the
// rhythm (ChordStep, ChordIndex, ChordCount, StepsPerChord, TotalChordSteps)
// live in SharedState.
struct ChordState {
    // Degree 1..7 by column 1..17; row 1 is also the list of source symbols.
    // Row 0 stays zero: a degree of 0 reads it.
    FixedTable2<int16_t, 0, 7, 0, 17> ChordDegreeMap{};
    VoicingTable ChordVoicingTable;

    // The codes of the three figures in a row, and the whole progression by
    // step and layer 1..3. Neither is ever cleared.
    FixedTable<int32_t, 0, 150> ChordPatternCodes{};
    FixedTable2<int32_t, 0, 150, 1, 3> ChordStepTable{};

    // The degree digits of the chord order.
    FixedTable<int16_t, 1, 9> ChordDegrees{};
    FixedTable<std::string, 1, 13> ChordOrderList{};

    // Lines of the pattern file from position 1. Position 0 is never written;
    // a draw from an empty file reads it.
    FixedTable<std::string, 0, 1000> PatternLines{};
    // The last full-length figures of layers 1..3, for the way back from 3/4.
    FixedTable<std::string, 1, 3> SavedPatterns{};
    // The last code started on each layer 1..3.
    FixedTable<int16_t, 1, 3> LastLayerCode{};
};

}  // namespace tessaly
