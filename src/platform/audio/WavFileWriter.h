#pragma once
#include <cstdint>
#include <string>

struct sf_private_tag;

namespace tessaly::audio {

// Writes rendered frames (interleaved float stereo at the engine rate) to a
// 16-bit stereo WAV file, clipping what lies beyond full scale.
class WavFileWriter {
public:
    WavFileWriter() = default;
    ~WavFileWriter();
    WavFileWriter(const WavFileWriter&) = delete;
    WavFileWriter& operator=(const WavFileWriter&) = delete;

    // False when the file cannot be created.
    bool open(const std::string& path);
    bool write(const float* frames, int count);
    // Finishes the header; called by the destructor too.
    void close();

    bool isOpen() const { return file_ != nullptr; }
    int64_t framesWritten() const { return written_; }

private:
    sf_private_tag* file_ = nullptr;
    int64_t written_ = 0;
};

}  // namespace tessaly::audio
