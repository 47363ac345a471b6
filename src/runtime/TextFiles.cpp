#include "runtime/TextFiles.h"

#include <fcntl.h>
#include <iconv.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace tessaly {

namespace fs = std::filesystem;

bool isValidUtf8(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size()) {
        auto c = static_cast<unsigned char>(s[i]);
        std::size_t extra;
        unsigned char low = 0x80, high = 0xBF;  // the allowed range of the second byte
        if (c < 0x80) extra = 0;
        else if (c >= 0xC2 && c <= 0xDF) extra = 1;
        else if (c >= 0xE0 && c <= 0xEF) {
            extra = 2;
            if (c == 0xE0) low = 0xA0;   // no overlong forms
            if (c == 0xED) high = 0x9F;  // no surrogates
        } else if (c >= 0xF0 && c <= 0xF4) {
            extra = 3;
            if (c == 0xF0) low = 0x90;
            if (c == 0xF4) high = 0x8F;  // nothing past U+10FFFF
        } else return false;
        if (s.size() - i <= extra) return false;
        for (std::size_t k = 1; k <= extra; ++k) {
            auto b = static_cast<unsigned char>(s[i + k]);
            if (k == 1 ? (b < low || b > high) : (b & 0xC0) != 0x80) return false;
        }
        i += extra + 1;
    }
    return true;
}

namespace {

std::string fromGb18030(std::string_view bytes) {
    iconv_t cd = iconv_open("UTF-8", "GB18030");
    if (cd == reinterpret_cast<iconv_t>(-1)) return std::string(bytes);
    std::string out;
    out.reserve(bytes.size() * 3 / 2);
    std::string in(bytes);
    char* inPtr = in.data();
    std::size_t inLeft = in.size();
    char buffer[4096];
    while (inLeft > 0) {
        char* outPtr = buffer;
        std::size_t outLeft = sizeof buffer;
        std::size_t result = iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft);
        out.append(buffer, static_cast<std::size_t>(outPtr - buffer));
        if (result == static_cast<std::size_t>(-1) && errno != E2BIG) {
            // A byte that is no character there either, or a sequence cut short at the end.
            out += "\xEF\xBF\xBD";
            ++inPtr;
            --inLeft;
        }
    }
    iconv_close(cd);
    return out;
}

bool writeAll(int fd, std::string_view bytes) {
    const char* data = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0) {
        ssize_t written = ::write(fd, data, left);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        data += written;
        left -= static_cast<std::size_t>(written);
    }
    return true;
}

// The file a save must replace: the end of a chain of symbolic links, or the
// path itself when it is none. A link to a missing file names the file to create.
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

void syncFolder(const fs::path& folder) {
    int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

}  // namespace

std::string decodeText(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    if (isValidUtf8(bytes)) return std::string(bytes);
    return fromGb18030(bytes);
}

std::optional<std::string> readFileBytes(const std::string& path) {
    // O_NONBLOCK: opening a FIFO for reading would otherwise wait for a writer.
    int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return std::nullopt;
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(fd);
        return std::nullopt;
    }
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(info.st_size));
    char buffer[65536];
    for (;;) {
        ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            ::close(fd);
            return std::nullopt;
        }
        if (got == 0) break;
        bytes.append(buffer, static_cast<std::size_t>(got));
    }
    ::close(fd);
    return bytes;
}

std::optional<std::string> readTextFile(const std::string& path) {
    std::optional<std::string> bytes = readFileBytes(path);
    if (!bytes) return std::nullopt;
    return decodeText(*bytes);
}

std::vector<std::string> splitLines(std::string_view text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        std::string_view line = text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.emplace_back(line);
        if (end == std::string_view::npos) break;
        start = end + 1;
    }
    return lines;
}

std::string joinLines(const std::vector<std::string>& lines) {
    std::string out;
    for (const std::string& line : lines) out += line + "\r\n";
    return out;
}

bool replaceFile(const std::string& path, std::string_view bytes) {
    const fs::path target = finalTarget(path);
    struct stat old {};
    const bool replacing = ::stat(target.c_str(), &old) == 0;
    if (replacing && !S_ISREG(old.st_mode)) return false;

    std::string temp = (target.parent_path() / ".tessaly-save-XXXXXX").string();
    if (target.parent_path().empty()) temp = ".tessaly-save-XXXXXX";
    int fd = ::mkstemp(temp.data());
    if (fd < 0) return false;
    // mkstemp makes the file private; the saved file gets the old file's
    // permissions, or those a new file gets under the user's umask.
    mode_t mode = old.st_mode & 07777;
    if (!replacing) {
        mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    bool ok = ::fchmod(fd, mode) == 0 && writeAll(fd, bytes);
    // The data must be on disk before the name points at it.
    ok = ok && ::fsync(fd) == 0;
    ok = ::close(fd) == 0 && ok;
    ok = ok && std::rename(temp.c_str(), target.c_str()) == 0;
    if (!ok) {
        std::remove(temp.c_str());
        return false;
    }
    syncFolder(target.parent_path());
    return true;
}

}  // namespace tessaly
