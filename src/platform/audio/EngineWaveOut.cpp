#include "platform/audio/EngineWaveOut.h"

#include "platform/audio/AudioEngine.h"

namespace tessaly::audio {

void EngineWaveOut::setVolume(uint32_t volumeWord) {
    engine_.mixer().setVolumeWord(volumeWord);
}

bool EngineWaveOut::playSound(const std::string& path, int /*flags*/) {
    VoicePlayer& voice = engine_.mixer().effectVoice();
    if (path == "0") {
        voice.stop();
        return true;
    }
    std::unique_ptr<SoundBuffer> sound = sounds_.take(path);
    if (!sound) return false;
    voice.play(std::move(sound));
    return true;
}

}  // namespace tessaly::audio
