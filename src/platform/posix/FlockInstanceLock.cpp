#include "platform/posix/FlockInstanceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace tessaly {

FlockInstanceLock::~FlockInstanceLock() {
    if (fd_ >= 0) close(fd_);
}

bool FlockInstanceLock::acquire(const std::string& folder) {
    if (fd_ >= 0) return true;
    std::filesystem::path path = std::filesystem::path(folder) / "tessaly.lock";
    std::error_code error;
    // A second instance finds both in place: opening an existing file for
    // reading changes nothing.
    if (!std::filesystem::exists(path, error)) std::filesystem::create_directories(folder, error);
    // O_NONBLOCK: a FIFO in the lock file's place must not hold the start.
    int fd = open(path.c_str(), O_RDONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0644);
    // Without a lock file nobody can hold the lock either: let the program run.
    if (fd < 0) return true;
    struct stat info {};
    if (fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        close(fd);
        return true;
    }
    if (flock(fd, LOCK_EX | LOCK_NB) != 0) {
        close(fd);
        return false;
    }
    fd_ = fd;
    return true;
}

}  // namespace tessaly
