#pragma once
#include <cstdint>
#include <string>

#include "export/ExportFormat.h"

struct sf_private_tag;

namespace tessaly {

// Writes rendered frames (interleaved float stereo at the engine's rate) as
// 16-bit WAV, 16-bit FLAC or MP3, clipping what lies beyond full scale.
class SoundFileWriter {
public:
    SoundFileWriter() = default;
    ~SoundFileWriter();
    SoundFileWriter(const SoundFileWriter&) = delete;
    SoundFileWriter& operator=(const SoundFileWriter&) = delete;

    // False when the file cannot be created or the format is not audio.
    bool open(const std::string& path, ExportFormat format);
    bool write(const float* frames, int count);
    // False when the file could not be finished.
    bool close();

    int64_t framesWritten() const { return written_; }

private:
    sf_private_tag* file_ = nullptr;
    int64_t written_ = 0;
};

}  // namespace tessaly
