#include "platform/audio/SoundFileWriter.h"

#include <sndfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>

#include "platform/audio/AudioFormat.h"
#include "runtime/FileAccess.h"

namespace tessaly::audio {

namespace {

std::atomic<long long> bytesAllowedForTesting{-1};

}  // namespace

void limitSoundFileBytesForTesting(long long bytes) { bytesAllowedForTesting = bytes; }

// libsndfile's writes go through here rather than to a descriptor of its own,
// so that no short write goes unseen.
struct SoundFileWriter::Sink {
    PendingFile& file;
    long long allowed;        // bytes still accepted, -1 for no limit
    sf_count_t furthest = 0;  // the end of what was written

    static Sink& of(void* user) { return *static_cast<Sink*>(user); }

    static sf_count_t length(void* user) {
        struct stat info {};
        return ::fstat(of(user).file.fd(), &info) == 0 ? info.st_size : -1;
    }
    static sf_count_t seek(sf_count_t offset, int whence, void* user) {
        return ::lseek(of(user).file.fd(), offset, whence);
    }
    static sf_count_t read(void* data, sf_count_t count, void* user) {
        const ssize_t got = ::read(of(user).file.fd(), data, static_cast<std::size_t>(count));
        return got < 0 ? 0 : got;
    }
    static sf_count_t tell(void* user) { return ::lseek(of(user).file.fd(), 0, SEEK_CUR); }
    static sf_count_t write(const void* data, sf_count_t count, void* user) {
        Sink& sink = of(user);
        if (sink.allowed >= 0) {
            if (count > sink.allowed) {
                sink.file.fail(ENOSPC);
                return 0;
            }
            sink.allowed -= count;
        }
        if (!sink.file.write(data, static_cast<std::size_t>(count))) return 0;
        sink.furthest = std::max(sink.furthest, tell(user));
        return count;
    }
};

SoundFileWriter::SoundFileWriter() = default;

SoundFileWriter::~SoundFileWriter() {
    // Not closed: the file is abandoned and its temporary removed.
    if (file_) sf_close(file_);
}

int SoundFileWriter::error() const {
    if (pending_ && pending_->error() != 0) return pending_->error();
    return openError_;
}

bool SoundFileWriter::open(const std::string& path, SoundFileType type) {
    if (file_) sf_close(file_);
    file_ = nullptr;
    openError_ = 0;
    sink_.reset();
    pending_ = std::make_unique<PendingFile>(finalTarget(path));
    if (!pending_->create()) return false;
    sink_ = std::make_unique<Sink>(Sink{*pending_, bytesAllowedForTesting.load()});
    SF_INFO info{};
    info.samplerate = kSampleRate;
    info.channels = kChannels;
    switch (type) {
    case SoundFileType::Wav16: info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16; break;
    case SoundFileType::Flac16: info.format = SF_FORMAT_FLAC | SF_FORMAT_PCM_16; break;
    case SoundFileType::Mp3: info.format = SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III; break;
    }
    static SF_VIRTUAL_IO io{&Sink::length, &Sink::seek, &Sink::read, &Sink::write, &Sink::tell};
    file_ = sf_open_virtual(&io, SFM_WRITE, &info, sink_.get());
    if (!file_) {
        openError_ = pending_->error() != 0 ? pending_->error() : ENOSPC;
        return false;
    }
    // Without this a sample past full scale wraps round instead of clipping.
    sf_command(file_, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    written_ = 0;
    return true;
}

bool SoundFileWriter::write(const float* frames, int count) {
    if (!file_) return false;
    const sf_count_t done = sf_writef_float(file_, frames, count);
    written_ += done;
    return done == count && pending_->error() == 0;
}

bool SoundFileWriter::close() {
    if (!file_) return false;
    const bool closed = sf_close(file_) == 0;
    file_ = nullptr;
    if (!closed) pending_->fail(EIO);
    return pending_->commit(sink_->furthest);
}

}  // namespace tessaly::audio
