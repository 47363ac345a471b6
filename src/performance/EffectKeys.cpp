#include "performance/EffectKeys.h"

#include <filesystem>

#include "forms/MainWindow.h"
#include "platform/Platform.h"
#include "state/SharedState.h"

namespace tessaly {

int effectSlot(int keyCode) {
    switch (keyCode) {
    case 45: return 0;
    case 36: return 1;
    case 33: return 2;
    case 46: return 3;
    case 35: return 4;
    case 34: return 5;
    }
    return 0;
}

std::optional<std::string> findEffectFile(const std::string& folder, const std::string& name) {
    std::error_code error;
    auto exists = [&](const std::string& path) { return std::filesystem::is_regular_file(path, error); };
    // The file as named first, a trailing blank included.
    if (exists(folder + name)) return folder + name;
    // Names written where the file system drops trailing blanks and dots
    // ("钟声.wav ") find the file that was stored without them.
    std::string trimmed = name;
    while (!trimmed.empty() && (trimmed.back() == ' ' || trimmed.back() == '.')) trimmed.pop_back();
    if (!trimmed.empty() && trimmed != name && exists(folder + trimmed)) return folder + trimmed;
    return std::nullopt;
}

bool EffectKeys::playEffectFile(const std::string& name) {
    std::optional<std::string> path = findEffectFile(state_.AppDir + "音效/", name);
    if (!path) return false;
    platform_.wave.playSound(*path, 3);
    platform_.wave.playSound(*path, 1);
    return true;
}

void EffectKeys::prepareEffects() {
    for (int slot = 0; slot < 6; ++slot)
        if (std::optional<std::string> path = findEffectFile(state_.AppDir + "音效/", state_.EffectFile[slot]))
            platform_.wave.prepareSound(*path);
}

void EffectKeys::PlayEffectKey() {
    const std::string& name = state_.EffectFile[effectSlot(state_.LastKeyCode)];
    playEffectFile(name);
    form_.XSWB.setCaption(name + "_音效");
}

void EffectKeys::stopEffect() { platform_.wave.playSound("0", 0); }

}  // namespace tessaly
