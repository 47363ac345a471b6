#pragma once
#include <atomic>
#include <cstdint>

#include "platform/audio/SpscQueue.h"
#include "platform/audio/StreamVoice.h"
#include "platform/audio/VoicePlayer.h"

namespace tessaly::audio {

class BuiltInSynth;

// The mixing code shared by the device callback, the silent sink and offline
// rendering: the synthesizer, the effect voice and the file-playback voice,
// under the master gain; the finished mix also goes to the recording tap.
// Control-thread calls never wait for the renderer except the detach calls;
// render() takes no lock and allocates nothing.
class Mixer {
public:
    static constexpr uint32_t kFullVolume = 0xFFFFFFFF;

    // Control thread. The synth must stay alive until detachSynth() returns.
    void attachSynth(BuiltInSynth* synth);
    // Returns once the renderer has let go of the synth.
    void detachSynth();
    // Queues a message for the start of the next block. False when no synth is
    // attached or the queue is full.
    bool postMidi(uint32_t packed);

    // Low word left, high word right, 0xFFFF full scale.
    void setVolumeWord(uint32_t word) { volume_.store(word, std::memory_order_relaxed); }
    uint32_t volumeWord() const { return volume_.load(std::memory_order_relaxed); }

    VoicePlayer& effectVoice() { return effect_; }
    // The slot for file playback (the recorder's player), streamed.
    StreamVoice& playbackVoice() { return playback_; }
    // Where the recorder takes what is heard.
    CaptureTap& captureTap() { return capture_; }

    // Rendering thread: writes interleaved stereo frames.
    void render(float* out, int frames);

private:
    struct QueuedMidi {
        uint32_t message;
        uint32_t generation;  // which attached synth it was meant for
    };

    SpscQueue<QueuedMidi, 4096> midi_;
    std::atomic<BuiltInSynth*> synth_{nullptr};
    std::atomic<uint32_t> generation_{0};
    uint32_t postGeneration_ = 0;  // control thread's copy
    std::atomic<bool> rendering_{false};
    std::atomic<uint32_t> volume_{kFullVolume};
    VoicePlayer effect_;
    StreamVoice playback_;
    CaptureTap capture_;
};

}  // namespace tessaly::audio
