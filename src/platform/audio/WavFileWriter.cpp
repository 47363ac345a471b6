#include "platform/audio/WavFileWriter.h"

#include <sndfile.h>

#include "platform/audio/AudioFormat.h"

namespace tessaly::audio {

WavFileWriter::~WavFileWriter() {
    close();
}

bool WavFileWriter::open(const std::string& path) {
    close();
    SF_INFO info{};
    info.samplerate = kSampleRate;
    info.channels = kChannels;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    file_ = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file_) return false;
    // Without this a sample past full scale wraps round instead of clipping.
    sf_command(file_, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    written_ = 0;
    return true;
}

bool WavFileWriter::write(const float* frames, int count) {
    if (!file_) return false;
    const sf_count_t done = sf_writef_float(file_, frames, count);
    written_ += done;
    return done == count;
}

void WavFileWriter::close() {
    if (file_) sf_close(file_);
    file_ = nullptr;
}

}  // namespace tessaly::audio
