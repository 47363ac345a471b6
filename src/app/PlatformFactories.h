#pragma once
#include <memory>

#include "platform/EventLoop.h"
#include "platform/MidiPort.h"
#include "platform/WaveOut.h"
#include "platform/testing/EventLog.h"

namespace tessaly {

// The MIDI devices the instrument plays. For now a recording sink that lists
// only the built-in synthesizer's place; the real synthesizer port goes here.
std::unique_ptr<MidiPort> makeMidiPort(const EventLoop& clock);

// Wave output for volume and sound effects. For now a recording stand-in; the
// audio engine goes here.
std::unique_ptr<WaveOut> makeWaveOut(EventLog& log);

}  // namespace tessaly
