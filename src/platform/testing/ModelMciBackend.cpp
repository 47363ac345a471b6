#include "platform/testing/ModelMciBackend.h"

#include <filesystem>

namespace tessaly {

bool ModelMciBackend::openFile(const std::string& path, bool) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && std::filesystem::file_size(path, error) > 0;
}

bool ModelMciBackend::saveTake(const std::string& path, const MciWaveFormat&) {
    std::error_code error;
    std::filesystem::path folder = std::filesystem::path(path).parent_path();
    return folder.empty() || std::filesystem::is_directory(folder, error);
}

}  // namespace tessaly
