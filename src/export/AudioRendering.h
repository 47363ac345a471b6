#pragma once
#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

#include "export/CapturedPlay.h"
#include "export/ExportFormat.h"

namespace tessaly {

// Which SoundFont the built-in synthesizer loads, as the program finds it.
struct SynthSource {
    std::string dataFolder;  // its "音源" folder is searched first
    std::string soundFont;   // when set, this file and nothing else
};

struct AudioRenderOptions {
    const std::atomic<bool>* cancel = nullptr;
    std::function<void(uint32_t renderedMs, uint32_t totalMs)> progress;
};

// Plays a captured play on the built-in synthesizer, rendered offline: each
// message reaches the synthesizer at its own millisecond, at the master gain
// the program had set. After the last message the sound rings on until it
// has died away (at most a few seconds). Throws ExportFailure when the
// synthesizer cannot start or the file cannot be written.
void renderAudioFile(const CapturedPlay& play, ExportFormat format, const std::string& path,
                     const SynthSource& synth, const AudioRenderOptions& options = {});

}  // namespace tessaly
