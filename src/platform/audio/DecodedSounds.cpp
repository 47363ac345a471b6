#include "platform/audio/DecodedSounds.h"

#include <algorithm>

#include "platform/audio/SoundFileReader.h"

namespace tessaly::audio {

void DecodedSounds::prepare(const std::string& path) {
    const std::optional<FileStamp> stamp = fileStamp(path);
    if (!stamp) return;
    auto kept = entries_.find(path);
    if (kept != entries_.end() && kept->second.stamp == *stamp) return;
    if (kept == entries_.end() && entries_.size() >= kMostKept) {
        auto oldest = std::min_element(entries_.begin(), entries_.end(),
                                       [](const auto& a, const auto& b) { return a.second.order < b.second.order; });
        entries_.erase(oldest);
    }
    Entry& entry = entries_[path];
    entry.stamp = *stamp;
    entry.order = ++prepared_;
    entry.sound = std::async(std::launch::async, [path]() -> std::shared_ptr<const SoundBuffer> {
                      return readSoundFile(path);
                  }).share();
}

std::unique_ptr<SoundBuffer> DecodedSounds::take(const std::string& path) {
    auto kept = entries_.find(path);
    if (kept != entries_.end() && fileStamp(path) == kept->second.stamp) {
        const std::shared_ptr<const SoundBuffer>& sound = kept->second.sound.get();
        return sound ? std::make_unique<SoundBuffer>(*sound) : nullptr;
    }
    return readSoundFile(path);
}

}  // namespace tessaly::audio
