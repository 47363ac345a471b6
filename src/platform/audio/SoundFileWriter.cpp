#include "platform/audio/SoundFileWriter.h"

#include <sndfile.h>

#include "platform/audio/AudioFormat.h"

namespace tessaly::audio {

SoundFileWriter::~SoundFileWriter() {
    close();
}

bool SoundFileWriter::open(const std::string& path, SoundFileType type) {
    close();
    SF_INFO info{};
    info.samplerate = kSampleRate;
    info.channels = kChannels;
    switch (type) {
    case SoundFileType::Wav16: info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16; break;
    case SoundFileType::Flac16: info.format = SF_FORMAT_FLAC | SF_FORMAT_PCM_16; break;
    case SoundFileType::Mp3: info.format = SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III; break;
    }
    file_ = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file_) return false;
    // Without this a sample past full scale wraps round instead of clipping.
    sf_command(file_, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    written_ = 0;
    return true;
}

bool SoundFileWriter::write(const float* frames, int count) {
    if (!file_) return false;
    const sf_count_t done = sf_writef_float(file_, frames, count);
    written_ += done;
    return done == count;
}

bool SoundFileWriter::close() {
    if (!file_) return true;
    const bool closed = sf_close(file_) == 0;
    file_ = nullptr;
    return closed;
}

}  // namespace tessaly::audio
