#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace tessaly {

enum class MciVerb { Open, Close, Set, Record, Stop, Save, Seek, Play, Status };

// The settings of a new recording and the few others the device accepts.
enum class MciSetting { AssembleRecord, FormatTagPcm, AlgorithmPcm, BitsPerSample, SamplesPerSec, Channels, TimeFormatMs };

// One command string taken apart. Keywords are matched without regard to
// case; names and paths keep theirs.
struct MciCommand {
    MciVerb verb = MciVerb::Status;
    std::string alias;
    // open: a new recording, or a file element with a device type
    bool newRecording = false;
    std::string element;
    std::string type;
    // set
    MciSetting setting = MciSetting::AssembleRecord;
    long value = 0;
    // save: the path, blanks and all
    std::string path;
    // seek ("to start" is 0) and play ("from N"): milliseconds
    std::optional<long> positionMs;
    // status
    std::string item;
};

struct ParsedMci {
    int error = 0;  // an MciError; the command is meaningful only when 0
    MciCommand command;
};

ParsedMci parseMciCommand(std::string_view text);

// Equal when the ASCII letters differ at most in case.
bool sameWord(std::string_view a, std::string_view b);

}  // namespace tessaly
