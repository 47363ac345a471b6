#include "chords/ChordLayers.h"

#include "chords/ChordState.h"
#include "chords/ChordTables.h"
#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

bool isWholeChord(long code) { return code >= kFirstChordCode && code <= kLastChordCode; }

}  // namespace

int16_t ChordLayers::chordVolume() const { return midi_.ChannelVelocity[3]; }

void ChordLayers::HXYPSB() {
    const ChordPage& page = form_.chordPage;
    const std::string figures = page.Text4.text() + page.Text5.text() + page.Text7.text();
    // Token by token over the three texts as one: a short box shifts the
    // figures behind it, and positions past the last token keep their codes.
    const std::size_t length = charLength(figures);
    long position = 0;
    for (std::size_t i = 0; i + 1 < length; i += 2)
        chords_.ChordPatternCodes[position++] = patternTokenCode(charSubstr(figures, i, 2));
}

void ChordLayers::HXJS() {
    const long steps = state_.StepsPerChord;
    state_.TotalChordSteps = multiply16(state_.ChordCount, state_.StepsPerChord);
    parseDegreeMap(chords_);

    // The first chord sounds as written, whatever its digit.
    for (long j = 0; j < steps; ++j)
        for (long layer = 1; layer <= 3; ++layer)
            chords_.ChordStepTable(j, layer) = chords_.ChordPatternCodes[j + (layer - 1) * steps];

    // Every further chord replaces each symbol of degree 1 by the same column
    // of its own degree. A code with no column leaves the cell as it was.
    for (long c = 2; c <= state_.ChordCount; ++c)
        for (long j = 0; j < steps; ++j)
            for (long k = 1; k <= 17; ++k)
                for (long layer = 1; layer <= 3; ++layer)
                    if (chords_.ChordPatternCodes[j + (layer - 1) * steps] == chords_.ChordDegreeMap(1, k))
                        chords_.ChordStepTable((c - 1) * steps + j, layer) =
                            chords_.ChordDegreeMap(chords_.ChordDegrees[c], k);
}

void ChordLayers::BZHX() { playLayer({1, 3, 1, 3, true, form_.Combo1}); }

void ChordLayers::BZHX2() { playLayer({2, 4, 2, 4, true, form_.Combo2}); }

// Layer 3 stops layer 2's last note, on layer 2's channel, and never its own;
// and its chords use whatever velocity channel 5 was last given.
void ChordLayers::ZHHXJ() { playLayer({3, 5, 2, 4, false, form_.Combo3}); }

void ChordLayers::playLayer(const Layer& layer) {
    StrumChannel = layer.channel;
    if (layer.setsVelocity) midi_.LayerVelocity[layer.channel] = chordVolume();
    const int32_t code = chords_.ChordStepTable(state_.ChordStep, layer.layer);

    if (code < 64) {
        if (layer.instrument.listIndex() <= 0) return;
        const int16_t last = chords_.LastLayerCode[layer.stopLayer];
        midi_.StopNote(layer.stopChannel, toInt16(last + state_.NoteBase));
        if (isWholeChord(last))
            for (int i = 0; i <= 63; ++i) midi_.StopNote(layer.stopChannel, toInt16(state_.NoteBase + i));
        midi_.StartNote(layer.channel, toInt16(code + state_.NoteBase), chordVolume());
        chords_.LastLayerCode[layer.layer] = toInt16(code);
    } else if (isWholeChord(code)) {
        // Nothing is stopped: chords in a row ring together until a single
        // note or the end of the bar cuts them.
        StrumCode = toInt16(code);
        StrumChord();
        chords_.LastLayerCode[layer.layer] = toInt16(code);
    }
    // Any other code holds what sounds, "XZ" included.
}

void ChordLayers::HX1K() {
    for (int i = 0; i <= 63; ++i) {
        int16_t note = toInt16(state_.NoteBase + i);
        midi_.StopNote(3, note);
        midi_.StopNote(4, note);
        midi_.StopNote(5, note);
    }
}

void ChordLayers::StrumChord() {
    // The ranges do not follow the degrees: low and centre voicings count
    // their rows from 0, and degree 7's centre code falls among the high ones.
    long type = 0, row = 0;
    if (StrumCode >= 65 && StrumCode <= 71) {
        type = 1;
        row = StrumCode - 65;
    } else if (StrumCode >= 72 && StrumCode <= 77) {
        type = 2;
        row = StrumCode - 72;
    } else if (StrumCode >= 78 && StrumCode <= 85) {
        type = 3;
        row = StrumCode - 78;
    }
    int32_t notes[3];
    for (long note = 1; note <= 3; ++note) notes[note - 1] = chords_.ChordVoicingTable(note, row, type);
    // Channel, key and velocity are read at each note: the waits let other
    // handlers run, and they share these values.
    for (int i = 0; i < 3; ++i) {
        midi_.SendMidiOut(toInt16(144 + StrumChannel), toInt16(notes[i] + state_.NoteBase),
                          midi_.LayerVelocity[StrumChannel]);
        if (i < 2) midi_.WaitMs(10);
    }
}

}  // namespace tessaly
