#include "SoundSystem.h"

#include <cstdlib>

namespace tessaly {

namespace {
std::string soundFontOverride() {
    const char* path = std::getenv("TESSALY_SOUNDFONT");
    return path ? path : "";
}
}  // namespace

SoundSystem::SoundSystem(const std::string& appDir, EventLoop& loop)
    : engine(),
      midi(engine, {appDir, soundFontOverride()}),
      wave(engine),
      recorder(engine.mixer(), {audio::defaultTakeFolder(), &loop}) {}

}  // namespace tessaly
