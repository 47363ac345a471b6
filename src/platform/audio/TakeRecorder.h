#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/EventLoop.h"
#include "platform/MciInterpreter.h"
#include "platform/audio/FrameRing.h"
#include "platform/audio/TakeFile.h"

namespace tessaly::audio {

class CaptureTap;

// Records what the mixer renders: the tap fills a ring in the renderer, and
// drain(), on the control thread, moves what arrived into the take file.
class TakeRecorder {
public:
    // About five seconds of sound between two drains before frames are lost.
    static constexpr std::size_t kRingFrames = 1u << 18;

    TakeRecorder(CaptureTap& tap, std::string takeFolder);
    ~TakeRecorder();

    // Starts, or goes on with the take there is. False when no take file can be made.
    bool start();
    // Stops taking frames and keeps what was taken.
    void stop();
    bool recording() const { return recording_; }
    // Control thread, often: empties the ring into the take.
    void drain();
    // Given a loop, the file is written on a worker while the loop serves
    // its events; the take is left alone meanwhile (drain() and discard()
    // wait for the save), so it stays whole whatever those events do.
    bool save(const std::string& path, const MciWaveFormat& format, EventLoop* serving = nullptr);
    void discard();
    bool saving() const { return saving_; }

    uint64_t frames() const { return take_.frames(); }
    // Frames the take could not keep: the ring ran full, or the disk refused.
    uint64_t lostFrames() const;

private:
    CaptureTap& tap_;
    FrameRing ring_{kRingFrames};
    TakeFile take_;
    std::vector<float> piece_;
    bool recording_ = false;
    bool saving_ = false;
    bool discardAfterSave_ = false;
    uint64_t unwritten_ = 0;
};

}  // namespace tessaly::audio
