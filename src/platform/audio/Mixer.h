#pragma once
#include <atomic>
#include <cstdint>

#include "platform/audio/BlockClock.h"
#include "platform/audio/SpscQueue.h"
#include "platform/audio/StreamVoice.h"
#include "platform/audio/VoicePlayer.h"

namespace tessaly::audio {

class MidiSynth;

// The mixing code shared by the device callback, the silent sink and offline
// rendering: the synthesizer, the effect voice and the file-playback voice,
// under the master gain; the finished mix also goes to the recording tap.
// Control-thread calls never wait for the renderer except the detach calls;
// render() takes no lock and allocates nothing.
class Mixer {
public:
    static constexpr uint32_t kFullVolume = 0xFFFFFFFF;

    // Control thread. The synth must stay alive until detachSynth() returns.
    void attachSynth(MidiSynth* synth);
    // Returns once the renderer has let go of the synth.
    void detachSynth();
    // Queues a message sent at sentNs (steady clock): a timed block plays it
    // at its frame, an untimed one (or a message without a time, 0) at the
    // start of the next block. False when no synth is attached or the queue
    // is full.
    bool postMidi(uint32_t packed, int64_t sentNs = 0);

    // Low word left, high word right, 0xFFFF full scale.
    void setVolumeWord(uint32_t word) { volume_.store(word, std::memory_order_relaxed); }
    uint32_t volumeWord() const { return volume_.load(std::memory_order_relaxed); }

    VoicePlayer& effectVoice() { return effect_; }
    // The slot for file playback (the recorder's player), streamed.
    StreamVoice& playbackVoice() { return playback_; }
    // Where the recorder takes what is heard.
    CaptureTap& captureTap() { return capture_; }

    // Rendering thread: writes interleaved stereo frames. The synth renders up
    // to each message of the span, takes it, and renders on; messages sent
    // after the span wait for a later block.
    void render(float* out, int frames, BlockSpan span = {});

private:
    struct QueuedMidi {
        uint32_t message;
        uint32_t generation;  // which attached synth it was meant for
        int64_t sentNs;
    };

    SpscQueue<QueuedMidi, 4096> midi_;
    std::atomic<MidiSynth*> synth_{nullptr};
    std::atomic<uint32_t> generation_{0};
    uint32_t postGeneration_ = 0;  // control thread's copy
    std::atomic<bool> rendering_{false};
    std::atomic<uint32_t> volume_{kFullVolume};
    void renderSynth(MidiSynth& synth, float* out, int frames, BlockSpan span);

    VoicePlayer effect_;
    StreamVoice playback_;
    CaptureTap capture_;
};

}  // namespace tessaly::audio
