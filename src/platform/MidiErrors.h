#pragma once
#include <string>

namespace tessaly {

// The text shown for a MIDI result code, in the user's words.
std::string midiErrorText(int code);

}  // namespace tessaly
