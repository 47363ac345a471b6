#include "recorder/RecorderCommands.h"

#include <optional>

#include "platform/Dialogs.h"
#include "platform/MciCommands.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"

namespace tessaly {

const char* const kMainPlayFilter = "音频文件(wav;mp3)|*.wav;*.mp3";
const char* const kEditorPlayFilter = "演奏录音(wav)|*.wav|音乐(mp3)|*.mp3";
const char* const kTakeFilter = "演奏录音(wav)|*.wav";

void RecorderCommands::record(const std::string& bits, const std::string& rate) {
    mci_.send("CLOSE NN");
    mci_.send("OPEN NEW TYPE WaveAudio ALIAS NN");
    mci_.send("Set NN assemble record off");
    mci_.send("Set NN file format tag pcm");
    mci_.send("Set NN algorithm pcm");
    mci_.send("Set NN bitspersample " + bits);
    mci_.send("Set NN samplespersec " + rate);
    mci_.send("Set NN channels 2");
    mci_.send("RECORD NN");
}

std::string RecorderCommands::play(const std::string& filter, const std::string& startFolder) {
    mci_.send("CLOSE NN");
    std::optional<std::string> name = dialogs_.openFile(filter, startFolder);
    if (!name) throw DialogCancelled();
    if (name->empty()) return {};
    // Without quotes: a name with a blank in it does not open.
    mci_.send("OPEN " + *name + " TYPE " + deviceTypeOf(*name) + " ALIAS NN");
    mci_.send("seek NN to start");
    mci_.send("PLAY NN FROM 0");
    mci_.send("CLOSE ANIMATION");
    return *name;
}

std::string RecorderCommands::askSaveName(const std::string& startFolder) {
    std::optional<std::string> name = dialogs_.saveFile(kTakeFilter, startFolder);
    if (!name) throw DialogCancelled();
    return *name;
}

void RecorderCommands::save(const std::string& path) {
    mci_.send("stop NN");
    if (mci_.execute("save NN " + path).error == kMciCannotSave)
        throw FatalFailure(FailureKind::InvalidCall, "无法保存录音：" + path);
    mci_.send("close NN");
}

void RecorderCommands::stop() { mci_.send("STOP NN"); }

void RecorderCommands::closeAfterEnd() {
    mci_.send("STOP NN");
    mci_.send("Close NN");
}

std::string RecorderCommands::mode() { return charSubstr(mci_.send("status NN mode"), 0, 63); }

std::string deviceTypeOf(const std::string& name) {
    const std::size_t length = charLength(name);
    const std::string ending = charSubstr(name, length < 3 ? 0 : length - 3);
    if (ending == "wav") return "WaveAudio";
    if (ending == "mp3") return "MPEGVideo";
    return "";
}

std::string mainWindowTakeName(const std::string& name) {
    const std::size_t length = charLength(name);
    if (length < 4) throw FatalFailure(FailureKind::InvalidCall, "Mid");
    if (charSubstr(name, length - 4, 1) == ".") return charSubstr(name, 0, length - 4) + ".wav";
    return name + ".wav";
}

void underTrap(const std::function<void()>& event) {
    try {
        event();
    } catch (const std::exception&) {
        // Ends the event where it stands: nothing is shown.
    }
}

}  // namespace tessaly
