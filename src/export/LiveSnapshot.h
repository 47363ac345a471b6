#pragma once
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "chords/ChordState.h"
#include "editor/EditorState.h"
#include "export/PlayCapture.h"
#include "midi/MidiOut.h"
#include "state/SharedState.h"

namespace tessaly {

class Instrument;
class RenderProgram;

// What an export from the windows takes from the live program at the click,
// on the event thread: the score or the song, the settings on screen that
// its play reads, and the state behind them. A render program is put into
// the same state before it plays, so that it sends what the live program
// would send, while the live program goes on untouched.
struct LiveSnapshot {
    enum class Kind { Score, Song };
    Kind kind = Kind::Score;
    std::string scoreText;
    // Control values as the registry names them, set in this order.
    std::vector<std::pair<std::string, std::string>> controls;
    SharedState shared;
    ChordState chords;
    FixedTable<int16_t, 0, 15> pans, velocities, layerVelocities;
    StepTableType steps;
    std::unique_ptr<EditorState> song;  // a song only
    std::string dialogFolder;            // where the last file dialog went
    std::string dataFolder, shippedData;
};

// The score in the score box, with the main window's settings.
std::shared_ptr<const LiveSnapshot> snapshotScore(Instrument& live);
// The song in the editor, with the editor's settings.
std::shared_ptr<const LiveSnapshot> snapshotSong(Instrument& live);

// Puts a started render program into the snapshot's state and gives its play.
PlayStart livePlay(RenderProgram& program, const LiveSnapshot& snapshot);

}  // namespace tessaly
