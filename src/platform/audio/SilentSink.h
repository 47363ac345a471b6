#pragma once
#include <atomic>
#include <thread>

namespace tessaly::audio {

class Mixer;

// Stands in for a missing audio device: renders the mix period by period in
// real time and drops it, so the synthesizer and the voices run as they would
// with a device (queues drain, notes decay, sounds end).
class SilentSink {
public:
    SilentSink(Mixer& mixer, int periodFrames);
    ~SilentSink();
    SilentSink(const SilentSink&) = delete;
    SilentSink& operator=(const SilentSink&) = delete;

private:
    void run();

    Mixer& mixer_;
    int periodFrames_;
    std::atomic<bool> stopping_{false};
    std::thread thread_;
};

}  // namespace tessaly::audio
