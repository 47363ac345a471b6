#include "chords/PatternFile.h"

#include <filesystem>
#include <optional>

#include "chords/ChordResources.h"
#include "chords/ChordState.h"
#include "runtime/FatalFailure.h"
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
    try {
        for (std::string& line : lines) chords.PatternLines[++count] = std::move(line);
    } catch (const FatalFailure& failure) {
        // The table's bound means nothing to the user: the message names the file.
        throw FatalFailure(failure.kind(), "超过 1000 行：" + path_);
    }
    return count;
}

bool PatternFile::append(const std::vector<std::string>& lines, int* error) const {
    std::optional<std::string> bytes = readFileBytes(path_, kLongestTextFile, error);
    if (!bytes) return false;
    for (const std::string& line : lines) *bytes += line + "\r\n";
    return replaceFile(path_, *bytes, error);
}

}  // namespace tessaly
