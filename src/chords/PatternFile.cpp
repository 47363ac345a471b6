#include "chords/PatternFile.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "chords/ChordResources.h"
#include "chords/ChordState.h"
#include "runtime/TextFiles.h"

namespace tessaly {

bool PatternFile::exists() const {
    std::error_code error;
    return std::filesystem::exists(path_, error);
}

bool PatternFile::create() const { return replaceFile(path_, std::string(kPatternFileText) + "\r\n"); }

long PatternFile::readInto(ChordState& chords) const {
    std::vector<std::string> lines = splitLines(readTextFile(path_).value_or(std::string()));
    long count = 0;
    for (std::string& line : lines) chords.PatternLines[++count] = std::move(line);
    return count;
}

bool PatternFile::append(const std::vector<std::string>& lines) const {
    std::ifstream file(path_, std::ios::binary);
    if (!file) return false;
    std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (file.bad()) return false;
    for (const std::string& line : lines) bytes += line + "\r\n";
    return replaceFile(path_, bytes);
}

}  // namespace tessaly
