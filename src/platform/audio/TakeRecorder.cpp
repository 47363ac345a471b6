#include "platform/audio/TakeRecorder.h"

#include "platform/audio/StreamVoice.h"
#include "platform/audio/TakeExport.h"
#include "platform/audio/TakeSaving.h"

#include <utility>

namespace tessaly::audio {

namespace {
constexpr std::size_t kPieceFrames = 4096;
}

TakeRecorder::TakeRecorder(CaptureTap& tap, std::string takeFolder)
    : tap_(tap), take_(std::move(takeFolder)), piece_(kPieceFrames * kChannels) {}

TakeRecorder::~TakeRecorder() { tap_.detach(); }

bool TakeRecorder::start() {
    if (recording_) return true;
    if (saving_) return false;
    if (!take_.exists() && !take_.create()) return false;
    ring_.clear();
    tap_.attach(ring_);
    recording_ = true;
    return true;
}

void TakeRecorder::stop() {
    if (!recording_) return;
    tap_.detach();
    recording_ = false;
    drain();
}

void TakeRecorder::drain() {
    if (saving_) return;
    while (std::size_t got = ring_.read(piece_.data(), kPieceFrames))
        if (!take_.append(piece_.data(), got)) unwritten_ += got;
}

bool TakeRecorder::save(const std::string& path, const MciWaveFormat& format, EventLoop* serving) {
    if (saving_) return false;
    stop();
    if (take_.exists() && !take_.flush()) return false;
    if (!serving) return exportTake(take_.path(), take_.frames(), path, format);
    bool saved = false;
    saving_ = true;
    try {
        saved = exportTakeServing(*serving, take_.path(), take_.frames(), path, format);
    } catch (...) {
        // A failure in an event served meanwhile; the worker has finished.
        saving_ = false;
        throw;
    }
    saving_ = false;
    if (std::exchange(discardAfterSave_, false)) discard();
    return saved;
}

void TakeRecorder::discard() {
    if (saving_) {
        discardAfterSave_ = true;
        return;
    }
    stop();
    take_.discard();
    unwritten_ = 0;
}

uint64_t TakeRecorder::lostFrames() const { return tap_.droppedFrames() + unwritten_; }

}  // namespace tessaly::audio
