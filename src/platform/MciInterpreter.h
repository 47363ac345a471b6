#pragma once
#include <optional>
#include <string>

#include "platform/MciCommands.h"

namespace tessaly {

struct MciCommand;

// The format a new recording is saved in.
struct MciWaveFormat {
    int bits = 8;  // 8 (unsigned) or 16 (signed)
    int rate = 11025;
    int channels = 1;
};

// What stands behind the command strings: the real audio engine, or a model
// for tests. Called only when the command suits the device's state.
class MciBackend {
public:
    virtual ~MciBackend() = default;

    // A file to play. waveOnly: only a WAV file will do.
    virtual bool openFile(const std::string& path, bool waveOnly) = 0;
    virtual void closeFile() = 0;
    // From the given position, or from where it stopped.
    virtual void play(std::optional<long> fromMs) = 0;
    virtual void stopPlaying() = 0;
    virtual void seek(long ms) = 0;
    // False once the end of the file has been heard.
    virtual bool stillPlaying() = 0;

    // Records onto the take, which grows until it is discarded.
    virtual void startRecording() = 0;
    virtual void stopRecording() = 0;
    // False when the file could not be written; the take is then untouched.
    virtual bool saveTake(const std::string& path, const MciWaveFormat& format) = 0;
    virtual void discardTake() = 0;
};

// The recorder's command strings over a backend: one device, always under
// the alias "NN", either a new recording or a file to play. Keywords and the
// alias are read without regard to case. "status NN mode" answers "stopped",
// "playing" or "recording"; "close animation" is accepted and does nothing.
class MciInterpreter : public MciCommands {
public:
    static constexpr const char* kAlias = "NN";

    explicit MciInterpreter(MciBackend& backend) : backend_(backend) {}

    MciResult execute(const std::string& command) override;

    enum class Device { None, Recording, File };
    enum class Mode { Stopped, Playing, Recording };
    Device device() const { return device_; }
    // The mode as it stood after the last command (the end of play is noticed by status).
    Mode mode() const { return mode_; }
    const MciWaveFormat& format() const { return format_; }

private:
    MciResult open(const MciCommand& c);
    MciResult set(const MciCommand& c);
    MciResult save(const MciCommand& c);
    MciResult status(const MciCommand& c);
    void close();
    void stop();

    MciBackend& backend_;
    Device device_ = Device::None;
    Mode mode_ = Mode::Stopped;
    MciWaveFormat format_;
};

}  // namespace tessaly
