#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

// Text files as the program keeps them: UTF-8 with CR LF line ends. Files
// from the older narrow code page (GB18030) are still read.

// True when the bytes are well-formed UTF-8 (no overlong forms, no
// surrogates, nothing past U+10FFFF).
bool isValidUtf8(std::string_view bytes);

// The bytes as UTF-8 without a byte order mark: as they are when valid, else
// decoded from GB18030, where a byte that is no character either becomes U+FFFD.
std::string decodeText(std::string_view bytes);

// The most any text file of the program holds; each format passes its own
// smaller limit where it has one.
inline constexpr std::size_t kLongestTextFile = 16u << 20;

// The bytes of a regular file. A directory, a FIFO, a device, a file longer
// than `limit` or one that cannot be opened gives nothing, with the cause in
// `error` (see FileAccess.h), and nothing blocks on the way.
std::optional<std::string> readFileBytes(const std::string& path, std::size_t limit = kLongestTextFile,
                                         int* error = nullptr);

// The whole file as UTF-8 text; nothing when it cannot be read.
std::optional<std::string> readTextFile(const std::string& path, std::size_t limit = kLongestTextFile,
                                        int* error = nullptr);

// Lines ended by CR LF (a bare LF is accepted too); a last line without an
// end counts, an empty rest after the last end does not.
std::vector<std::string> splitLines(std::string_view text);

// Replaces the file's content with the bytes, so that a failed write leaves
// the old file as it was: a temporary file in the same folder is written,
// synced and renamed over the target, and the folder is synced. A symbolic
// link is written through to its target and stays a link; the old file's
// permissions are kept (a new file gets the usual ones). False on failure,
// with the cause in `error`.
bool replaceFile(const std::string& path, std::string_view bytes, int* error = nullptr);

// The lines, each followed by CR LF.
std::string joinLines(const std::vector<std::string>& lines);

}  // namespace tessaly
