#include "platform/audio/TakeExport.h"

#include <samplerate.h>
#include <sndfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/audio/AudioFormat.h"

namespace tessaly::audio {

namespace {

constexpr std::size_t kPieceFrames = 4096;

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};
struct SndCloser {
    void operator()(SNDFILE* f) const { sf_close(f); }
};
struct SrcDeleter {
    void operator()(SRC_STATE* s) const { src_delete(s); }
};

// The finished file gets the permissions a newly created file would have.
void giveUsualPermissions(int fd) {
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(fd, 0666 & ~mask);
}

class Exporter {
public:
    Exporter(SNDFILE* out, const MciWaveFormat& format) : out_(out), format_(format) {}

    bool start() {
        if (format_.rate == kSampleRate) return true;
        int error = 0;
        resampler_.reset(src_new(SRC_SINC_MEDIUM_QUALITY, format_.channels, &error));
        return resampler_ != nullptr;
    }

    // Frames of the take, in the file's channel count, converted to its rate.
    bool put(const float* stereo, std::size_t frames, bool last) {
        const auto channels = static_cast<std::size_t>(format_.channels);
        piece_.resize(frames * channels);
        for (std::size_t f = 0; f < frames; ++f) {
            if (channels == 1) piece_[f] = 0.5f * (stereo[f * 2] + stereo[f * 2 + 1]);
            else std::copy_n(stereo + f * 2, 2, &piece_[f * 2]);
        }
        if (!resampler_) return write(piece_.data(), frames);
        const double ratio = static_cast<double>(format_.rate) / kSampleRate;
        converted_.resize((static_cast<std::size_t>(static_cast<double>(frames) * ratio) + 64) * channels);
        std::size_t used = 0;
        for (;;) {
            SRC_DATA data{};
            data.data_in = piece_.data() + used * channels;
            data.input_frames = static_cast<long>(frames - used);
            data.data_out = converted_.data();
            data.output_frames = static_cast<long>(converted_.size() / channels);
            data.src_ratio = ratio;
            data.end_of_input = last ? 1 : 0;
            if (src_process(resampler_.get(), &data) != 0) return false;
            used += static_cast<std::size_t>(data.input_frames_used);
            const auto made = static_cast<std::size_t>(data.output_frames_gen);
            if (made > 0 && !write(converted_.data(), made)) return false;
            if (used == frames && (!last || made == 0)) return true;
        }
    }

private:
    // Samples are rounded to the nearest step here, clipped at full scale:
    // the library's own clipping conversion rounds down, which puts the
    // faintest negative sound (and so most of a silence) a step below zero.
    bool write(const float* frames, std::size_t count) {
        const std::size_t samples = count * static_cast<std::size_t>(format_.channels);
        if (format_.bits == 8) {
            bytes_.resize(samples);
            for (std::size_t i = 0; i < samples; ++i)
                bytes_[i] = static_cast<unsigned char>(std::clamp(std::lround(frames[i] * 128.0f) + 128, 0L, 255L));
            // Unsigned bytes are the file's own form of 8-bit samples.
            return sf_write_raw(out_, bytes_.data(), static_cast<sf_count_t>(samples)) ==
                   static_cast<sf_count_t>(samples);
        }
        shorts_.resize(samples);
        for (std::size_t i = 0; i < samples; ++i)
            shorts_[i] = static_cast<short>(std::clamp(std::lround(frames[i] * 32768.0f), -32768L, 32767L));
        return sf_writef_short(out_, shorts_.data(), static_cast<sf_count_t>(count)) == static_cast<sf_count_t>(count);
    }

    SNDFILE* out_;
    MciWaveFormat format_;
    std::unique_ptr<SRC_STATE, SrcDeleter> resampler_;
    std::vector<float> piece_;
    std::vector<float> converted_;
    std::vector<unsigned char> bytes_;
    std::vector<short> shorts_;
};

bool writeWave(std::FILE* take, uint64_t frames, int fd, const MciWaveFormat& format) {
    SF_INFO info{};
    info.samplerate = format.rate;
    info.channels = format.channels;
    info.format = SF_FORMAT_WAV | (format.bits == 8 ? SF_FORMAT_PCM_U8 : SF_FORMAT_PCM_16);
    std::unique_ptr<SNDFILE, SndCloser> out(sf_open_fd(fd, SFM_WRITE, &info, SF_FALSE));
    if (!out) return false;
    Exporter exporter(out.get(), format);
    if (!exporter.start()) return false;
    std::vector<float> piece(kPieceFrames * kChannels);
    uint64_t left = frames;
    do {
        const auto want = static_cast<std::size_t>(std::min<uint64_t>(left, kPieceFrames));
        if (want > 0 && std::fread(piece.data(), sizeof(float) * kChannels, want, take) != want) return false;
        left -= want;
        if (!exporter.put(piece.data(), want, left == 0)) return false;
    } while (left > 0);
    // Closing writes the header's final sizes.
    return sf_close(out.release()) == 0;
}

}  // namespace

bool exportTake(const std::string& takePath, uint64_t frames, const std::string& target, const MciWaveFormat& format) {
    std::unique_ptr<std::FILE, FileCloser> take(takePath.empty() ? nullptr : std::fopen(takePath.c_str(), "rb"));
    if (!take && frames > 0) return false;

    std::filesystem::path folder = std::filesystem::path(target).parent_path();
    if (folder.empty()) folder = ".";
    std::string pattern = (folder / ".tessaly-save-XXXXXX").string();
    std::vector<char> partial(pattern.begin(), pattern.end());
    partial.push_back('\0');
    const int fd = mkstemp(partial.data());
    if (fd < 0) return false;

    bool written = writeWave(take.get(), frames, fd, format);
    giveUsualPermissions(fd);
    written = fsync(fd) == 0 && written;
    written = ::close(fd) == 0 && written;
    if (written) written = std::rename(partial.data(), target.c_str()) == 0;
    if (!written) unlink(partial.data());
    return written;
}

}  // namespace tessaly::audio
