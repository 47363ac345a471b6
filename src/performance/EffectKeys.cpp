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

bool EffectKeys::playEffectFile(const std::string& name) {
    std::string path = state_.AppDir + "音效/" + name;
    std::error_code error;
    // A name may end in a blank that belongs to it: the file is looked up as named.
    if (!std::filesystem::is_regular_file(std::filesystem::path(path), error)) return false;
    platform_.wave.playSound(path, 3);
    platform_.wave.playSound(path, 1);
    return true;
}

void EffectKeys::PlayEffectKey() {
    const std::string& name = state_.EffectFile[effectSlot(state_.LastKeyCode)];
    playEffectFile(name);
    form_.XSWB.setCaption(name + "_音效");
}

void EffectKeys::stopEffect() { platform_.wave.playSound("0", 0); }

}  // namespace tessaly
