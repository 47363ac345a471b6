#include "export/AudioRendering.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/audio/SoundFileWriter.h"
#include "platform/audio/AudioEngine.h"
#include "platform/audio/EngineWaveOut.h"
#include "platform/audio/SystemMidiPort.h"

namespace tessaly {

namespace {

using namespace tessaly::audio;

// The release after the last message: until 100 ms in a row stay below
// -80 dBFS, at most this long.
constexpr uint32_t kLongestTailMs = 5000;
constexpr uint32_t kQuietRunMs = 100;
constexpr float kQuietPeak = 1e-4f;

SoundFileType soundFileTypeOf(ExportFormat format, const std::string& path) {
    switch (format) {
    case ExportFormat::Wav: return SoundFileType::Wav16;
    case ExportFormat::Flac: return SoundFileType::Flac16;
    case ExportFormat::Mp3: return SoundFileType::Mp3;
    case ExportFormat::Midi: break;
    }
    throw ExportFailure(exportFailureText(path, 0));
}

class Renderer {
public:
    Renderer(AudioEngine& engine, SoundFileWriter& writer, const std::string& path)
        : engine_(engine), writer_(writer), path_(path) {}

    // Renders until the rendered time reaches ms; the loudest sample of it.
    float renderUntilMs(uint64_t ms) {
        float loudest = 0;
        const uint64_t target = ms * kFramesPerMs;
        while (rendered_ < target) {
            const int frames =
                static_cast<int>(std::min<uint64_t>(static_cast<uint64_t>(engine_.periodFrames()), target - rendered_));
            engine_.renderFrames(block_.data(), frames);
            for (int i = 0; i < frames * kChannels; ++i) loudest = std::max(loudest, std::fabs(block_[static_cast<std::size_t>(i)]));
            if (!writer_.write(block_.data(), frames)) throw ExportFailure(exportFailureText(path_, writer_.error()));
            rendered_ += static_cast<uint64_t>(frames);
        }
        return loudest;
    }
    uint64_t renderedMs() const { return rendered_ / kFramesPerMs; }

private:
    AudioEngine& engine_;
    SoundFileWriter& writer_;
    const std::string& path_;
    uint64_t rendered_ = 0;
    std::array<float, kMaxPeriodFrames * kChannels> block_{};
};

}  // namespace

void renderAudioFile(const CapturedPlay& play, ExportFormat format, const std::string& path,
                     const SynthSource& synth, const AudioRenderOptions& options) {
    AudioEngine engine(AudioEngineOptions{AudioOutput::Offline, kDefaultPeriodFrames});
    SystemMidiPort port(engine, {synth.dataFolder, synth.soundFont});
    uint32_t handle = 0;
    if (int result = port.open(SystemMidiPort::kSynthId, handle); result != 0) throw ExportFailure(port.errorText(result));
    EngineWaveOut(engine).setVolume(play.volumeWord);

    SoundFileWriter writer;
    if (!writer.open(path, soundFileTypeOf(format, path)))
        throw ExportFailure(exportFailureText(path, writer.error()));
    Renderer renderer(engine, writer, path);
    auto checkCancel = [&] {
        if (options.cancel && options.cancel->load()) throw ExportFailure("导出已取消。");
    };
    uint64_t lastReport = 0;
    for (const TimedMessage& m : play.messages) {
        if (m.ms > renderer.renderedMs()) {
            renderer.renderUntilMs(m.ms);
            if (renderer.renderedMs() >= lastReport + 1000) {
                lastReport = renderer.renderedMs();
                checkCancel();
                if (options.progress) options.progress(static_cast<uint32_t>(lastReport), play.endMs);
            }
        }
        // A message the synthesizer refuses is refused in the live program too.
        port.shortMessage(handle, m.message);
    }
    uint32_t quietMs = 0;
    for (uint64_t tail = 0; tail < kLongestTailMs && quietMs < kQuietRunMs; tail += 10) {
        const float loudest = renderer.renderUntilMs(play.endMs + tail + 10);
        quietMs = loudest < kQuietPeak ? quietMs + 10 : 0;
    }
    port.close(handle);
    if (!writer.close()) throw ExportFailure(exportFailureText(path, writer.error()));
    if (options.progress) options.progress(play.endMs, play.endMs);
}

}  // namespace tessaly
