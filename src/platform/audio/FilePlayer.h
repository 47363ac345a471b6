#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/audio/AudioFileStream.h"
#include "platform/audio/FrameRing.h"

namespace tessaly::audio {

class StreamVoice;

// Plays a sound file on the mixer's playback slot: refill(), on the control
// thread, decodes ahead into a ring that the renderer plays from.
class FilePlayer {
public:
    // About two seconds decoded ahead.
    static constexpr std::size_t kRingFrames = 1u << 17;

    explicit FilePlayer(StreamVoice& voice);
    ~FilePlayer();

    bool open(const std::string& path, AudioFileStream::Accept accept);
    void close();
    // From the given position in milliseconds, or on from where it stopped.
    void play(std::optional<long> fromMs);
    void stop();
    void seek(long ms);
    // Control thread, often: decodes what the ring has room for.
    void refill();
    bool playing() const { return playing_; }
    // The file has been heard to its end.
    bool finished() const;

private:
    void moveTo(long ms);

    StreamVoice& voice_;
    AudioFileStream stream_;
    FrameRing ring_{kRingFrames};
    std::vector<float> piece_;
    bool playing_ = false;
    bool inputFinished_ = false;
};

}  // namespace tessaly::audio
