#include "runtime/FileAccess.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace tessaly {

namespace fs = std::filesystem;

int openRegularFile(const std::string& path, int& error) {
    // O_NONBLOCK: opening a FIFO for reading would otherwise wait for a writer.
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        error = errno;
        return -1;
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        error = S_ISDIR(info.st_mode) ? EISDIR : kNotRegularFile;
        ::close(fd);
        return -1;
    }
    // Reads of a regular file never block; the flag is dropped so that none
    // of them returns EAGAIN either.
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return fd;
}

int writeAll(int fd, const void* data, std::size_t size) {
    const char* bytes = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = ::write(fd, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        if (written == 0) return ENOSPC;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return 0;
}

std::optional<FileStamp> fileStamp(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    return FileStamp{static_cast<std::uint64_t>(info.st_dev), static_cast<std::uint64_t>(info.st_ino), info.st_size,
                     static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec};
}

std::string fileErrorText(int error) {
    switch (error) {
    case 0: return "未知错误";
    case ENOENT:
    case ENOTDIR: return "文件未找到";
    case EACCES:
    case EPERM: return "没有权限";
    case EROFS: return "磁盘只读";
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return "磁盘已满";
    case EISDIR: return "这是一个文件夹";
    case ELOOP: return "符号链接循环";
    case ENAMETOOLONG: return "文件名太长";
    case EBUSY:
    case ETXTBSY: return "文件正在使用";
    case kNotRegularFile: return "不是普通文件";
    case kFileTooLong: return "文件太长";
    default: return "读写错误";
    }
}

std::string fileFailureMessage(const std::string& path, int error) { return path + "：" + fileErrorText(error); }

std::string fileCauseMessage(int error, const std::string& path) { return fileErrorText(error) + "：" + path; }

std::vector<fs::path> regularFilesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code error;
    fs::directory_iterator it(folder, error);
    for (const fs::directory_iterator end; !error && it != end; it.increment(error)) {
        std::error_code statError;
        if (it->is_regular_file(statError) && !statError) files.push_back(it->path());
    }
    return files;
}

fs::path finalTarget(const fs::path& path) {
    fs::path target = path;
    std::error_code error;
    for (int hops = 0; hops < 40 && fs::is_symlink(fs::symlink_status(target, error)); ++hops) {
        fs::path next = fs::read_symlink(target, error);
        if (error) break;
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return target;
}

namespace {

void syncFolder(const fs::path& folder) {
    const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

}  // namespace

PendingFile::PendingFile(fs::path target) : target_(std::move(target)) {}

PendingFile::~PendingFile() {
    if (fd_ >= 0) ::close(fd_);
    if (!committed_ && !temp_.empty()) ::unlink(temp_.c_str());
}

bool PendingFile::create() {
    struct stat old {};
    const bool replacing = ::stat(target_.c_str(), &old) == 0;
    if (replacing && !S_ISREG(old.st_mode)) {
        fail(S_ISDIR(old.st_mode) ? EISDIR : kNotRegularFile);
        return false;
    }
    const fs::path folder = target_.parent_path();
    temp_ = ((folder.empty() ? fs::path(".") : folder) / ".tessaly-save-XXXXXX").string();
    // mkstemp creates the file with O_EXCL under a random name: no link is followed.
    fd_ = ::mkstemp(temp_.data());
    if (fd_ < 0) {
        fail(errno);
        temp_.clear();
        return false;
    }
    ::fcntl(fd_, F_SETFD, FD_CLOEXEC);
    // mkstemp makes the file private; the saved file gets the old file's
    // permissions, or those a new file gets under the user's umask.
    mode_t mode = old.st_mode & 07777;
    if (!replacing) {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    if (::fchmod(fd_, mode) != 0) fail(errno);
    return error_ == 0;
}

bool PendingFile::write(const void* data, std::size_t size) {
    if (error_ == 0) fail(writeAll(fd_, data, size));
    return error_ == 0;
}

void PendingFile::fail(int error) {
    if (error_ == 0) error_ = error;
}

bool PendingFile::commit(long long leastSize) {
    if (fd_ < 0) {
        fail(EBADF);
        return false;
    }
    struct stat written {};
    if (error_ == 0 && ::fstat(fd_, &written) != 0) fail(errno);
    // A writer that could not tell a short write shows it here.
    if (error_ == 0 && written.st_size < leastSize) fail(ENOSPC);
    // The data must be on disk before the name points at it.
    if (error_ == 0 && ::fsync(fd_) != 0) fail(errno);
    if (::close(fd_) != 0) fail(errno);
    fd_ = -1;
    if (error_ == 0 && std::rename(temp_.c_str(), target_.c_str()) != 0) fail(errno);
    if (error_ != 0) return false;
    committed_ = true;
    syncFolder(target_.parent_path());
    return true;
}

}  // namespace tessaly
