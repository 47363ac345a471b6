#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessaly {

// The one way the program reaches a file the user can name or replace:
// nothing blocks (a FIFO, a device), nothing throws, and a failure keeps its
// cause so that a message can say it in words.

// The cause for a path that exists but is no regular file. Beyond errno's range.
inline constexpr int kNotRegularFile = 0x10000;
// The cause for a file longer than its format can hold.
inline constexpr int kFileTooLong = 0x10001;

// A descriptor for reading a regular file, or -1 with the cause in `error`.
// Opened without blocking, so a FIFO is refused rather than waited on.
int openRegularFile(const std::string& path, int& error);

// Writes all the bytes to `fd`; 0, or the cause of the first failure (a
// write that takes nothing counts as a full disk).
int writeAll(int fd, const void* data, std::size_t size);

// What tells a file from its earlier self: which file it is, its size and
// the time of its last change. Nothing for a path that is no regular file.
struct FileStamp {
    std::uint64_t device = 0, inode = 0;
    std::int64_t size = 0, changedNs = 0;
    bool operator==(const FileStamp&) const = default;
};
std::optional<FileStamp> fileStamp(const std::string& path);

// The cause in the user's words: "文件未找到", "没有权限", "磁盘已满", ...
std::string fileErrorText(int error);

// "NAME：CAUSE" for a message about a file.
std::string fileFailureMessage(const std::string& path, int error);
// "CAUSE：NAME", as the run-time's failures name a file ("文件未找到：NAME").
std::string fileCauseMessage(int error, const std::string& path);

// The regular files of a folder, links followed; an entry that cannot be
// examined (a link loop, a name removed meanwhile) is passed over. In the
// order the folder lists them.
std::vector<std::filesystem::path> regularFilesIn(const std::filesystem::path& folder);

// A file written beside its final place under a name nobody can guess
// (created exclusively, never through a link), then synced and renamed over
// the target only when every write, the sync and the close succeeded. The
// temporary file goes away with the object unless it was committed.
class PendingFile {
public:
    explicit PendingFile(std::filesystem::path target);
    ~PendingFile();
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    // Creates the temporary file; false with error() set when it cannot be.
    bool create();
    int fd() const { return fd_; }
    const std::string& temporaryPath() const { return temp_; }
    const std::filesystem::path& target() const { return target_; }

    // Writes all the bytes at the current offset; false on a short write.
    bool write(const void* data, std::size_t size);
    // Records a failure met by a writer that uses fd() directly.
    void fail(int error);

    // Syncs, closes and renames over the target; false, leaving the target as
    // it was, when anything failed on the way or the file is shorter than
    // `leastSize`.
    bool commit(long long leastSize = 0);
    // The first cause of failure (an errno or one of the constants above).
    int error() const { return error_; }

private:
    std::filesystem::path target_;
    std::string temp_;
    int fd_ = -1;
    int error_ = 0;
    bool committed_ = false;
};

// The file a save should replace: the end of a chain of symbolic links, or the
// path itself. A link to a missing file names the file to create.
std::filesystem::path finalTarget(const std::filesystem::path& path);

}  // namespace tessaly
