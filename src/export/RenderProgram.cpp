#include "export/RenderProgram.h"

#include <unistd.h>

#include <cctype>
#include <filesystem>
#include <vector>

#include "export/CapturedPlay.h"
#include "shell/AppFolder.h"
#include "shell/Instrument.h"

namespace tessaly {

namespace fs = std::filesystem;

namespace {

std::string makeTempFolder() {
    std::string pattern = (fs::temp_directory_path() / "tessaly-render-XXXXXX").string();
    std::vector<char> buffer(pattern.begin(), pattern.end());
    buffer.push_back('\0');
    if (!mkdtemp(buffer.data())) throw ExportFailure("无法创建临时文件夹");
    return std::string(buffer.data());
}

// The splash hands over after a few seconds; a start that takes a minute is stuck.
constexpr int kLongestStartMs = 60000;

}  // namespace

RenderProgram::RenderProgram(const RenderFolders& folders) : dir_(makeTempFolder()) {
    try {
        platform.dialogs = &dialogs;
        // No sound effect plays in an export: an empty folder keeps the seeding from copying them.
        fs::create_directories(fs::path(dir_) / "音效");
        borrowUserFiles(folders.userFolder);
        if (std::optional<std::string> problem = seedAppFolder(dir_, folders.shippedData)) throw ExportFailure(*problem);
        instrument_ = std::make_unique<Instrument>(platform, dir_, folders.shippedData);
        start();
    } catch (...) {
        instrument_.reset();
        std::error_code error;
        fs::remove_all(dir_, error);
        throw;
    }
}

RenderProgram::~RenderProgram() {
    instrument_.reset();
    std::error_code error;
    fs::remove_all(dir_, error);
}

void RenderProgram::borrowUserFiles(const std::string& userFolder) {
    std::error_code error;
    if (userFolder.empty() || !fs::is_directory(userFolder, error)) return;
    const fs::path from(userFolder), to(dir_);
    for (const char* name : {"tessaly.ini", "HxJzMx.txt"})
        if (fs::is_regular_file(from / name, error)) fs::copy_file(from / name, to / name, error);
    // The rhythm files exactly as the user keeps them: a score's JP counts them.
    if (!fs::is_directory(from / "演奏记录", error)) return;
    fs::create_directories(to / "演奏记录", error);
    for (const auto& entry : fs::directory_iterator(from / "演奏记录", error)) {
        std::string extension = entry.path().extension().string();
        for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (entry.is_regular_file(error) && extension == ".bin")
            fs::copy_file(entry.path(), to / "演奏记录" / entry.path().filename(), error);
    }
}

void RenderProgram::start() {
    instrument_->start();
    for (int ms = 0; ms < kLongestStartMs && !instrument_->activated() && !instrument_->ended(); ++ms) loop.advance(1);
    if (!instrument_->activated()) {
        std::string told;
        for (const std::string& line : log.take())
            if (line.rfind("box ", 0) == 0) told = line.substr(line.find('|') + 1);
        throw ExportFailure("程序没有启动" + (told.empty() ? std::string() : "：" + told));
    }
}

std::string RenderProgram::copyIntoScores(const std::string& path) {
    const fs::path target = fs::path(dir_) / "演奏记录" / fs::path(path).filename();
    std::error_code error;
    fs::copy_file(path, target, fs::copy_options::overwrite_existing, error);
    if (error) throw ExportFailure("无法读取文件：" + path);
    return target.string();
}

}  // namespace tessaly
