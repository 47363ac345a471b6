#include "runtime/TextFiles.h"

#include "runtime/FileAccess.h"

#include <iconv.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tessaly {

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

}  // namespace

std::string decodeText(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    if (isValidUtf8(bytes)) return std::string(bytes);
    return fromGb18030(bytes);
}

std::optional<std::string> readFileBytes(const std::string& path, std::size_t limit, int* error) {
    int cause = 0;
    auto failed = [&](int why) -> std::optional<std::string> {
        if (error) *error = why;
        return std::nullopt;
    };
    const int fd = openRegularFile(path, cause);
    if (fd < 0) return failed(cause);
    struct stat info {};
    ::fstat(fd, &info);
    if (static_cast<unsigned long long>(info.st_size) > limit) {
        ::close(fd);
        return failed(kFileTooLong);
    }
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(info.st_size));
    char buffer[65536];
    for (;;) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            cause = errno;
            ::close(fd);
            return failed(cause);
        }
        if (got == 0) break;
        // The file may grow while it is read.
        if (bytes.size() + static_cast<std::size_t>(got) > limit) {
            ::close(fd);
            return failed(kFileTooLong);
        }
        bytes.append(buffer, static_cast<std::size_t>(got));
    }
    ::close(fd);
    return bytes;
}

std::optional<std::string> readTextFile(const std::string& path, std::size_t limit, int* error) {
    std::optional<std::string> bytes = readFileBytes(path, limit, error);
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

bool replaceFile(const std::string& path, std::string_view bytes, int* error) {
    PendingFile file(finalTarget(path));
    const bool ok = file.create() && file.write(bytes.data(), bytes.size()) &&
                    file.commit(static_cast<long long>(bytes.size()));
    if (!ok && error) *error = file.error();
    return ok;
}

}  // namespace tessaly
