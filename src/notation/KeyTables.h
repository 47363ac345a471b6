#pragma once
#include <cstdint>
#include <string>

#include "runtime/FixedTable.h"

namespace tessaly {

// The three tables by virtual key code, filled once before any key event.
struct KeyTables {
    FixedTable<int32_t, 0, 255> KeyNoteOffset;   // offset, NoteBase or list index
    FixedTable<std::string, 0, 255> KeyNoteName; // token or tonality caption
    FixedTable<int32_t, 0, 255> KeyTipId;        // tip string id or tonality index
};

void YFSZDY(KeyTables& tables);
void YFDHDY(KeyTables& tables);
void YFXSDY(KeyTables& tables);

// One of the 33 note keys.
bool isNoteKey(int keyCode);

}  // namespace tessaly
