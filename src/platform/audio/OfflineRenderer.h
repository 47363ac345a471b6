#pragma once
#include <array>
#include <cstdint>

#include "platform/audio/AudioFormat.h"

namespace tessaly::audio {

class AudioEngine;
class SoundFileWriter;

// Keeps an offline engine in step with a virtual millisecond clock: whoever
// drives the clock renders up to "now" before each message it sends, so a
// message sounds at its own millisecond. What is rendered goes to the writer.
class OfflineRenderer {
public:
    explicit OfflineRenderer(AudioEngine& engine, SoundFileWriter* writer = nullptr)
        : engine_(engine), writer_(writer) {}

    // Renders until the rendered time reaches ms; nothing when it already has.
    void renderUntilMs(uint64_t ms);
    void renderMs(uint64_t ms) { renderUntilMs(renderedFrames_ / kFramesPerMs + ms); }

    uint64_t renderedFrames() const { return renderedFrames_; }

private:
    AudioEngine& engine_;
    SoundFileWriter* writer_;
    uint64_t renderedFrames_ = 0;
    std::array<float, kMaxPeriodFrames * kChannels> block_{};
};

}  // namespace tessaly::audio
