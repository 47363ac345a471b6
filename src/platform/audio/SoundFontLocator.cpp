#include "platform/audio/SoundFontLocator.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace tessaly::audio {

namespace fs = std::filesystem;

namespace {

bool hasSf2Extension(const fs::path& path) {
    std::string ext = path.extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ext == ".sf2";
}

std::string firstSf2In(const fs::path& folder) {
    std::error_code ec;
    std::vector<fs::path> found;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        if (it->is_regular_file(ec) && hasSf2Extension(it->path())) found.push_back(it->path());
    }
    if (found.empty()) return {};
    return std::min_element(found.begin(), found.end())->string();
}

}  // namespace

std::string locateSoundFont(const SoundFontChoice& choice, const std::vector<std::string>& fallbacks) {
    if (!choice.overridePath.empty()) return choice.overridePath;
    if (!choice.appDir.empty()) {
        std::string own = firstSf2In(fs::path(choice.appDir) / "音源");
        if (!own.empty()) return own;
    }
    std::error_code ec;
    for (const std::string& path : fallbacks) {
        if (fs::is_regular_file(path, ec)) return path;
    }
    return {};
}

}  // namespace tessaly::audio
