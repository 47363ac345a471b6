#include "runtime/TextFiles.h"

#include <fcntl.h>
#include <iconv.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace tessaly {

bool isValidUtf8(std::string_view bytes) {
    std::size_t i = 0;
    while (i < bytes.size()) {
        auto c = static_cast<unsigned char>(bytes[i]);
        std::size_t extra;
        unsigned long code;
        if (c < 0x80) { ++i; continue; }
        if ((c & 0xE0) == 0xC0) { extra = 1; code = c & 0x1F; }
        else if ((c & 0xF0) == 0xE0) { extra = 2; code = c & 0x0F; }
        else if ((c & 0xF8) == 0xF0) { extra = 3; code = c & 0x07; }
        else return false;
        if (i + extra >= bytes.size()) return false;
        for (std::size_t k = 1; k <= extra; ++k) {
            auto next = static_cast<unsigned char>(bytes[i + k]);
            if ((next & 0xC0) != 0x80) return false;
            code = (code << 6) | (next & 0x3F);
        }
        // Overlong forms, surrogates and values past U+10FFFF are not UTF-8;
        // GB18030 text often looks like them.
        static const unsigned long minimum[] = {0, 0x80, 0x800, 0x10000};
        if (code < minimum[extra] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return false;
        i += extra + 1;
    }
    return true;
}

std::optional<std::string> decodeText(std::string_view bytes) {
    if (isValidUtf8(bytes)) return std::string(bytes);
    iconv_t cd = iconv_open("UTF-8", "GB18030");
    if (cd == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
    std::string input(bytes);
    std::string out(input.size() * 2 + 16, '\0');
    char* in = input.data();
    std::size_t inLeft = input.size();
    char* dst = out.data();
    std::size_t outLeft = out.size();
    std::size_t result = iconv(cd, &in, &inLeft, &dst, &outLeft);
    iconv_close(cd);
    if (result == static_cast<std::size_t>(-1)) return std::nullopt;
    out.resize(out.size() - outLeft);
    return out;
}

std::optional<std::string> readTextFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (file.bad()) return std::nullopt;
    return decodeText(bytes);
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
    std::string temp = path + ".new";
    int fd = open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) return false;
    const char* data = bytes.data();
    std::size_t left = bytes.size();
    bool ok = true;
    while (left > 0) {
        ssize_t written = write(fd, data, left);
        if (written < 0) {
            if (errno == EINTR) continue;
            ok = false;
            break;
        }
        data += written;
        left -= static_cast<std::size_t>(written);
    }
    // The data must be on disk before the name points at it.
    if (ok && fsync(fd) != 0) ok = false;
    if (close(fd) != 0) ok = false;
    if (ok && std::rename(temp.c_str(), path.c_str()) != 0) ok = false;
    if (!ok) unlink(temp.c_str());
    return ok;
}

}  // namespace tessaly
