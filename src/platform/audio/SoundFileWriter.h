#pragma once
#include <cstdint>
#include <memory>
#include <string>

struct sf_private_tag;

namespace tessaly {
class PendingFile;
}

namespace tessaly::audio {

enum class SoundFileType { Wav16, Flac16, Mp3 };

// Writes rendered frames (interleaved float stereo at the engine rate) to a
// 16-bit WAV or FLAC file or an MP3, clipping what lies beyond full scale.
// The file is written beside its place and takes it only when close()
// succeeds: every byte the encoder hands over is checked on its way to the
// disk, since an encoder does not always report a short write itself.
class SoundFileWriter {
public:
    SoundFileWriter();
    ~SoundFileWriter();
    SoundFileWriter(const SoundFileWriter&) = delete;
    SoundFileWriter& operator=(const SoundFileWriter&) = delete;

    // False when the file cannot be created.
    bool open(const std::string& path, SoundFileType type = SoundFileType::Wav16);
    bool write(const float* frames, int count);
    // Finishes the file and puts it in its place; false when anything on the
    // way failed, and then what was at the path is left as it was. The
    // destructor abandons a file that was not closed.
    bool close();

    bool isOpen() const { return file_ != nullptr; }
    int64_t framesWritten() const { return written_; }
    // The cause of the first failure, as FileAccess.h gives it.
    int error() const;

    // What the encoder's writes reach: in step with the file, or a stand-in
    // that refuses writes as a full disk does (for tests).
    struct Sink;

private:
    sf_private_tag* file_ = nullptr;
    std::unique_ptr<PendingFile> pending_;
    std::unique_ptr<Sink> sink_;
    int64_t written_ = 0;
    int openError_ = 0;
};

// For tests: every writer opened after this accepts only `bytes` bytes more
// of encoded data, then fails as a full disk does (-1 turns that off).
void limitSoundFileBytesForTesting(long long bytes);

}  // namespace tessaly::audio
