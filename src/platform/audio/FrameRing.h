#pragma once
#include <atomic>
#include <cstddef>
#include <memory>

#include "platform/audio/AudioFormat.h"

namespace tessaly::audio {

// Interleaved stereo frames handed from one thread to another without locks
// or allocation: one writer, one reader. The storage is allocated once, by
// the constructor, on the thread that owns the ring.
class FrameRing {
public:
    // The capacity is rounded up to a power of two.
    explicit FrameRing(std::size_t capacityFrames);

    std::size_t capacity() const { return mask_ + 1; }

    // Writer's side. Returns how many frames went in (fewer when full).
    std::size_t writable() const;
    std::size_t write(const float* frames, std::size_t count);

    // Reader's side. read() copies, addInto() adds to what out holds.
    std::size_t readable() const;
    std::size_t read(float* out, std::size_t count);
    std::size_t addInto(float* out, std::size_t count);

    // Empties the ring; only while nobody else reads or writes it.
    void clear();

private:
    template <typename Op>
    std::size_t consume(std::size_t count, Op op);

    std::unique_ptr<float[]> samples_;
    std::size_t mask_;
    alignas(64) std::atomic<std::size_t> head_{0};  // frames read
    alignas(64) std::atomic<std::size_t> tail_{0};  // frames written
};

}  // namespace tessaly::audio
