#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace tessaly {

// Text as the program keeps it (UTF-8) from the bytes of a file: UTF-8 as it
// stands (a byte order mark dropped), anything else read as GB18030, the code
// page scores were written in elsewhere.
std::string decodeFileText(std::string_view bytes);

// The lines of a score file joined with nothing between them, so a score can
// be laid out over many lines. nullopt when the file cannot be read.
std::optional<std::string> readScoreFile(const std::string& path);

// Writes the text and one CR LF. The old file is replaced only once the new
// one is complete: a failed save leaves what was there. False on failure.
bool writeScoreFile(const std::string& path, const std::string& text);

// The name a score is saved under: a four-character extension (".txt") is
// cut off, then "(乐谱).txt" is added.
std::string scoreSaveName(const std::string& chosen);


}  // namespace tessaly
