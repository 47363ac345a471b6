#pragma once
#include <string>

namespace tessaly {

// Message boxes shown to the user.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    // A box with an information icon that closes by itself after timeoutMs.
    virtual void timedBox(const std::string& title, const std::string& text, int timeoutMs) = 0;
    // A plain box with no title of the program's own; waits for the user.
    virtual void plainBox(const std::string& text) = 0;
};

}  // namespace tessaly
