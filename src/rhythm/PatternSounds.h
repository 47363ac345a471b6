#pragma once
#include <cstdint>

#include "forms/Controls.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"

namespace tessaly {

// The velocity the volume list stands for: the number of its text.
inline int16_t volumeOfList(const ListControl& VsbVol) { return roundToInt16(numericValue(VsbVol.text())); }

// The percussion key a track's instrument list stands for: entry i is key 35 + i.
inline int16_t keyOfList(const ListControl& LblInst) { return toInt16(LblInst.listIndex() + 35); }

}  // namespace tessaly
