#include "SoundSystem.h"

#include <cstdio>
#include <cstdlib>

namespace tessaly {

namespace {
constexpr int kPeriodCheckMs = 1000;

std::string soundFontOverride() {
    const char* path = std::getenv("TESSALY_SOUNDFONT");
    return path ? path : "";
}
}  // namespace

std::string audioPeriodTip(int frames) {
    char text[96];
    std::snprintf(text, sizeof text, "内置 GM 合成器的音频周期：%d 帧（%.2f 毫秒）", frames,
                  static_cast<double>(frames) * 1000.0 / audio::kSampleRate);
    return text;
}

SoundSystem::SoundSystem(const std::string& appDir, EventLoop& loop)
    : engine(audio::deviceOptionsFromEnvironment()),
      midi(engine, {appDir, soundFontOverride()}),
      wave(engine),
      recorder(engine.mixer(), {audio::defaultTakeFolder(), &loop, true}),
      loop_(loop),
      policy_(engine.periodFrames(), audio::kMaxFallbackPeriodFrames) {}

void SoundSystem::watchPeriod() {
    if (watching_) return;
    watching_ = true;
    if (onPeriod) onPeriod(engine.periodFrames());
    if (!engine.hasDevice()) return;
    engine.takeCallbackCounts();  // what came before does not count
    loop_.startTimer(*this, kPeriodCheckMs);
}

SoundSystem::~SoundSystem() {
    loop_.stopTimer(*this);
}

void SoundSystem::timerDue() {
    reportPriority();
    const audio::AudioEngine::CallbackCounts counts = engine.takeCallbackCounts();
    if (!engine.adaptsPeriod() || !engine.hasDevice()) return;
    const audio::PeriodPolicy::Change change = policy_.second(counts.callbacks, counts.late);
    if (change.frames == 0) return;
    const int before = engine.periodFrames();
    const bool reopened = engine.changePeriod(change.frames);
    std::fprintf(stderr, "tessaly: audio period %d -> %d frames (%s)%s\n", before, engine.periodFrames(),
                 change.reason.c_str(), reopened ? "" : "; the device did not reopen, a silent sink plays");
    if (onPeriod) onPeriod(engine.periodFrames());
    if (!reopened) loop_.stopTimer(*this);
}

void SoundSystem::reportPriority() {
    if (priorityReported_ || engine.realTimePriority() == 0) return;
    priorityReported_ = true;
    std::fprintf(stderr, "%s\n",
                 engine.realTimePriority() > 0
                     ? "tessaly: the audio thread runs with real-time priority"
                     : "tessaly: the audio thread runs without real-time priority (not allowed here)");
}

}  // namespace tessaly
