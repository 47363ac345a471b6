#include "platform/audio/FilePlayer.h"

#include <algorithm>

#include "platform/audio/StreamVoice.h"

namespace tessaly::audio {

namespace {
constexpr std::size_t kPieceFrames = 4096;
}

FilePlayer::FilePlayer(StreamVoice& voice) : voice_(voice), piece_(kPieceFrames * kChannels) {}

FilePlayer::~FilePlayer() { voice_.detach(); }

bool FilePlayer::open(const std::string& path, AudioFileStream::Accept accept) {
    close();
    if (!stream_.open(path, accept)) return false;
    ring_.clear();
    inputFinished_ = false;
    return true;
}

void FilePlayer::close() {
    stop();
    stream_.close();
    ring_.clear();
}

void FilePlayer::moveTo(long ms) {
    ring_.clear();
    inputFinished_ = false;
    stream_.rewind();
    // Decoded and dropped up to the place asked for.
    auto skip = static_cast<std::size_t>(ms) * kFramesPerMs;
    while (skip > 0) {
        const std::size_t got = stream_.read(piece_.data(), std::min(skip, kPieceFrames));
        if (got == 0) break;
        skip -= got;
    }
}

void FilePlayer::seek(long ms) {
    stop();
    moveTo(ms);
}

void FilePlayer::play(std::optional<long> fromMs) {
    if (!stream_.isOpen()) return;
    stop();
    if (fromMs) moveTo(*fromMs);
    refill();
    voice_.attach(ring_);
    if (inputFinished_) voice_.finishInput();
    playing_ = true;
}

void FilePlayer::stop() {
    // What was decoded ahead stays in the ring, to go on from there.
    voice_.detach();
    playing_ = false;
}

void FilePlayer::refill() {
    while (!inputFinished_ && ring_.writable() > 0) {
        const std::size_t room = std::min(ring_.writable(), kPieceFrames);
        const std::size_t got = stream_.read(piece_.data(), room);
        ring_.write(piece_.data(), got);
        if (got < room) inputFinished_ = true;
    }
    if (inputFinished_ && playing_) voice_.finishInput();
}

bool FilePlayer::finished() const { return playing_ && voice_.drained(); }

}  // namespace tessaly::audio
