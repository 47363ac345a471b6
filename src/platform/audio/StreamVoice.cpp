#include "platform/audio/StreamVoice.h"

#include <thread>

#include "platform/audio/FrameRing.h"

namespace tessaly::audio {

namespace {

// The renderer marks itself busy before it looks at the ring pointer, so a
// detach that cleared the pointer and then sees no mark knows the renderer
// cannot hold the old ring. A block lasts microseconds.
void letGo(std::atomic<FrameRing*>& ring, const std::atomic<bool>& inUse) {
    ring.store(nullptr, std::memory_order_seq_cst);
    while (inUse.load(std::memory_order_seq_cst)) std::this_thread::yield();
}

}  // namespace

void StreamVoice::attach(FrameRing& ring) {
    detach();
    inputDone_.store(false, std::memory_order_relaxed);
    drained_.store(false, std::memory_order_relaxed);
    ring_.store(&ring, std::memory_order_seq_cst);
}

void StreamVoice::detach() { letGo(ring_, inUse_); }

void StreamVoice::mixInto(float* out, int frames) {
    inUse_.store(true, std::memory_order_seq_cst);
    if (FrameRing* ring = ring_.load(std::memory_order_seq_cst)) {
        const bool done = inputDone_.load(std::memory_order_acquire);
        const auto wanted = static_cast<std::size_t>(frames);
        const std::size_t got = ring->addInto(out, wanted);
        if (got < wanted) {
            if (done) drained_.store(true, std::memory_order_release);
            else missed_.fetch_add(wanted - got, std::memory_order_relaxed);
        } else if (done && ring->readable() == 0) {
            drained_.store(true, std::memory_order_release);
        }
    }
    inUse_.store(false, std::memory_order_seq_cst);
}

void CaptureTap::attach(FrameRing& ring) {
    detach();
    ring_.store(&ring, std::memory_order_seq_cst);
}

void CaptureTap::detach() { letGo(ring_, inUse_); }

void CaptureTap::capture(const float* mix, int frames) {
    inUse_.store(true, std::memory_order_seq_cst);
    if (FrameRing* ring = ring_.load(std::memory_order_seq_cst)) {
        const auto count = static_cast<std::size_t>(frames);
        const std::size_t written = ring->write(mix, count);
        if (written < count) dropped_.fetch_add(count - written, std::memory_order_relaxed);
    }
    inUse_.store(false, std::memory_order_seq_cst);
}

}  // namespace tessaly::audio
