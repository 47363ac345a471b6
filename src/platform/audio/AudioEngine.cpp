#include "platform/audio/AudioEngine.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>

#include "platform/audio/SilentSink.h"

namespace tessaly::audio {

AudioEngineOptions deviceOptionsFromEnvironment() {
    AudioEngineOptions options;
    const char* chosen = std::getenv("TESSALY_AUDIO_PERIOD");
    const int frames = chosen ? std::atoi(chosen) : 0;
    if (frames > 0) options.periodFrames = frames;
    else options.growWhenLate = true;
    return options;
}

AudioEngine::AudioEngine(AudioEngineOptions options)
    : periodFrames_(clampPeriod(options.periodFrames)),
      offline_(options.output == AudioOutput::Offline),
      growWhenLate_(options.growWhenLate) {
    if (offline_) return;
    if (!openDevice()) sink_ = std::make_unique<SilentSink>(mixer_, periodFrames_);
}

AudioEngine::~AudioEngine() {
    // Stop whatever renders before the mixer goes away.
    if (device_ != 0) SDL_CloseAudioDevice(device_);
    sink_.reset();
    if (audioSubsystem_) SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool AudioEngine::openDevice() {
    // SDL would otherwise swallow SIGINT and SIGTERM; the program must end on them.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (!audioSubsystem_) {
        if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
            deviceError_ = SDL_GetError();
            return false;
        }
        audioSubsystem_ = true;
    }
    SDL_AudioSpec wanted{};
    wanted.freq = kSampleRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = kChannels;
    wanted.samples = static_cast<Uint16>(periodFrames_);
    wanted.callback = &AudioEngine::deviceCallback;
    wanted.userdata = this;
    SDL_AudioSpec obtained{};
    // No changes allowed: SDL converts to whatever the hardware takes.
    device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &obtained, 0);
    if (device_ == 0) {
        deviceError_ = SDL_GetError();
        return false;
    }
    SDL_PauseAudioDevice(device_, 0);
    return true;
}

void AudioEngine::deviceCallback(void* engine, uint8_t* stream, int bytes) {
    auto* self = static_cast<AudioEngine*>(engine);
    const int frames = bytes / static_cast<int>(sizeof(float) * kChannels);
    const int64_t now = std::chrono::duration_cast<std::chrono::nanoseconds>(
                            std::chrono::steady_clock::now().time_since_epoch()).count();
    if (self->lastCallbackNs_ != 0 && now - self->lastCallbackNs_ > 2 * periodNs(self->periodFrames_))
        self->lateTotal_.fetch_add(1, std::memory_order_relaxed);
    self->lastCallbackNs_ = now;
    const BlockSpan span = self->blockClock_.next(now, periodNs(frames));
    self->mixer_.render(reinterpret_cast<float*>(stream), frames, span);
}

bool AudioEngine::growPeriodIfLate() {
    const long late = lateTotal_.load(std::memory_order_relaxed);
    const long fresh = late - lateSeen_;
    lateSeen_ = late;
    if (!growWhenLate_ || device_ == 0 || fresh < kLateCallsToGrow || periodFrames_ >= kMaxFallbackPeriodFrames)
        return false;
    SDL_CloseAudioDevice(device_);
    device_ = 0;
    periodFrames_ = std::min(periodFrames_ * 2, kMaxFallbackPeriodFrames);
    // The callback is not running now: its own state may be reset from here.
    lastCallbackNs_ = 0;
    blockClock_.reset();
    if (!openDevice()) sink_ = std::make_unique<SilentSink>(mixer_, periodFrames_);
    return true;
}

std::string AudioEngine::takeStatusMessage() {
    if (offline_ || device_ != 0 || statusTaken_) return {};
    statusTaken_ = true;
    return kNoDeviceMessage;
}

bool AudioEngine::renderFrames(float* out, int frames) {
    if (!offline_) return false;
    for (int done = 0; done < frames;) {
        const int block = std::min(periodFrames_, frames - done);
        mixer_.render(out + static_cast<std::size_t>(done) * kChannels, block);
        done += block;
    }
    return true;
}

}  // namespace tessaly::audio
