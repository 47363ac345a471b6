#include "shell/AppFolder.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "runtime/FileAccess.h"
#include "runtime/TextFiles.h"

namespace tessaly {

namespace fs = std::filesystem;

namespace {

std::string withSeparator(std::string path) {
    if (!path.empty() && path.back() != '/') path += '/';
    return path;
}

}  // namespace

std::string appFolderFor(const char* portable, const char* xdgDataHome, const char* home) {
    if (portable && *portable) return withSeparator(portable);
    // The XDG rules ignore a data home that is not an absolute path.
    if (xdgDataHome && *xdgDataHome == '/') return withSeparator(std::string(xdgDataHome) + "/tessaly");
    std::string base = home && *home ? home : ".";
    return withSeparator(base + "/.local/share/tessaly");
}

std::string appFolderFromEnvironment() {
    return appFolderFor(std::getenv("TESSALY_APPDIR"), std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));
}

std::string shippedDataFolderFor(const char* named, const std::string& executable, const std::string& builtData) {
    if (named && *named) return named;
    std::error_code error;
    const fs::path installed = fs::path(executable).parent_path().parent_path() / "share" / "tessaly";
    if (!executable.empty() && fs::is_directory(installed, error)) return installed.string();
    return builtData;
}

std::string shippedDataFolder(const std::string& builtData) {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    return shippedDataFolderFor(std::getenv("TESSALY_SHIPPED_DATA"), error ? std::string() : executable.string(),
                                builtData);
}

namespace {

// The most a shipped file holds (the sound effects are the largest).
constexpr std::size_t kLongestShippedFile = 64u << 20;

// A shipped file that is missing, or shorter than shipped (a copy cut short
// by a full disk), is copied again, whole or not at all.
void reseedFolder(const fs::path& source, const fs::path& target) {
    for (const fs::path& shipped : regularFilesIn(source)) {
        const fs::path copy = target / shipped.filename();
        std::error_code error;
        const fs::file_status status = fs::symlink_status(copy, error);
        if (fs::exists(status) &&
            (!fs::is_regular_file(status) || fs::file_size(copy, error) >= fs::file_size(shipped, error)))
            continue;
        if (std::optional<std::string> bytes = readFileBytes(shipped.string(), kLongestShippedFile))
            replaceFile(copy.string(), *bytes);
    }
}

bool isLeftoverSave(const std::string& name) {
    return name.size() == std::string_view(".tessaly-save-XXXXXX").size() && name.starts_with(".tessaly-save-");
}

}  // namespace

void removeLeftoverSaves(const std::string& appDir) {
    for (const fs::path& folder : {fs::path(appDir), fs::path(appDir) / "演奏记录", fs::path(appDir) / "音效"}) {
        for (const fs::path& file : regularFilesIn(folder))
            if (isLeftoverSave(file.filename().string())) ::unlink(file.c_str());
    }
}

std::optional<std::string> seedAppFolder(const std::string& appDir, const std::string& shippedData) {
    auto unusable = [&appDir](const std::string& reason) {
        return "无法使用数据文件夹“" + appDir + "”：" + reason +
               "\n程序无法启动。请检查这个位置，或用环境变量 TESSALY_APPDIR 指定另一个文件夹。";
    };
    std::error_code error, created;
    fs::create_directories(appDir, created);
    if (!fs::is_directory(appDir, error)) {
        // Without its trailing separator, so that a file of that name is seen.
        if (fs::exists(fs::path(appDir).parent_path(), error)) return unusable("这里已有一个同名的文件，不是文件夹");
        return unusable("无法创建这个文件夹（" + created.message() + "）");
    }
    if (access(appDir.c_str(), W_OK | X_OK) != 0) return unusable("没有写入的权限");
    for (const char* sub : {"演奏记录", "音效"}) {
        fs::path target = fs::path(appDir) / sub;
        if (!fs::is_directory(target, error) && !fs::create_directories(target, error))
            return unusable("无法创建子文件夹“" + std::string(sub) + "”");
        if (!shippedData.empty()) reseedFolder(fs::path(shippedData) / sub, target);
    }
    return std::nullopt;
}

}  // namespace tessaly
