#pragma once
#include <string>

#include "platform/EventLoop.h"
#include "platform/audio/AudioEngine.h"
#include "platform/audio/EngineWaveOut.h"
#include "platform/audio/MciDevice.h"
#include "platform/audio/SystemMidiPort.h"

namespace tessaly {

// The sound of the program: the audio engine on the playback device (or a
// silent sink when there is none), the MIDI devices with the built-in
// synthesizer first, the sound-effect voice, and the recorder's device, whose
// timer runs on the program's loop. $TESSALY_SOUNDFONT names a .sf2 to use
// instead of the usual search; $TESSALY_AUDIO_PERIOD fixes the device's
// period in frames, which otherwise starts small and grows while the device
// callback keeps coming late (checked once a second on the loop).
struct SoundSystem : private TimerClient {
    SoundSystem(const std::string& appDir, EventLoop& loop);
    ~SoundSystem() override;

    audio::AudioEngine engine;
    audio::SystemMidiPort midi;
    audio::EngineWaveOut wave;
    audio::MciDevice recorder;

private:
    void timerDue() override;

    EventLoop& loop_;
};

}  // namespace tessaly
