#include "platform/audio/DecodedSounds.h"

#include <sys/stat.h>

#include <algorithm>

#include "platform/audio/SoundFileReader.h"

namespace tessaly::audio {

bool DecodedSounds::stampOf(const std::string& path, Stamp& stamp) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
    stamp = {static_cast<uint64_t>(info.st_dev), static_cast<uint64_t>(info.st_ino), info.st_size,
             static_cast<int64_t>(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec};
    return true;
}

void DecodedSounds::prepare(const std::string& path) {
    Stamp stamp;
    if (!stampOf(path, stamp)) return;
    auto kept = entries_.find(path);
    if (kept != entries_.end() && kept->second.stamp == stamp) return;
    if (kept == entries_.end() && entries_.size() >= kMostKept) {
        auto oldest = std::min_element(entries_.begin(), entries_.end(),
                                       [](const auto& a, const auto& b) { return a.second.order < b.second.order; });
        entries_.erase(oldest);
    }
    Entry& entry = entries_[path];
    entry.stamp = stamp;
    entry.order = ++prepared_;
    entry.sound = std::async(std::launch::async, [path]() -> std::shared_ptr<const SoundBuffer> {
                      return readSoundFile(path);
                  }).share();
}

std::unique_ptr<SoundBuffer> DecodedSounds::take(const std::string& path) {
    Stamp stamp;
    auto kept = entries_.find(path);
    if (kept != entries_.end() && stampOf(path, stamp) && kept->second.stamp == stamp) {
        const std::shared_ptr<const SoundBuffer>& sound = kept->second.sound.get();
        return sound ? std::make_unique<SoundBuffer>(*sound) : nullptr;
    }
    return readSoundFile(path);
}

}  // namespace tessaly::audio
