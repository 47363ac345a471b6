#include "platform/audio/BuiltInSynth.h"

#include <fluidsynth.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <mutex>
#include <vector>

#include "platform/audio/AudioFormat.h"
#include "platform/audio/ShortMessage.h"

namespace tessaly::audio {

namespace {

// FluidSynth logs from inside note calls, which run in the audio callback,
// where nothing may write to a stream. Failures reach us as return values.
void silenceFluidLog() {
    static std::once_flag once;
    std::call_once(once, [] {
        for (int level : {FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG}) fluid_set_log_function(level, nullptr, nullptr);
    });
}

}  // namespace

BuiltInSynth::BuiltInSynth() {
    silenceFluidLog();
    settings_ = new_fluid_settings();
    fluid_settings_setnum(settings_, "synth.sample-rate", kSampleRate);
    // Every call comes from the one rendering thread, so FluidSynth's own
    // mutex would only cost time inside the callback.
    fluid_settings_setint(settings_, "synth.threadsafe-api", 0);
    // Loud enough for one instrument at full volume, with headroom for chords.
    fluid_settings_setnum(settings_, "synth.gain", 0.4);
    fluid_settings_setint(settings_, "synth.midi-channels", 16);
    synth_ = new_fluid_synth(settings_);
}

BuiltInSynth::~BuiltInSynth() {
    delete_fluid_synth(synth_);
    delete_fluid_settings(settings_);
}

bool BuiltInSynth::loadSoundFont(const std::string& path) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) return false;
    if (soundFontId_ >= 0) fluid_synth_sfunload(synth_, soundFontId_, 1);
    soundFontId_ = fluid_synth_sfload(synth_, path.c_str(), 1);
    if (soundFontId_ == FLUID_FAILED) soundFontId_ = -1;
    return soundFontId_ >= 0;
}

void BuiltInSynth::reset() {
    fluid_synth_system_reset(synth_);
    // The voices are off, but reverb and chorus still ring: let them die
    // out here, where nobody hears them.
    constexpr int kBlock = 1024, kMaxBlocks = 10 * 48000 / kBlock;
    constexpr float kSilent = 1e-6f;
    std::vector<float> left(kBlock), right(kBlock);
    for (int i = 0; i < kMaxBlocks; ++i) {
        fluid_synth_write_float(synth_, kBlock, left.data(), 0, 1, right.data(), 0, 1);
        float peak = 0;
        for (int k = 0; k < kBlock; ++k) peak = std::max({peak, std::fabs(left[k]), std::fabs(right[k])});
        if (peak < kSilent) break;
    }
}

void BuiltInSynth::apply(uint32_t packed) {
    const ShortMessage m = ShortMessage::unpack(packed);
    if (!m.wellFormed()) return;
    const int ch = m.channel();
    switch (m.kind()) {
    case 0x80: fluid_synth_noteoff(synth_, ch, m.data1); break;
    case 0x90:
        if (m.data2 == 0) fluid_synth_noteoff(synth_, ch, m.data1);
        else fluid_synth_noteon(synth_, ch, m.data1, m.data2);
        break;
    case 0xA0: fluid_synth_key_pressure(synth_, ch, m.data1, m.data2); break;
    // FluidSynth implements the controllers themselves: bank select, pan,
    // expression, modulation, portamento and its time, sostenuto, reverb send
    // and the channel-mode messages (all notes off, reset controllers).
    case 0xB0: fluid_synth_cc(synth_, ch, m.data1, m.data2); break;
    case 0xC0: fluid_synth_program_change(synth_, ch, m.data1); break;
    case 0xD0: fluid_synth_channel_pressure(synth_, ch, m.data1); break;
    case 0xE0: fluid_synth_pitch_bend(synth_, ch, m.data1 | (m.data2 << 7)); break;
    default:
        if (m.status == 0xFF) fluid_synth_system_reset(synth_);
        break;
    }
}

void BuiltInSynth::render(float* out, int frames) {
    fluid_synth_write_float(synth_, frames, out, 0, kChannels, out, 1, kChannels);
}

int BuiltInSynth::activeVoices() const {
    return fluid_synth_get_active_voice_count(synth_);
}

}  // namespace tessaly::audio
