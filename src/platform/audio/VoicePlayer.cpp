#include "platform/audio/VoicePlayer.h"

#include <algorithm>

namespace tessaly::audio {

VoicePlayer::~VoicePlayer() {
    freeRetired();
    delete pending_.load();
    delete current_;
}

void VoicePlayer::play(std::unique_ptr<SoundBuffer> sound) {
    freeRetired();
    if (sound->frames() > 0) sounding_.store(true, std::memory_order_release);
    // A sound the renderer never picked up is ours again.
    delete pending_.exchange(sound.release(), std::memory_order_acq_rel);
}

void VoicePlayer::stop() {
    play(std::make_unique<SoundBuffer>());
}

void VoicePlayer::freeRetired() {
    SoundBuffer* done = nullptr;
    while (retired_.pop(done)) delete done;
}

void VoicePlayer::mixInto(float* out, int frames) {
    // Take a new sound only when the old one has somewhere to go.
    if (!retired_.full()) {
        if (SoundBuffer* next = pending_.exchange(nullptr, std::memory_order_acq_rel)) {
            if (current_) retired_.push(current_);
            current_ = next;
            position_ = 0;
            sounding_.store(next->frames() > 0, std::memory_order_release);
        }
    }
    if (!current_) return;
    const std::size_t total = current_->frames();
    const std::size_t count = std::min<std::size_t>(static_cast<std::size_t>(frames), total - std::min(position_, total));
    const float* from = current_->samples.data() + position_ * kChannels;
    for (std::size_t i = 0; i < count * kChannels; ++i) out[i] += from[i];
    position_ += count;
    if (position_ >= total) sounding_.store(false, std::memory_order_release);
}

}  // namespace tessaly::audio
