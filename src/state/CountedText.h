#pragma once
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace tessaly {

// A text that counts its changes, so that a reader holding something built
// from it (an index by character) knows it is still current without
// comparing the whole text. Every assignment counts, equal or not.
class CountedText {
public:
    CountedText() = default;
    CountedText& operator=(std::string text) {
        text_ = std::move(text);
        ++changes_;
        return *this;
    }
    void clear() { *this = std::string(); }

    const std::string& str() const { return text_; }
    operator const std::string&() const { return text_; }
    bool empty() const { return text_.empty(); }
    uint64_t changes() const { return changes_; }

    friend bool operator==(const CountedText& a, std::string_view b) { return a.text_ == b; }
    friend std::ostream& operator<<(std::ostream& out, const CountedText& t) { return out << t.text_; }

private:
    std::string text_;
    uint64_t changes_ = 0;
};

}  // namespace tessaly
