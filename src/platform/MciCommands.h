#pragma once
#include <string>

namespace tessaly {

// The command-string interface of the audio recorder and player: one
// command, one reply text.
class MciCommands {
public:
    virtual ~MciCommands() = default;
    virtual std::string send(const std::string& command) = 0;
};

// Answers every command with an empty reply, for platforms without a recorder.
MciCommands& noMciCommands();

}  // namespace tessaly
