#include "shell/AppFolder.h"

#include <cstdlib>
#include <filesystem>

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

void seedAppFolder(const std::string& appDir, const std::string& shippedData) {
    fs::create_directories(appDir);
    for (const char* sub : {"演奏记录", "音效"}) {
        fs::path target = fs::path(appDir) / sub;
        if (fs::exists(target)) continue;
        fs::create_directories(target);
        std::error_code error;
        fs::path source = fs::path(shippedData) / sub;
        if (shippedData.empty() || !fs::is_directory(source, error)) continue;
        for (const auto& entry : fs::directory_iterator(source, error))
            if (entry.is_regular_file()) fs::copy_file(entry.path(), target / entry.path().filename(), error);
    }
}

}  // namespace tessaly
