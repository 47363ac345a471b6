#include "score/ScoreFiles.h"

#include <iconv.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "runtime/Text.h"

namespace tessaly {

namespace {

bool isValidUtf8(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size()) {
        auto c = static_cast<unsigned char>(s[i]);
        std::size_t extra;
        unsigned char low = 0x80, high = 0xBF;  // allowed range of the second byte
        if (c < 0x80) extra = 0;
        else if (c >= 0xC2 && c <= 0xDF) extra = 1;
        else if (c >= 0xE0 && c <= 0xEF) {
            extra = 2;
            if (c == 0xE0) low = 0xA0;
            if (c == 0xED) high = 0x9F;  // no surrogates
        } else if (c >= 0xF0 && c <= 0xF4) {
            extra = 3;
            if (c == 0xF0) low = 0x90;
            if (c == 0xF4) high = 0x8F;
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

std::string fromGb18030(std::string_view bytes) {
    iconv_t cd = iconv_open("UTF-8", "GB18030");
    if (cd == reinterpret_cast<iconv_t>(-1)) return std::string(bytes);
    std::string out;
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
            // A byte that is no character there either: keep a replacement and go on.
            out += "\xEF\xBF\xBD";
            ++inPtr;
            --inLeft;
        }
    }
    iconv_close(cd);
    return out;
}

}  // namespace

std::string decodeFileText(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    if (isValidUtf8(bytes)) return std::string(bytes);
    return fromGb18030(bytes);
}

std::optional<std::string> readScoreFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (file.bad()) return std::nullopt;
    std::string text = decodeFileText(bytes);
    std::string joined;
    joined.reserve(text.size());
    for (char c : text)
        if (c != '\r' && c != '\n') joined += c;
    return joined;
}

bool writeScoreFile(const std::string& path, const std::string& text) {
    namespace fs = std::filesystem;
    // The temporary file lies in the same folder, so the rename cannot cross file systems.
    std::string pattern = (fs::path(path).parent_path() / ".tessaly-save-XXXXXX").string();
    int fd = mkstemp(pattern.data());
    if (fd < 0) return false;
    std::string content = text + "\r\n";
    bool ok = true;
    for (std::size_t done = 0; ok && done < content.size();) {
        ssize_t n = ::write(fd, content.data() + done, content.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) ok = false;
        else done += static_cast<std::size_t>(n);
    }
    ok = ::fsync(fd) == 0 && ok;
    ok = ::close(fd) == 0 && ok;
    if (ok) ok = std::rename(pattern.c_str(), path.c_str()) == 0;
    if (!ok) std::remove(pattern.c_str());
    return ok;
}

std::string scoreSaveName(const std::string& chosen) {
    std::string name = chosen;
    std::size_t length = charLength(name);
    if (length >= 4 && charSubstr(name, length - 4, 1) == ".") name = charSubstr(name, 0, length - 4);
    return name + "(乐谱).txt";
}


}  // namespace tessaly
