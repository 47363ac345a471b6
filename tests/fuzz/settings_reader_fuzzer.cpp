// A settings file of arbitrary bytes, read as at every activation of the main
// window. Either it is taken whole, or the error path keeps the bytes as
// tessaly.ini.bad and writes the defaults with its message; no failure
// escapes the reading.
#include <cstdint>
#include <fstream>
#include <string>

#include "FuzzProgram.h"
#include "runtime/TextFiles.h"
#include "shell/SettingsFile.h"

using namespace tessaly;
using tessaly::fuzz::fail;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static fuzz::Program program("tessaly-settings-fuzz");
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::string ini = (program.dir / kSettingsFileName).string();
    const std::string bad = (program.dir / kBrokenSettingsFileName).string();
    std::filesystem::remove(bad);
    std::ofstream(ini, std::ios::binary | std::ios::trunc) << bytes;
    program.log.take();
    bool read = false;
    try {
        read = program.app->settings.readAtActivation();
    } catch (...) {
        fail();
    }
    const auto events = program.log.take();
    if (read) {
        if (!events.empty()) fail();
    } else {
        if (events.size() != 1 || events[0] != "box 提示|读取设置文件出错，软件需重新启动!") fail();
        if (readFileBytes(bad) != bytes) fail();
        if (readFileBytes(ini) != defaultSettingsText()) fail();
    }
    return 0;
}
