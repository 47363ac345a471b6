#pragma once
#include <atomic>
#include <cstdint>
#include <functional>

#include "export/CapturedPlay.h"

namespace tessaly {

class RenderProgram;
class TimerControl;

// How a play is started in a render program, and what carries it.
struct PlayStart {
    TimerControl* beat = nullptr;  // the timer of the play: one tick a period, running while it plays
    int ticksPerQuarter = 8;       // 8 for a score, 4 for a song (a slot is a sixteenth)
    int beatsPerBar = 0;
    std::function<void()> start;   // the user's action that starts the play
};

struct CaptureOptions {
    uint32_t longestPlayMs = 3600 * 1000;
    const std::atomic<bool>* cancel = nullptr;
    std::function<void(uint32_t playedMs)> progress;
};

// Starts the play and runs virtual time until its timer stops, keeping every
// MIDI message it sends and the tempo its timer keeps. The program's channel
// state before the play (the last program and controller values on each
// channel) opens the capture at 0 ms. Throws ExportFailure with the
// program's own message when the play fails (a message box, a run-time
// failure), when it does not end in time, when it was cancelled, and when
// it sounds no note.
CapturedPlay capturePlay(RenderProgram& program, const PlayStart& start, const CaptureOptions& options = {});

}  // namespace tessaly
