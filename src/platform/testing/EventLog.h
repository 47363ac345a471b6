#pragma once
#include <string>
#include <utility>
#include <vector>

namespace tessaly {

// The platform calls other than MIDI that a test implementation saw, one
// line each ("box TITLE|TEXT", "wave PATH|FLAGS", ...), taken in order.
class EventLog {
public:
    void add(std::string line) { lines_.push_back(std::move(line)); }
    std::vector<std::string> take() { return std::exchange(lines_, {}); }
    const std::vector<std::string>& lines() const { return lines_; }

private:
    std::vector<std::string> lines_;
};

}  // namespace tessaly
