#include "shell/FatalEndSaves.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "runtime/FileAccess.h"

namespace tessaly {

namespace fs = std::filesystem;

std::vector<FatalEndSaves::Saved> FatalEndSaves::runAll() noexcept {
    std::vector<Saved> saved;
    if (ran_) return saved;
    ran_ = true;
    for (const Action& action : actions_) {
        try {
            if (std::optional<Saved> one = action()) saved.push_back(std::move(*one));
        } catch (...) {
            // A save that fails must not stop the others, nor the ending.
        }
    }
    return saved;
}

std::vector<std::string> recoveryFolders(const std::string& appDir, const char* xdgStateHome, const char* home) {
    std::vector<std::string> folders{appDir + "演奏记录/", appDir};
    if (xdgStateHome && *xdgStateHome) folders.push_back(std::string(xdgStateHome) + "/tessaly/");
    else if (home && *home) folders.push_back(std::string(home) + "/");
    return folders;
}

std::string freeRecoveryPath(const std::string& folder, const std::string& name, const std::string& extension) {
    std::error_code error;
    for (int n = 1;; ++n) {
        std::string path = folder + name + (n == 1 ? "" : "(" + std::to_string(n) + ")") + extension;
        if (!fs::exists(fs::symlink_status(path, error))) return path;
    }
}

namespace {

// Creates the file under a free name and writes it whole; the cause otherwise.
// O_EXCL: another recovery, or anything planted, is never written through.
int writeNewFile(const std::string& folder, const std::string& name, const std::string& extension,
                 std::string_view bytes, std::string& path) {
    std::error_code created;
    fs::create_directories(folder, created);
    for (int attempt = 0; attempt < 100; ++attempt) {
        path = freeRecoveryPath(folder, name, extension);
        const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644);
        if (fd < 0 && errno == EEXIST) continue;
        if (fd < 0) return errno;
        int error = writeAll(fd, bytes.data(), bytes.size());
        if (error == 0 && ::fsync(fd) != 0) error = errno;
        if (::close(fd) != 0 && error == 0) error = errno;
        // A short file is no recovery: it goes, and the next folder is tried.
        if (error != 0) ::unlink(path.c_str());
        return error;
    }
    return EEXIST;
}

}  // namespace

FatalEndSaves::Saved keepRecovered(const std::vector<std::string>& folders, const std::string& what,
                                   const std::string& name, const std::string& extension, std::string_view bytes) {
    FatalEndSaves::Saved saved{what, {}, 0};
    for (const std::string& folder : folders) {
        std::string path;
        saved.error = writeNewFile(folder, name, extension, bytes, path);
        if (saved.error == 0) {
            saved.path = path;
            return saved;
        }
    }
    return saved;
}

std::string savedWorkText(const std::vector<FatalEndSaves::Saved>& saved, const std::string& base) {
    std::string text;
    for (const FatalEndSaves::Saved& one : saved) {
        std::string path = one.path;
        if (!base.empty() && path.starts_with(base)) path.erase(0, base.size());
        if (!text.empty()) text += "\n";
        text += path.empty() ? one.what + "无法保存（" + fileErrorText(one.error) + "）"
                             : one.what + "已保存为：" + path;
    }
    return text;
}

}  // namespace tessaly
