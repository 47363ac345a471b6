#pragma once
#include <functional>
#include <string>

#include "platform/EventLoop.h"
#include "platform/audio/AudioEngine.h"
#include "platform/audio/EngineWaveOut.h"
#include "platform/audio/MciDevice.h"
#include "platform/audio/PeriodPolicy.h"
#include "platform/audio/SystemMidiPort.h"

namespace tessaly {

// The sound of the program: the audio engine on the playback device (or a
// silent sink when there is none), the MIDI devices with the built-in
// synthesizer first, the sound-effect voice, and the recorder's device, whose
// timer runs on the program's loop. $TESSALY_SOUNDFONT names a .sf2 to use
// instead of the usual search; $TESSALY_AUDIO_PERIOD fixes the device's
// period in frames, which otherwise starts small, grows while the device
// callback keeps coming late and shrinks back when it no longer does
// (audio::PeriodPolicy, judged once a second on the loop).
// The device list's tool tip for a period: frames and milliseconds.
std::string audioPeriodTip(int frames);

struct SoundSystem : private TimerClient {
    SoundSystem(const std::string& appDir, EventLoop& loop);
    ~SoundSystem() override;

    // Starts judging the period, once the main window shows: until then the
    // SoundFont's load and the windows' first painting make callbacks late
    // that say nothing about the machine.
    void watchPeriod();
    // Told the period in effect when watching starts and at every change.
    std::function<void(int frames)> onPeriod;

    audio::AudioEngine engine;
    audio::SystemMidiPort midi;
    audio::EngineWaveOut wave;
    audio::MciDevice recorder;

private:
    void timerDue() override;
    void reportPriority();

    EventLoop& loop_;
    audio::PeriodPolicy policy_;
    bool watching_ = false;
    bool priorityReported_ = false;
};

}  // namespace tessaly
