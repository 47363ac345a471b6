#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

// Text files as the program keeps them: UTF-8 with CR LF line ends. Files
// from the older narrow code page (GB18030) are still read.

// True when the bytes are well-formed UTF-8.
bool isValidUtf8(std::string_view bytes);

// The bytes as UTF-8: as they are when valid, else decoded from GB18030.
// Empty when neither reading works.
std::optional<std::string> decodeText(std::string_view bytes);

// The whole file as UTF-8 text; empty when it cannot be read or decoded.
std::optional<std::string> readTextFile(const std::string& path);

// Lines ended by CR LF (a bare LF is accepted too); a last line without an
// end counts, an empty rest after the last end does not.
std::vector<std::string> splitLines(std::string_view text);

// Writes the bytes to a temporary file beside the target and renames it over
// the target, so a failed write leaves the old file as it was. False on failure.
bool replaceFile(const std::string& path, std::string_view bytes);

// The lines, each followed by CR LF.
std::string joinLines(const std::vector<std::string>& lines);

}  // namespace tessaly
