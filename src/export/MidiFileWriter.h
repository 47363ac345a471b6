#pragma once
#include <string>

#include "export/CapturedPlay.h"

namespace tessaly {

// Writes a captured play as a standard MIDI file (format 1): a first track
// with the title, the tempo map and the metre, then one track for each MIDI
// channel the play uses, in channel order, named after its instrument. The
// times follow TempoMap. A message that is not MIDI at all (a data byte
// above 127, as a program of -1 packs) has no place in a file and is left
// out. Throws ExportFailure when the file cannot be written.
void writeMidiFile(const CapturedPlay& play, const std::string& path, const std::string& title);

}  // namespace tessaly
