#pragma once
#include <cstddef>
#include <optional>
#include <string>

#include "runtime/TextFiles.h"

namespace tessaly {

// The most of a score file that is read. The score box holds at most 32767
// characters, but the editor's import takes longer texts of unknown tokens.
inline constexpr std::size_t kLongestScoreFile = kLongestTextFile;

// The lines of a score file joined with nothing between them, so a score can
// be laid out over many lines. nullopt when the file cannot be read, with the
// cause in `error` (kFileTooLong past kLongestScoreFile).
std::optional<std::string> readScoreFile(const std::string& path, int* error = nullptr);

// Writes the text and one CR LF. The old file is replaced only once the new
// one is complete: a failed save leaves what was there. False on failure.
bool writeScoreFile(const std::string& path, const std::string& text);

// The name a score is saved under: a four-character extension (".txt") is
// cut off, then "(乐谱).txt" is added.
std::string scoreSaveName(const std::string& chosen);

}  // namespace tessaly
