#include "export/RenderProgram.h"

#include <cctype>
#include <filesystem>

#include "export/CapturedPlay.h"
#include "runtime/FileAccess.h"
#include "shell/AppFolder.h"
#include "shell/Instrument.h"

namespace tessaly {

namespace fs = std::filesystem;

namespace {

// The splash hands over after a few seconds; a start that takes a minute is stuck.
constexpr int kLongestStartMs = 60000;

HeadlessProgram::Options renderOptions(RenderDialogs& dialogs, const RenderFolders& folders) {
    HeadlessProgram::Options options;
    options.name = "tessaly-render";
    options.started = false;
    options.shippedData = folders.shippedData;
    options.dialogs = &dialogs;
    return options;
}

}  // namespace

// The headless program's folder holds an empty "音效" folder: no sound effect
// plays in an export, and the seeding copies none into it.
RenderProgram::RenderProgram(const RenderFolders& folders) : headless_(renderOptions(dialogs, folders)) {
    borrowUserFiles(folders.userFolder);
    start(folders.shippedData);
}

void RenderProgram::borrowUserFiles(const std::string& userFolder) {
    std::error_code error;
    if (userFolder.empty() || !fs::is_directory(userFolder, error)) return;
    const fs::path from(userFolder), to(headless_.dir);
    for (const char* name : {"tessaly.ini", "HxJzMx.txt"})
        if (fs::is_regular_file(from / name, error)) fs::copy_file(from / name, to / name, error);
    // The rhythm files exactly as the user keeps them: a score's JP counts them.
    if (!fs::is_directory(from / "演奏记录", error)) return;
    fs::create_directories(to / "演奏记录", error);
    for (const fs::path& file : regularFilesIn(from / "演奏记录")) {
        std::string extension = file.extension().string();
        for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (extension == ".bin") fs::copy_file(file, to / "演奏记录" / file.filename(), error);
    }
}

void RenderProgram::start(const std::string& shippedData) {
    if (std::optional<std::string> problem = seedAppFolder(dataFolder(), shippedData)) throw ExportFailure(*problem);
    Instrument& app = instrument();
    app.start();
    for (int ms = 0; ms < kLongestStartMs && !app.activated() && !app.ended(); ++ms) loop.advance(1);
    if (!app.activated()) {
        std::string told;
        for (const std::string& line : log.take())
            if (line.rfind("box ", 0) == 0) told = line.substr(line.find('|') + 1);
        throw ExportFailure("程序没有启动" + (told.empty() ? std::string() : "：" + told));
    }
}

std::string RenderProgram::copyIntoScores(const std::string& path) {
    const fs::path target = headless_.dir / "演奏记录" / fs::path(path).filename();
    std::error_code error;
    fs::copy_file(path, target, fs::copy_options::overwrite_existing, error);
    if (error) throw ExportFailure("无法读取文件：" + path);
    return target.string();
}

}  // namespace tessaly
