#pragma once
#include <cstddef>
#include <string>
#include <vector>

struct sf_private_tag;
struct SRC_STATE_tag;

namespace tessaly::audio {

// A sound file read a piece at a time for the player, converted to stereo at
// the engine's rate (libsndfile decodes, libsamplerate converts the rate).
// Whatever the file holds, reading ends: samples come out finite and within
// full scale, and a file that breaks off simply ends there.
class AudioFileStream {
public:
    enum class Accept {
        WaveOnly,  // RIFF WAV files only
        AnyAudio,  // MP3, WAV and whatever else the library decodes
    };

    // Rates beyond these are refused rather than converted.
    static constexpr int kMinRate = 1000;
    static constexpr int kMaxRate = 384000;
    static constexpr int kMaxChannels = 256;

    AudioFileStream() = default;
    ~AudioFileStream();
    AudioFileStream(const AudioFileStream&) = delete;
    AudioFileStream& operator=(const AudioFileStream&) = delete;

    // False when the file is missing, not sound, or not of the kind accepted.
    bool open(const std::string& path, Accept accept);
    void close();
    bool isOpen() const { return file_ != nullptr; }
    // Back to the first frame.
    bool rewind();

    // Writes up to maxFrames interleaved stereo frames to out; fewer only
    // when the file has ended, then 0.
    std::size_t read(float* out, std::size_t maxFrames);
    bool ended() const { return ended_; }

    int sourceRate() const { return rate_; }
    int sourceChannels() const { return channels_; }

private:
    // The next piece of the file, in stereo; false at its end.
    bool fillInput();
    std::size_t copyThrough(float* out, std::size_t maxFrames);
    std::size_t resample(float* out, std::size_t maxFrames);

    std::string path_;
    Accept accept_ = Accept::AnyAudio;
    sf_private_tag* file_ = nullptr;
    SRC_STATE_tag* resampler_ = nullptr;
    bool resampling_ = false;
    int rate_ = 0;
    int channels_ = 0;
    std::vector<float> raw_;    // a piece as the file has it
    std::vector<float> input_;  // the same piece in stereo
    std::size_t inputFrames_ = 0;
    std::size_t inputUsed_ = 0;
    bool fileEnded_ = false;
    bool ended_ = false;
};

}  // namespace tessaly::audio
