#include "platform/audio/OfflineRenderer.h"

#include <algorithm>

#include "platform/audio/AudioEngine.h"
#include "platform/audio/SoundFileWriter.h"

namespace tessaly::audio {

void OfflineRenderer::renderUntilMs(uint64_t ms) {
    const uint64_t target = ms * kFramesPerMs;
    while (renderedFrames_ < target) {
        const int frames = static_cast<int>(std::min<uint64_t>(static_cast<uint64_t>(engine_.periodFrames()), target - renderedFrames_));
        engine_.renderFrames(block_.data(), frames);
        if (writer_) writer_->write(block_.data(), frames);
        renderedFrames_ += static_cast<uint64_t>(frames);
    }
}

}  // namespace tessaly::audio
