#include "app/script/SynthRendering.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "runtime/FileAccess.h"

namespace tessaly {

SynthRendering::SynthRendering(const EventLoop& clock, const std::string& appDir, const std::string& soundFont,
                               const std::string& wavPath)
    : clock_(clock),
      lastClock_(clock.nowMs()),
      engine_(audio::AudioEngineOptions{audio::AudioOutput::Offline}),
      synth_(engine_, {appDir, soundFont}),
      effects_(engine_),
      recorder_(engine_.mixer()),
      midi_(*this, synth_),
      wave_(*this, effects_),
      mci_(*this, recorder_) {
    wavPath_ = wavPath;
    if (!wavPath.empty() && !writer_.open(wavPath))
        throw std::runtime_error(fileFailureMessage(wavPath, writer_.error()));
    renderer_ = std::make_unique<audio::OfflineRenderer>(engine_, wavPath.empty() ? nullptr : &writer_);
}

SynthRendering::~SynthRendering() {
    catchUp();
    if (writer_.isOpen() && !writer_.close())
        std::fprintf(stderr, "%s\n", fileFailureMessage(wavPath_, writer_.error()).c_str());
}

void SynthRendering::catchUp() {
    uint32_t now = clock_.nowMs();
    elapsedMs_ += static_cast<uint32_t>(now - lastClock_);
    lastClock_ = now;
    uint64_t rendered = renderer_->renderedFrames() / audio::kFramesPerMs;
    while (rendered < elapsedMs_) {
        rendered = std::min<uint64_t>(rendered + audio::MciDevice::kServiceMs, elapsedMs_);
        renderer_->renderUntilMs(rendered);
        recorder_.service();
    }
}

MciResult SynthRendering::SteppedMci::execute(const std::string& command) {
    owner_.catchUp();
    return inner_.execute(command);
}

int SynthRendering::SteppedMidi::close(uint32_t handle) {
    owner_.catchUp();
    return inner_.close(handle);
}

int SynthRendering::SteppedMidi::shortMessage(uint32_t handle, uint32_t message) {
    owner_.catchUp();
    return inner_.shortMessage(handle, message);
}

void SynthRendering::SteppedWave::setVolume(uint32_t volumeWord) {
    owner_.catchUp();
    inner_.setVolume(volumeWord);
}

bool SynthRendering::SteppedWave::playSound(const std::string& path, int flags) {
    owner_.catchUp();
    return inner_.playSound(path, flags);
}

}  // namespace tessaly
