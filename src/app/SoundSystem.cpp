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

SoundSystem::SoundSystem(const std::string& appDir, EventLoop& loop)
    : engine(audio::deviceOptionsFromEnvironment()),
      midi(engine, {appDir, soundFontOverride()}),
      wave(engine),
      recorder(engine.mixer(), {audio::defaultTakeFolder(), &loop}),
      loop_(loop) {
    if (engine.hasDevice()) loop_.startTimer(*this, kPeriodCheckMs);
}

SoundSystem::~SoundSystem() {
    loop_.stopTimer(*this);
}

void SoundSystem::timerDue() {
    if (engine.growPeriodIfLate())
        std::fprintf(stderr, "tessaly: the audio device was late; its period is now %d frames\n",
                     engine.periodFrames());
}

}  // namespace tessaly
