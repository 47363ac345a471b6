#include "platform/audio/FrameRing.h"

#include <algorithm>
#include <bit>

namespace tessaly::audio {

FrameRing::FrameRing(std::size_t capacityFrames)
    : samples_(std::make_unique<float[]>(std::bit_ceil(std::max<std::size_t>(capacityFrames, 2)) * kChannels)),
      mask_(std::bit_ceil(std::max<std::size_t>(capacityFrames, 2)) - 1) {}

std::size_t FrameRing::writable() const {
    return capacity() - (tail_.load(std::memory_order_relaxed) - head_.load(std::memory_order_acquire));
}

std::size_t FrameRing::readable() const {
    return tail_.load(std::memory_order_acquire) - head_.load(std::memory_order_relaxed);
}

std::size_t FrameRing::write(const float* frames, std::size_t count) {
    const std::size_t tail = tail_.load(std::memory_order_relaxed);
    count = std::min(count, writable());
    // In at most two pieces: up to the end of the storage, then from its start.
    const std::size_t at = tail & mask_;
    const std::size_t first = std::min(count, capacity() - at);
    std::copy_n(frames, first * kChannels, samples_.get() + at * kChannels);
    std::copy_n(frames + first * kChannels, (count - first) * kChannels, samples_.get());
    tail_.store(tail + count, std::memory_order_release);
    return count;
}

template <typename Op>
std::size_t FrameRing::consume(std::size_t count, Op op) {
    const std::size_t head = head_.load(std::memory_order_relaxed);
    count = std::min(count, readable());
    const std::size_t at = head & mask_;
    const std::size_t first = std::min(count, capacity() - at);
    op(samples_.get() + at * kChannels, first * kChannels, 0);
    op(samples_.get(), (count - first) * kChannels, first * kChannels);
    head_.store(head + count, std::memory_order_release);
    return count;
}

std::size_t FrameRing::read(float* out, std::size_t count) {
    return consume(count, [out](const float* from, std::size_t samples, std::size_t to) {
        std::copy_n(from, samples, out + to);
    });
}

std::size_t FrameRing::addInto(float* out, std::size_t count) {
    return consume(count, [out](const float* from, std::size_t samples, std::size_t to) {
        for (std::size_t i = 0; i < samples; ++i) out[to + i] += from[i];
    });
}

void FrameRing::clear() {
    head_.store(tail_.load(std::memory_order_relaxed), std::memory_order_relaxed);
}

}  // namespace tessaly::audio
