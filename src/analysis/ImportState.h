#pragma once
#include <cstdint>

namespace tessaly {

class ControlSystem;

// Where the score import stands. Both values outlive an import: the next
// one starts with the duration the last one read. ImportCursor, the read
// position, is the editor's (leaving the editor puts it back to 1).
struct ImportState {
    int16_t ImportSlot = 0;      // the slot the next note goes to
    int32_t ImportDuration = 0;  // the last duration read, in eighths of a beat
};

// Makes the import's state readable and settable by name.
void registerImportState(ControlSystem& controls, ImportState& state);

}  // namespace tessaly
