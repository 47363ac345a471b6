#pragma once
#include <string>

namespace tessaly {

// Return codes of a recorder command. The recorder's logic reads only the
// reply text; the codes tell tests and the one caller that must know (a save
// that could not be written) what went wrong.
enum MciError : int {
    kMciOk = 0,
    kMciUnknownCommand = 1,  // a verb or keyword the device does not know
    kMciBadParameter = 2,    // a value out of range or a word missing
    kMciNotOpen = 3,         // no device under that alias
    kMciAliasInUse = 4,      // open while the alias is taken
    kMciCannotOpenFile = 5,  // missing, unreadable, or not of the type asked
    kMciWrongDevice = 6,     // the command does not suit the open device or its state
    kMciCannotSave = 7,      // the file could not be written; the take is kept
};

struct MciResult {
    int error = kMciOk;
    std::string reply;
};

// The command-string interface of the audio recorder and player: one
// command, one result.
class MciCommands {
public:
    virtual ~MciCommands() = default;
    virtual MciResult execute(const std::string& command) = 0;
    // The reply text alone, which is all the recorder looks at.
    std::string send(const std::string& command) { return execute(command).reply; }
};

// Answers every command with an empty reply, for platforms without a recorder.
MciCommands& noMciCommands();

}  // namespace tessaly
