#pragma once
#include <cstdint>
#include <string>

struct _fluid_hashtable_t;
struct _fluid_synth_t;

namespace tessaly::audio {

// The General MIDI synthesizer: FluidSynth with one SoundFont, 16 channels,
// channel 9 percussion. Load on the control thread before the engine renders
// it; after that only the rendering thread calls apply() and render().
class BuiltInSynth {
public:
    BuiltInSynth();
    ~BuiltInSynth();
    BuiltInSynth(const BuiltInSynth&) = delete;
    BuiltInSynth& operator=(const BuiltInSynth&) = delete;

    // False when the file is missing or is not a SoundFont.
    bool loadSoundFont(const std::string& path);
    bool hasSoundFont() const { return soundFontId_ >= 0; }

    // Applies one packed short message; malformed ones are dropped.
    void apply(uint32_t packed);
    // Writes interleaved stereo frames at the engine rate, replacing what is in out.
    void render(float* out, int frames);

    int activeVoices() const;

private:
    _fluid_hashtable_t* settings_;
    _fluid_synth_t* synth_;
    int soundFontId_ = -1;
};

}  // namespace tessaly::audio
