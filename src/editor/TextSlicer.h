#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

// Pieces of a text by character position, as the song's texts are read: Mid
// with a 1-based start. Plain ASCII is cut directly; other text is indexed
// once, so that reading a long line slot by slot stays linear.
class TextSlicer {
public:
    explicit TextSlicer(std::string_view text);

    std::size_t length() const { return starts_.empty() ? text_.size() : starts_.size() - 1; }
    // Up to `count` characters from character `start` (1-based); "" past the end.
    std::string mid(long start, long count) const;

private:
    std::string_view text_;
    std::vector<std::size_t> starts_;  // byte offset of every character and of the end; empty for ASCII
};

}  // namespace tessaly
