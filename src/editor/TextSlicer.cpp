#include "editor/TextSlicer.h"

#include <algorithm>

namespace tessaly {

TextSlicer::TextSlicer(std::string_view text) : text_(text) {
    const bool ascii = std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (ascii) return;
    for (std::size_t i = 0; i < text.size(); ++i)
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) starts_.push_back(i);
    starts_.push_back(text.size());
}

std::string TextSlicer::mid(long start, long count) const {
    if (start < 1 || count <= 0) return {};
    const std::size_t from = static_cast<std::size_t>(start - 1);
    if (from >= length()) return {};
    const std::size_t to = std::min(length(), from + static_cast<std::size_t>(count));
    if (starts_.empty()) return std::string(text_.substr(from, to - from));
    return std::string(text_.substr(starts_[from], starts_[to] - starts_[from]));
}

}  // namespace tessaly
