#include "score/ScoreFiles.h"

#include "runtime/Text.h"
#include "runtime/TextFiles.h"

namespace tessaly {

std::optional<std::string> readScoreFile(const std::string& path, int* error) {
    std::optional<std::string> text = readTextFile(path, kLongestScoreFile, error);
    if (!text) return std::nullopt;
    std::string joined;
    joined.reserve(text->size());
    for (char c : *text)
        if (c != '\r' && c != '\n') joined += c;
    return joined;
}

bool writeScoreFile(const std::string& path, const std::string& text) { return replaceFile(path, text + "\r\n"); }

std::string scoreSaveName(const std::string& chosen) {
    std::string name = chosen;
    std::size_t length = charLength(name);
    if (length >= 4 && charSubstr(name, length - 4, 1) == ".") name = charSubstr(name, 0, length - 4);
    return name + "(乐谱).txt";
}

}  // namespace tessaly
