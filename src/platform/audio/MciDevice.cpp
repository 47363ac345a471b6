#include "platform/audio/MciDevice.h"

#include "platform/audio/Mixer.h"

namespace tessaly::audio {

MciDevice::MciDevice(Mixer& mixer, MciDeviceOptions options)
    : recorder_(mixer.captureTap(), std::move(options.takeFolder)),
      player_(mixer.playbackVoice()),
      loop_(options.loop),
      saveOnWorker_(options.saveOnWorker && options.loop) {}

MciDevice::~MciDevice() {
    if (loop_ && serviced_) loop_->stopTimer(*this);
}

MciResult MciDevice::execute(const std::string& command) {
    // What arrived before the command belongs before it.
    service();
    MciResult result = interpreter_.execute(command);
    followState();
    return result;
}

void MciDevice::service() {
    if (recorder_.recording()) recorder_.drain();
    if (player_.playing()) player_.refill();
}

bool MciDevice::openFile(const std::string& path, bool waveOnly) {
    return player_.open(path, waveOnly ? AudioFileStream::Accept::WaveOnly : AudioFileStream::Accept::AnyAudio);
}

bool MciDevice::stillPlaying() {
    service();
    return !player_.finished();
}

bool MciDevice::saveTake(const std::string& path, const MciWaveFormat& format) {
    if (!saveOnWorker_) return recorder_.save(path, format);
    if (onSaving) onSaving(true);
    const bool saved = recorder_.save(path, format, loop_);
    if (onSaving) onSaving(false);
    return saved;
}

void MciDevice::followState() {
    if (!loop_) return;
    const bool busy = recorder_.recording() || player_.playing();
    if (busy && !serviced_) loop_->startTimer(*this, kServiceMs);
    if (!busy && serviced_) loop_->stopTimer(*this);
    serviced_ = busy;
}

}  // namespace tessaly::audio
