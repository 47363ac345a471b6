#include "platform/audio/Mixer.h"

#include <algorithm>
#include <thread>

#include "platform/audio/AudioFormat.h"
#include "platform/audio/MidiSynth.h"

namespace tessaly::audio {

void Mixer::attachSynth(MidiSynth* synth) {
    // Messages still queued for a synth attached before are dropped by tag.
    postGeneration_ = generation_.load(std::memory_order_relaxed) + 1;
    generation_.store(postGeneration_, std::memory_order_seq_cst);
    synth_.store(synth, std::memory_order_seq_cst);
}

void Mixer::detachSynth() {
    synth_.store(nullptr, std::memory_order_seq_cst);
    // A block that saw the synth before the store above is still marked as
    // rendering; one that starts later sees no synth. Blocks last microseconds.
    while (rendering_.load(std::memory_order_seq_cst)) std::this_thread::yield();
}

bool Mixer::postMidi(uint32_t packed, int64_t sentNs) {
    if (synth_.load(std::memory_order_acquire) == nullptr) return false;
    return midi_.push({packed, postGeneration_, sentNs});
}

void Mixer::renderSynth(MidiSynth& synth, float* out, int frames, BlockSpan span) {
    const uint32_t generation = generation_.load(std::memory_order_acquire);
    int done = 0;
    QueuedMidi queued{};
    while (midi_.peek(queued)) {
        if (queued.generation == generation) {
            const int frame = span.frameOf(queued.sentNs, frames);
            if (frame < 0) break;
            if (frame > done) {
                synth.render(out + static_cast<std::size_t>(done) * kChannels, frame - done);
                done = frame;
            }
            synth.apply(queued.message);
        }
        midi_.dropFront();
    }
    if (done < frames) synth.render(out + static_cast<std::size_t>(done) * kChannels, frames - done);
}

void Mixer::render(float* out, int frames, BlockSpan span) {
    rendering_.store(true, std::memory_order_seq_cst);
    MidiSynth* synth = synth_.load(std::memory_order_seq_cst);
    const std::size_t samples = static_cast<std::size_t>(frames) * kChannels;
    if (synth) {
        renderSynth(*synth, out, frames, span);
    } else {
        std::fill(out, out + samples, 0.0f);
    }
    rendering_.store(false, std::memory_order_seq_cst);

    effect_.mixInto(out, frames);
    playback_.mixInto(out, frames);

    const uint32_t word = volume_.load(std::memory_order_relaxed);
    const float gain[kChannels] = {static_cast<float>(word & 0xFFFF) / 65535.0f,
                                   static_cast<float>(word >> 16) / 65535.0f};
    for (std::size_t i = 0; i < samples; ++i) out[i] = std::clamp(out[i] * gain[i % kChannels], -1.0f, 1.0f);
    capture_.capture(out, frames);
}

}  // namespace tessaly::audio
