#pragma once
#include <cstdint>

namespace tessaly {

// The virtual key code of a Qt key, for platforms that give no scan code (the
// offscreen platform, synthesized events). Letters and the US punctuation keys
// by what they type; keypad keys (keypad modifier set) give keypad codes also
// when NumLock is off and they arrive as Home, End, arrows and so on.
int virtualKeyFromQtKey(int qtKey, bool keypad);

// A key event's virtual key code: by position when the scan code is known, by
// the Qt key otherwise.
int virtualKeyOf(uint32_t nativeScanCode, int qtKey, bool keypad);

// The shift mask of key events: Shift 1, Ctrl 2, Alt 4.
int16_t shiftMask(bool shift, bool control, bool alt);

}  // namespace tessaly
