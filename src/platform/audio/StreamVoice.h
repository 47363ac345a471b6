#pragma once
#include <atomic>
#include <cstdint>

namespace tessaly::audio {

class FrameRing;

// The playback slot of the mixer: plays the frames a control thread streams
// into a ring. The renderer only reads the ring; the control thread owns it
// and may free it once detach() has returned.
class StreamVoice {
public:
    // Control thread. The voice plays from this ring until detached.
    void attach(FrameRing& ring);
    // Returns once the renderer has let go of the ring.
    void detach();
    // No more frames will be written to the ring.
    void finishInput() { inputDone_.store(true, std::memory_order_release); }
    // Every frame of a finished input has been played.
    bool drained() const { return drained_.load(std::memory_order_acquire); }
    // Frames the renderer wanted before the input was finished and found missing.
    uint64_t missedFrames() const { return missed_.load(std::memory_order_relaxed); }

    // Rendering thread: adds the next frames to out.
    void mixInto(float* out, int frames);

private:
    std::atomic<FrameRing*> ring_{nullptr};
    std::atomic<bool> inUse_{false};
    std::atomic<bool> inputDone_{false};
    std::atomic<bool> drained_{false};
    std::atomic<uint64_t> missed_{0};
};

// The recording tap of the mixer: copies the finished mix into a ring that a
// control thread empties. When the ring is full, frames are dropped and
// counted; the renderer never waits.
class CaptureTap {
public:
    void attach(FrameRing& ring);
    void detach();
    uint64_t droppedFrames() const { return dropped_.load(std::memory_order_relaxed); }

    // Rendering thread.
    void capture(const float* mix, int frames);

private:
    std::atomic<FrameRing*> ring_{nullptr};
    std::atomic<bool> inUse_{false};
    std::atomic<uint64_t> dropped_{0};
};

}  // namespace tessaly::audio
