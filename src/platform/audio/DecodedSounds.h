#pragma once
#include <cstdint>
#include <future>
#include <map>
#include <memory>
#include <string>

#include "platform/audio/SoundBuffer.h"
#include "runtime/FileAccess.h"

namespace tessaly::audio {

// Sound files read and converted ahead on a worker thread and kept, each with
// the size, time of change and identity the file had, so that playing one
// costs a copy of its samples rather than a read and a conversion.
class DecodedSounds {
public:
    DecodedSounds() = default;
    // Waits for the reads still running.
    ~DecodedSounds() = default;
    DecodedSounds(const DecodedSounds&) = delete;
    DecodedSounds& operator=(const DecodedSounds&) = delete;

    // Starts reading the file unless it is kept as it is now.
    void prepare(const std::string& path);
    // The sound of the file as it is now: the kept one (waiting for its read
    // if that still runs) while the file is unchanged, else read here.
    // Nothing for a missing or unreadable file.
    std::unique_ptr<SoundBuffer> take(const std::string& path);

    // The number of files kept.
    std::size_t size() const { return entries_.size(); }

private:
    struct Entry {
        FileStamp stamp;
        uint64_t order = 0;
        std::shared_future<std::shared_ptr<const SoundBuffer>> sound;
    };
    // A handful of files: the six effect keys and what was chosen before.
    static constexpr std::size_t kMostKept = 12;
    std::map<std::string, Entry> entries_;
    uint64_t prepared_ = 0;
};

}  // namespace tessaly::audio
