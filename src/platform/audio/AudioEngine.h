#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/audio/AudioFormat.h"
#include "platform/audio/BlockClock.h"
#include "platform/audio/Mixer.h"

namespace tessaly::audio {

class SilentSink;

enum class AudioOutput {
    Device,   // the system's playback device, or a silent sink when there is none
    Offline,  // nothing runs by itself: the caller renders with renderFrames()
};

struct AudioEngineOptions {
    AudioOutput output = AudioOutput::Device;
    int periodFrames = kDefaultPeriodFrames;  // clamped to kMinPeriodFrames..kMaxPeriodFrames
    // The device may move to larger periods when its callback comes late.
    bool growWhenLate = false;
};

// The options of the program's engine: $TESSALY_AUDIO_PERIOD (frames, 16 to
// 256) fixes the period; without it the default period grows when late.
AudioEngineOptions deviceOptionsFromEnvironment();

// The sound output of the program: one mixer, rendered by the SDL playback
// callback, by a silent sink when no device can be opened, or on demand.
class AudioEngine {
public:
    static constexpr const char* kNoDeviceMessage = "没有找到音频输出设备，声音无法播放。";

    explicit AudioEngine(AudioEngineOptions options = {});
    ~AudioEngine();
    AudioEngine(const AudioEngine&) = delete;
    AudioEngine& operator=(const AudioEngine&) = delete;

    Mixer& mixer() { return mixer_; }
    int periodFrames() const { return periodFrames_; }

    // Whether the period may change by itself (no period was fixed).
    bool adaptsPeriod() const { return growWhenLate_; }
    // Control thread: the device's callbacks since the last call, and how
    // many of them came late (a gap of over two periods, so the device
    // likely ran dry).
    struct CallbackCounts {
        long callbacks = 0;
        long late = 0;
    };
    CallbackCounts takeCallbackCounts();
    // Control thread: reopens the device with this period. False when there
    // is no device or it could not be reopened (a silent sink then plays).
    bool changePeriod(int frames);
    // Whether the audio thread runs with a real-time policy: 0 before the
    // first callback, 1 it does, -1 the system refused it.
    int realTimePriority() const { return priority_.load(std::memory_order_relaxed); }
    bool isOffline() const { return offline_; }
    // True when a real playback device is running.
    bool hasDevice() const { return device_ != 0; }

    // What the user should be told about the output, in plain words: the
    // first call returns the no-device message when there is no device,
    // every later call returns an empty string.
    std::string takeStatusMessage();
    // Why the device could not be opened, for a log; empty when it was.
    const std::string& deviceError() const { return deviceError_; }

    // Offline mode only: renders the mix into out (interleaved stereo), in
    // blocks of at most one period. False, rendering nothing, otherwise.
    bool renderFrames(float* out, int frames);

private:
    static void deviceCallback(void* engine, uint8_t* stream, int bytes);
    bool openDevice();

    Mixer mixer_;
    int periodFrames_;
    bool offline_;
    bool growWhenLate_;
    std::atomic<long> callbacks_{0};
    std::atomic<long> lateTotal_{0};
    CallbackCounts seen_;
    std::atomic<int> priority_{0};
    bool priorityAsked_ = false;  // the device callback's only
    int64_t lastCallbackNs_ = 0;  // the device callback's only
    bool audioSubsystem_ = false;
    uint32_t device_ = 0;
    BlockClock blockClock_;  // the device callback's only
    std::unique_ptr<SilentSink> sink_;
    std::string deviceError_;
    bool statusTaken_ = false;
};

}  // namespace tessaly::audio
