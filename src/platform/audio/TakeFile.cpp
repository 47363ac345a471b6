#include "platform/audio/TakeFile.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "platform/audio/AudioFormat.h"

namespace tessaly::audio {

bool TakeFile::create() {
    discard();
    std::string pattern = (std::filesystem::path(folder_) / "tessaly-take-XXXXXX").string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    const int fd = mkstemp(name.data());
    if (fd < 0) return false;
    // The file has no name from the start: however the program ends, the
    // kernel frees it, and nothing is left behind in the folder.
    unlink(name.data());
    file_ = fdopen(fd, "w+b");
    if (!file_) {
        ::close(fd);
        return false;
    }
    // Readers open it again through the descriptor's own name.
    path_ = "/proc/self/fd/" + std::to_string(fd);
    frames_ = 0;
    return true;
}

bool TakeFile::append(const float* frames, std::size_t count) {
    if (!file_) return false;
    const std::size_t written = std::fwrite(frames, sizeof(float) * kChannels, count, file_);
    frames_ += written;
    return written == count;
}

bool TakeFile::flush() { return file_ && std::fflush(file_) == 0; }

void TakeFile::discard() {
    if (!file_) return;
    std::fclose(file_);
    file_ = nullptr;
    path_.clear();
    frames_ = 0;
}

std::string defaultTakeFolder() {
    if (const char* tmp = std::getenv("TMPDIR"); tmp && *tmp) return tmp;
    std::error_code error;
    if (std::filesystem::is_directory("/var/tmp", error) && access("/var/tmp", W_OK) == 0) return "/var/tmp";
    return std::filesystem::temp_directory_path(error).string();
}

}  // namespace tessaly::audio
