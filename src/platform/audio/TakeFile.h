#pragma once
#include <cstdint>
#include <cstdio>
#include <string>

namespace tessaly::audio {

// The recording as it is made: raw interleaved float stereo frames at the
// engine's rate, in a temporary file, so that a long take costs disk rather
// than memory. The file has no name in the folder: it goes when the take is
// discarded or destroyed, or when the process ends, however it ends.
class TakeFile {
public:
    // folder: where the temporary file goes.
    explicit TakeFile(std::string folder) : folder_(std::move(folder)) {}
    ~TakeFile() { discard(); }
    TakeFile(const TakeFile&) = delete;
    TakeFile& operator=(const TakeFile&) = delete;

    // A new empty take; false when the file cannot be made.
    bool create();
    bool exists() const { return file_ != nullptr; }
    bool append(const float* frames, std::size_t count);
    uint64_t frames() const { return frames_; }
    // Everything appended so far is in the file, for a reader of the path.
    bool flush();
    // A name that opens the file again while it exists (under /proc/self/fd).
    const std::string& path() const { return path_; }
    void discard();

private:
    std::string folder_;
    std::string path_;
    std::FILE* file_ = nullptr;
    uint64_t frames_ = 0;
};

// Where takes are kept: $TMPDIR when set, else /var/tmp, which lives on disk
// where /tmp is often memory.
std::string defaultTakeFolder();

}  // namespace tessaly::audio
