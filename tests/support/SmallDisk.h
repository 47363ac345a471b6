#pragma once
// A real small file system for the tests of full and read-only disks: a
// tmpfs of its own, mounted when the tests run as root (they are skipped
// with the reason otherwise).
#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace tessaly::testing {

// The bytes a file holds now: what a failed save must have left as it was.
inline std::string contentOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream all;
    all << in.rdbuf();
    return all.str();
}

class SmallDisk {
public:
    explicit SmallDisk(std::size_t bytes = 256 * 1024) {
        std::string dir = (std::filesystem::temp_directory_path() / "tessaly-disk-XXXXXX").string();
        if (!::mkdtemp(dir.data())) {
            reason_ = "no temporary folder";
            return;
        }
        path_ = dir;
        const std::string options = "size=" + std::to_string(bytes) + ",mode=0777";
        if (::geteuid() != 0) reason_ = "a small file system needs root to be mounted";
        else if (::mount("tessaly-test", dir.c_str(), "tmpfs", 0, options.c_str()) != 0)
            reason_ = std::string("tmpfs cannot be mounted here: ") + std::strerror(errno);
        else mounted_ = true;
    }
    ~SmallDisk() {
        if (mounted_) ::umount2(path_.c_str(), MNT_DETACH);
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool mounted() const { return mounted_; }
    const std::string& reason() const { return reason_; }
    std::string file(const std::string& name) const { return (path_ / name).string(); }

    // Takes every free byte with a file of its own.
    void fill() const {
        const int fd = ::open(file(".filler").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
        static const char block[4096] = {};
        while (::write(fd, block, sizeof block) > 0) {
        }
        while (::write(fd, block, 1) > 0) {
        }
        ::close(fd);
    }
    // Frees the bytes fill() took.
    void unfill() const { ::unlink(file(".filler").c_str()); }
    // Nothing can be written any more, by anyone.
    bool makeReadOnly() const {
        return ::mount(nullptr, path_.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }
    // The names in the disk's root, the filler left out.
    std::size_t entries() const {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            count += entry.path().filename() != ".filler";
        return count;
    }

private:
    std::filesystem::path path_;
    std::string reason_;
    bool mounted_ = false;
};

#define TESSALY_NEEDS_SMALL_DISK(disk) \
    if (!(disk).mounted()) GTEST_SKIP() << (disk).reason()

}  // namespace tessaly::testing
