#include "platform/audio/AudioFileStream.h"

#include <samplerate.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>

#include "platform/audio/AudioFormat.h"
#include "runtime/FileAccess.h"

namespace tessaly::audio {

namespace {

constexpr std::size_t kPieceFrames = 4096;

bool isWave(int format) {
    const int container = format & SF_FORMAT_TYPEMASK;
    return container == SF_FORMAT_WAV || container == SF_FORMAT_WAVEX || container == SF_FORMAT_RF64;
}

// Broken files may decode to anything: keep the mix finite and in range.
float tame(float sample) {
    if (!std::isfinite(sample)) return 0.0f;
    return std::clamp(sample, -1.0f, 1.0f);
}

}  // namespace

AudioFileStream::~AudioFileStream() {
    close();
    if (resampler_) src_delete(resampler_);
}

bool AudioFileStream::open(const std::string& path, Accept accept) {
    close();
    SF_INFO info{};
    // Only a regular file: a FIFO would hold the event thread until a writer came.
    int cause = 0;
    const int fd = openRegularFile(path, cause);
    if (fd < 0) return false;
    SNDFILE* file = sf_open_fd(fd, SFM_READ, &info, SF_TRUE);
    if (!file) return false;
    const bool fits = (accept == Accept::AnyAudio || isWave(info.format)) && info.channels >= 1 &&
                      info.channels <= kMaxChannels && info.samplerate >= kMinRate && info.samplerate <= kMaxRate;
    if (!fits) {
        sf_close(file);
        return false;
    }
    resampling_ = info.samplerate != kSampleRate;
    if (resampling_) {
        // One converter serves every file this stream opens: it is large to set up.
        int error = 0;
        if (!resampler_) resampler_ = src_new(SRC_SINC_MEDIUM_QUALITY, kChannels, &error);
        if (!resampler_) {
            sf_close(file);
            return false;
        }
        src_reset(resampler_);
    }
    file_ = file;
    path_ = path;
    accept_ = accept;
    rate_ = info.samplerate;
    channels_ = info.channels;
    raw_.assign(kPieceFrames * static_cast<std::size_t>(channels_), 0.0f);
    input_.assign(kPieceFrames * kChannels, 0.0f);
    return true;
}

void AudioFileStream::close() {
    if (file_) sf_close(file_);
    file_ = nullptr;
    resampling_ = false;
    inputFrames_ = inputUsed_ = 0;
    fileEnded_ = ended_ = false;
}

bool AudioFileStream::rewind() {
    // Opening afresh works for every format, seekable or not.
    const std::string path = path_;
    return open(path, accept_);
}

bool AudioFileStream::fillInput() {
    inputUsed_ = 0;
    inputFrames_ = 0;
    const sf_count_t got = sf_readf_float(file_, raw_.data(), static_cast<sf_count_t>(kPieceFrames));
    if (got <= 0) return false;
    inputFrames_ = static_cast<std::size_t>(got);
    const auto channels = static_cast<std::size_t>(channels_);
    for (std::size_t f = 0; f < inputFrames_; ++f) {
        const float* frame = &raw_[f * channels];
        // Mono is heard on both sides; of more channels the first two are kept.
        input_[f * 2] = tame(frame[0]);
        input_[f * 2 + 1] = tame(channels > 1 ? frame[1] : frame[0]);
    }
    return true;
}

std::size_t AudioFileStream::read(float* out, std::size_t maxFrames) {
    if (!file_) return 0;
    std::size_t done = 0;
    while (done < maxFrames && !ended_) {
        if (inputUsed_ == inputFrames_ && !fileEnded_ && !fillInput()) fileEnded_ = true;
        const std::size_t usedBefore = inputUsed_;
        const std::size_t made = resampling_ ? resample(out + done * kChannels, maxFrames - done)
                                            : copyThrough(out + done * kChannels, maxFrames - done);
        done += made;
        // Nothing made and nothing taken: the file has nothing more to give.
        if (made == 0 && (fileEnded_ || inputUsed_ == usedBefore)) ended_ = true;
    }
    return done;
}

std::size_t AudioFileStream::copyThrough(float* out, std::size_t maxFrames) {
    const std::size_t count = std::min(maxFrames, inputFrames_ - inputUsed_);
    std::copy_n(input_.data() + inputUsed_ * kChannels, count * kChannels, out);
    inputUsed_ += count;
    return count;
}

std::size_t AudioFileStream::resample(float* out, std::size_t maxFrames) {
    SRC_DATA data{};
    data.data_in = input_.data() + inputUsed_ * kChannels;
    data.input_frames = static_cast<long>(inputFrames_ - inputUsed_);
    data.data_out = out;
    data.output_frames = static_cast<long>(maxFrames);
    data.src_ratio = static_cast<double>(kSampleRate) / rate_;
    data.end_of_input = fileEnded_ ? 1 : 0;
    if (src_process(resampler_, &data) != 0) {
        // The converter refused: what was heard so far is the whole file.
        fileEnded_ = true;
        inputUsed_ = inputFrames_;
        return 0;
    }
    inputUsed_ += static_cast<std::size_t>(data.input_frames_used);
    const auto made = static_cast<std::size_t>(data.output_frames_gen);
    // Conversion rings a little past a sharp edge at full scale.
    for (std::size_t i = 0; i < made * kChannels; ++i) out[i] = tame(out[i]);
    return made;
}

}  // namespace tessaly::audio
