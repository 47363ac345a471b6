#pragma once
#include <cstdint>

namespace tessaly {

// The virtual key code of a key by its position on the keyboard, from the X11
// key code (the Linux evdev code + 8) that QKeyEvent::nativeScanCode() gives
// under xcb. A position gives the code of the key that stands there on a US
// keyboard, whatever layout is active, so the instrument plays the same on
// every layout; the keypad gives its digits whether NumLock is on or off.
// 0 for a key the instrument does not know.
int virtualKeyFromScanCode(uint32_t x11KeyCode);

}  // namespace tessaly
