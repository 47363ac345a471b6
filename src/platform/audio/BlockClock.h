#pragma once
#include <cstdint>

namespace tessaly::audio {

// The stretch of send times (steady clock, nanoseconds) that one rendered
// block stands for: a message sent at startNs + k × (endNs - startNs) / frames
// sounds at frame k of the block. An empty span places every message at the
// block's first frame (offline rendering, where the caller renders up to each
// message itself).
struct BlockSpan {
    int64_t startNs = 0;
    int64_t endNs = 0;

    bool timed() const { return endNs > startNs; }
    // The frame of a message sent at sentNs; -1 when it belongs to a later
    // block. Messages older than the span (or untimed, 0) go at frame 0.
    int frameOf(int64_t sentNs, int frames) const;
};

// Turns the times at which the device asks for blocks into contiguous spans
// of send time, one block period behind the request, so that messages keep
// their spacing in the audio. The request times jitter with the scheduling of
// the audio thread, so they are smoothed by a delay-locked loop that also
// learns the device's real block period; a gap of many periods (the device
// stalled or was reopened) starts it afresh.
class BlockClock {
public:
    BlockSpan next(int64_t nowNs, int64_t nominalPeriodNs);
    void reset() { started_ = false; }

private:
    bool started_ = false;
    int64_t blockEnd_ = 0;     // smoothed time of this request: the end of its span
    double nextEnd_ = 0;       // predicted time of the next request
    double periodNs_ = 0;      // learned block period
};

}  // namespace tessaly::audio
