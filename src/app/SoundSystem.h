#pragma once
#include <string>

#include "platform/audio/AudioEngine.h"
#include "platform/audio/EngineWaveOut.h"
#include "platform/audio/MciDevice.h"
#include "platform/audio/SystemMidiPort.h"

namespace tessaly {

// The sound of the program: the audio engine on the playback device (or a
// silent sink when there is none), the MIDI devices with the built-in
// synthesizer first, the sound-effect voice, and the recorder's device, whose
// timer runs on the program's loop. $TESSALY_SOUNDFONT names a .sf2 to use
// instead of the usual search.
struct SoundSystem {
    SoundSystem(const std::string& appDir, EventLoop& loop);

    audio::AudioEngine engine;
    audio::SystemMidiPort midi;
    audio::EngineWaveOut wave;
    audio::MciDevice recorder;
};

}  // namespace tessaly
