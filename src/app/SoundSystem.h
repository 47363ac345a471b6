#pragma once
#include <string>

#include "platform/audio/AudioEngine.h"
#include "platform/audio/EngineWaveOut.h"
#include "platform/audio/SystemMidiPort.h"

namespace tessaly {

// The sound of the program: the audio engine on the playback device (or a
// silent sink when there is none), the MIDI devices with the built-in
// synthesizer first, and the sound-effect voice. $TESSALY_SOUNDFONT names a
// .sf2 to use instead of the usual search.
struct SoundSystem {
    explicit SoundSystem(const std::string& appDir);

    audio::AudioEngine engine;
    audio::SystemMidiPort midi;
    audio::EngineWaveOut wave;
};

}  // namespace tessaly
