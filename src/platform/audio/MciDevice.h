#pragma once
#include <functional>
#include <string>

#include "platform/EventLoop.h"
#include "platform/MciInterpreter.h"
#include "platform/audio/FilePlayer.h"
#include "platform/audio/TakeFile.h"
#include "platform/audio/TakeRecorder.h"

namespace tessaly::audio {

class Mixer;

struct MciDeviceOptions {
    std::string takeFolder = defaultTakeFolder();
    EventLoop* loop = nullptr;  // none: the owner calls service()
    // A save writes the file on a worker while the loop serves its events
    // (the program); otherwise on the spot (tests, virtual time).
    bool saveOnWorker = false;
};

// The recorder's command strings on the audio engine: a new recording takes
// the engine's own mix (synthesizer, effects, playback); a file plays on the
// playback slot beside the instrument. service() moves the sound between the
// renderer's rings and the files; given a loop, the device runs it on a
// timer of its own while it records or plays.
class MciDevice : public MciCommands, private MciBackend, private TimerClient {
public:
    static constexpr int kServiceMs = 20;

    explicit MciDevice(Mixer& mixer, MciDeviceOptions options = {});
    ~MciDevice() override;

    MciResult execute(const std::string& command) override;
    void service();

    const TakeRecorder& recorder() const { return recorder_; }
    // Told true as a save on the worker starts and false once its file is
    // complete, before the command that saved returns: the windows show it.
    std::function<void(bool saving)> onSaving;
    const MciInterpreter& interpreter() const { return interpreter_; }

private:
    bool openFile(const std::string& path, bool waveOnly) override;
    void closeFile() override { player_.close(); }
    void play(std::optional<long> fromMs) override { player_.play(fromMs); }
    void stopPlaying() override { player_.stop(); }
    void seek(long ms) override { player_.seek(ms); }
    bool stillPlaying() override;
    void startRecording() override { recorder_.start(); }
    void stopRecording() override { recorder_.stop(); }
    bool saveTake(const std::string& path, const MciWaveFormat& format) override;
    void discardTake() override { recorder_.discard(); }

    void timerDue() override { service(); }
    // The timer runs while there is sound to move.
    void followState();

    TakeRecorder recorder_;
    FilePlayer player_;
    MciInterpreter interpreter_{*this};
    EventLoop* loop_;
    bool saveOnWorker_;
    bool serviced_ = false;
};

}  // namespace tessaly::audio
