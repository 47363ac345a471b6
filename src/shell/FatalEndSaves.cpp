#include "shell/FatalEndSaves.h"

#include <filesystem>

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

std::string freeRecoveryPath(const std::string& folder, const std::string& name, const std::string& extension) {
    std::error_code error;
    for (int n = 1;; ++n) {
        std::string path = folder + name + (n == 1 ? "" : "(" + std::to_string(n) + ")") + extension;
        if (!std::filesystem::exists(std::filesystem::symlink_status(path, error))) return path;
    }
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
