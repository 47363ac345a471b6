#pragma once
#include <cstdint>

namespace tessaly {

class MainWindow;
class MidiOut;
class TextBox;
class ComboBox;
struct ChordState;
struct SharedState;

// The chord voicing: the figures of the chord page expanded over the chord
// order ahead of time into ChordStepTable, and the sounding of one step on
// the three layers (channels 3, 4 and 5).
class ChordLayers {
public:
    ChordLayers(SharedState& state, ChordState& chords, MidiOut& midi, MainWindow& form)
        : state_(state), chords_(chords), midi_(midi), form_(form) {}

    // The figure texts, in a row, to ChordPatternCodes.
    void HXYPSB();
    // ChordPatternCodes and ChordDegrees to ChordStepTable; sets TotalChordSteps.
    void HXJS();

    // One step of each layer, at the row ChordStep.
    void BZHX();
    void BZHX2();
    void ZHHXJ();

    // Silences the three chord channels.
    void HX1K();

    // Sounds StrumCode on StrumChannel as three notes, 10 ms apart.
    void StrumChord();
    int16_t StrumCode = 0;
    int16_t StrumChannel = 0;

private:
    struct Layer {
        int layer;           // the layer's column in ChordStepTable and LastLayerCode
        int16_t channel;     // where its notes start
        int stopLayer;       // whose last note a single note stops
        int16_t stopChannel; // and on which channel
        bool setsVelocity;   // copies the chord volume for StrumChord
        ComboBox& instrument;
    };
    void playLayer(const Layer& layer);
    int16_t chordVolume() const;

    SharedState& state_;
    ChordState& chords_;
    MidiOut& midi_;
    MainWindow& form_;
};

}  // namespace tessaly
