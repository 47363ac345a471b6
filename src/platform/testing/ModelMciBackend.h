#pragma once
#include <string>

#include "platform/MciInterpreter.h"

namespace tessaly {

// A recorder without sound, for tests and the script driver: a file opens
// when it exists and is not empty, plays until told that it ended, and a
// take is saved as a WAV file with no frames, in the format asked.
class ModelMciBackend : public MciBackend {
public:
    bool openFile(const std::string& path, bool waveOnly) override;
    void closeFile() override {}
    void play(std::optional<long>) override { playing_ = true; }
    void stopPlaying() override { playing_ = false; }
    void seek(long) override {}
    bool stillPlaying() override { return playing_; }
    void startRecording() override {}
    void stopRecording() override {}
    bool saveTake(const std::string& path, const MciWaveFormat& format) override;
    void discardTake() override {}

    // The file that plays has come to its end.
    void endOfFile() { playing_ = false; }

private:
    bool playing_ = false;
};

}  // namespace tessaly
