#include "chords/ChordLayers.h"

#include "midi/MidiOut.h"
#include "runtime/Arithmetic.h"
#include "state/SharedState.h"

namespace tessaly {

void ChordLayers::HX1K() {
    for (int i = 0; i <= 63; ++i) {
        int16_t note = toInt16(state_.NoteBase + i);
        midi_.StopNote(3, note);
        midi_.StopNote(4, note);
        midi_.StopNote(5, note);
    }
}

}  // namespace tessaly
