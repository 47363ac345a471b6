#pragma once
#include <atomic>
#include <cstddef>
#include <memory>

#include "platform/audio/SoundBuffer.h"
#include "platform/audio/SpscQueue.h"

namespace tessaly::audio {

// One voice that plays one sound at a time: a new sound cuts the one before.
// The control thread hands a finished buffer over through an atomic pointer;
// the rendering thread hands the buffers it is done with back through a queue,
// and the control thread frees them, so the renderer never frees memory.
class VoicePlayer {
public:
    VoicePlayer() = default;
    // The renderer must have stopped by then.
    ~VoicePlayer();
    VoicePlayer(const VoicePlayer&) = delete;
    VoicePlayer& operator=(const VoicePlayer&) = delete;

    // Control thread.
    void play(std::unique_ptr<SoundBuffer> sound);
    void stop();
    // True while the renderer still had frames of the sound to play.
    bool sounding() const { return sounding_.load(std::memory_order_acquire); }

    // Rendering thread: adds the voice to out.
    void mixInto(float* out, int frames);

private:
    void freeRetired();

    std::atomic<SoundBuffer*> pending_{nullptr};
    SpscQueue<SoundBuffer*, 16> retired_;
    std::atomic<bool> sounding_{false};
    // Owned by the rendering thread.
    SoundBuffer* current_ = nullptr;
    std::size_t position_ = 0;
};

}  // namespace tessaly::audio
