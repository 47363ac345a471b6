#pragma once
#include <cstdint>
#include <string>

#include "platform/audio/MidiSynth.h"

struct _fluid_hashtable_t;
struct _fluid_synth_t;

namespace tessaly::audio {

// The General MIDI synthesizer: FluidSynth with one SoundFont, 16 channels,
// channel 9 percussion. Built and loaded on any one thread before the engine
// renders it (the SoundFont may load on a worker while the splash is up);
// after that only the rendering thread calls apply() and render(). FluidSynth
// starts voices on its own grid of 64 frames, so a message applied inside
// such a stretch sounds from the next one.
class BuiltInSynth : public MidiSynth {
public:
    BuiltInSynth();
    ~BuiltInSynth() override;
    BuiltInSynth(const BuiltInSynth&) = delete;
    BuiltInSynth& operator=(const BuiltInSynth&) = delete;

    // False when the file is missing or is not a SoundFont.
    bool loadSoundFont(const std::string& path);
    bool hasSoundFont() const { return soundFontId_ >= 0; }
    // Back to the state of a fresh load: every voice off, programs and
    // controllers at their defaults. Not while the engine renders it.
    void reset();

    void apply(uint32_t packed) override;
    void render(float* out, int frames) override;

    int activeVoices() const;

private:
    _fluid_hashtable_t* settings_;
    _fluid_synth_t* synth_;
    int soundFontId_ = -1;
};

}  // namespace tessaly::audio
