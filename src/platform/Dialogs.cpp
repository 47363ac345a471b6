#include "platform/Dialogs.h"

#include <filesystem>

namespace tessaly {

void Dialogs::wentTo(const std::string& path) {
    currentFolder_ = std::filesystem::path(path).parent_path().string();
}

}  // namespace tessaly
