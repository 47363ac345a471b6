#pragma once
#include <cstdint>

namespace tessaly::audio {

// What the mixer plays MIDI through: takes short messages and renders
// interleaved stereo, both on the rendering thread only. Rendering a block in
// pieces with messages between them places each message at its frame.
class MidiSynth {
public:
    virtual ~MidiSynth() = default;
    // Applies one packed short message; malformed ones are dropped.
    virtual void apply(uint32_t packed) = 0;
    // Writes interleaved stereo frames at the engine rate, replacing what is in out.
    virtual void render(float* out, int frames) = 0;
};

}  // namespace tessaly::audio
