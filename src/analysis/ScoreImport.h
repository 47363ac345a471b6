#pragma once
#include "analysis/ChordAddition.h"
#include "analysis/ImportState.h"

namespace tessaly {

class Editor;
struct ChordState;

// The editor's button DRYP: a text score chosen in a dialog becomes the
// song's melody, doubled on tracks 0 and 1 and laid out over the slots by
// its durations (YUEPUSB), is cut into bars (DrYpsb) and is arranged with
// the main window's chords and rhythm (ZNHXTJ). Only notes, rests and
// durations are taken from the score.
class ScoreImport {
public:
    ScoreImport(Editor& editor, ChordState& chords);

    // Attaches DRYP_Click to the window's button as it is now.
    void wire();

    void DRYP_Click();
    // Scans ScoreText into the song and finishes it: its extent, the scroll bar on bar 0.
    void YUEPUSB();
    // The melody's bars: the gaps of tracks 0 and 1 filled with "--", every
    // track's bar text built from its slots, the bar on show in the boxes.
    void DrYpsb();

    ImportState& state() { return state_; }
    ChordAddition& chordAddition() { return chordAddition_; }

private:
    Editor& e_;
    ImportState state_;
    ChordAddition chordAddition_;
};

extern const char* const kScoreImportFilter;

}  // namespace tessaly
