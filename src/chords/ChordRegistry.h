#pragma once

namespace tessaly {

class ChordLayers;
class ControlSystem;
class MidiOut;
struct ChordState;

// The chord tables and state, readable and settable by name:
// "ChordStepTable(8,1)", "ChordDegrees(2)", "ChordVoicingTable(1,2,3)".
void registerChordState(ControlSystem& controls, ChordState& chords, ChordLayers& layers, MidiOut& midi);

}  // namespace tessaly
