#include "platform/audio/SilentSink.h"

#include <array>
#include <chrono>

#include "platform/audio/AudioFormat.h"
#include "platform/audio/Mixer.h"

namespace tessaly::audio {

SilentSink::SilentSink(Mixer& mixer, int periodFrames)
    : mixer_(mixer), periodFrames_(clampPeriod(periodFrames)), thread_([this] { run(); }) {}

SilentSink::~SilentSink() {
    stopping_.store(true);
    thread_.join();
}

void SilentSink::run() {
    using Clock = std::chrono::steady_clock;
    std::array<float, kMaxPeriodFrames * kChannels> block{};
    const Clock::time_point start = Clock::now();
    const auto startNs = std::chrono::duration_cast<std::chrono::nanoseconds>(start.time_since_epoch()).count();
    long long frames = 0;
    while (!stopping_.load(std::memory_order_relaxed)) {
        // The block stands for the period just past, as a device's would.
        const long long spanStart = startNs + frames * 1'000'000'000LL / kSampleRate - periodNs(periodFrames_);
        mixer_.render(block.data(), periodFrames_, {spanStart, spanStart + periodNs(periodFrames_)});
        frames += periodFrames_;
        // Paced against the start so that the sink keeps real time without drift.
        std::this_thread::sleep_until(start + std::chrono::nanoseconds(frames * 1'000'000'000LL / kSampleRate));
    }
}

}  // namespace tessaly::audio
