#include "shell/FatalEndSaves.h"

namespace tessaly {

std::vector<FatalEndSaves::Saved> FatalEndSaves::runAll() noexcept {
    std::vector<Saved> saved;
    if (ran_) return saved;
    ran_ = true;
    for (const Action& action : actions_) {
        try {
            if (std::optional<Saved> one = action()) saved.push_back(std::move(*one));
        } catch (...) {
            // A save that fails must not stop the others, nor the ending.
        }
    }
    return saved;
}

std::string savedWorkText(const std::vector<FatalEndSaves::Saved>& saved, const std::string& base) {
    std::string text;
    for (const FatalEndSaves::Saved& one : saved) {
        std::string path = one.path;
        if (!base.empty() && path.starts_with(base)) path.erase(0, base.size());
        if (!text.empty()) text += "\n";
        text += one.what + "已保存为：" + path;
    }
    return text;
}

}  // namespace tessaly
