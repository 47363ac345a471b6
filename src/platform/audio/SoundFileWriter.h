#pragma once
#include <cstdint>
#include <string>

struct sf_private_tag;

namespace tessaly::audio {

enum class SoundFileType { Wav16, Flac16, Mp3 };

// Writes rendered frames (interleaved float stereo at the engine rate) to a
// 16-bit WAV or FLAC file or an MP3, clipping what lies beyond full scale.
class SoundFileWriter {
public:
    SoundFileWriter() = default;
    ~SoundFileWriter();
    SoundFileWriter(const SoundFileWriter&) = delete;
    SoundFileWriter& operator=(const SoundFileWriter&) = delete;

    // False when the file cannot be created.
    bool open(const std::string& path, SoundFileType type = SoundFileType::Wav16);
    bool write(const float* frames, int count);
    // Finishes the file; false when that fails. Called by the destructor too.
    bool close();

    bool isOpen() const { return file_ != nullptr; }
    int64_t framesWritten() const { return written_; }

private:
    sf_private_tag* file_ = nullptr;
    int64_t written_ = 0;
};

}  // namespace tessaly::audio
