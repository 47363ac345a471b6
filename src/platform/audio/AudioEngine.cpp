#include "platform/audio/AudioEngine.h"

#include <SDL.h>
#include <sched.h>

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
    // SDL gives its playback thread the time-critical priority: make that a
    // real-time policy where the system allows it (rtkit, limits), so that
    // the callback does not wait behind other programs' work.
    SDL_SetHint(SDL_HINT_THREAD_FORCE_REALTIME_TIME_CRITICAL, "1");
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
    if (!self->priorityAsked_) {
        // SDL asked for it as the thread started; what it got is only read here.
        self->priorityAsked_ = true;
        const int policy = sched_getscheduler(0);
        self->priority_.store(policy == SCHED_RR || policy == SCHED_FIFO ? 1 : -1, std::memory_order_relaxed);
    }
    self->callbacks_.fetch_add(1, std::memory_order_relaxed);
    const int frames = bytes / static_cast<int>(sizeof(float) * kChannels);
    const int64_t now = std::chrono::duration_cast<std::chrono::nanoseconds>(
                            std::chrono::steady_clock::now().time_since_epoch()).count();
    if (self->lastCallbackNs_ != 0 && now - self->lastCallbackNs_ > 2 * periodNs(self->periodFrames_))
        self->lateTotal_.fetch_add(1, std::memory_order_relaxed);
    self->lastCallbackNs_ = now;
    const BlockSpan span = self->blockClock_.next(now, periodNs(frames));
    self->mixer_.render(reinterpret_cast<float*>(stream), frames, span);
}

AudioEngine::CallbackCounts AudioEngine::takeCallbackCounts() {
    const CallbackCounts now{callbacks_.load(std::memory_order_relaxed), lateTotal_.load(std::memory_order_relaxed)};
    const CallbackCounts fresh{now.callbacks - seen_.callbacks, now.late - seen_.late};
    seen_ = now;
    return fresh;
}

bool AudioEngine::changePeriod(int frames) {
    if (device_ == 0) return false;
    SDL_CloseAudioDevice(device_);
    device_ = 0;
    periodFrames_ = clampPeriod(frames);
    // The callback is not running now: its own state may be reset from here.
    lastCallbackNs_ = 0;
    priorityAsked_ = false;
    blockClock_.reset();
    if (openDevice()) return true;
    sink_ = std::make_unique<SilentSink>(mixer_, periodFrames_);
    return false;
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
