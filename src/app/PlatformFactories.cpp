#include "PlatformFactories.h"

#include "platform/testing/RecordingPlatform.h"

namespace tessaly {

std::unique_ptr<MidiPort> makeMidiPort(const EventLoop& clock) { return std::make_unique<RecordingMidiPort>(clock); }

std::unique_ptr<WaveOut> makeWaveOut(EventLog& log) { return std::make_unique<RecordingWaveOut>(log); }

}  // namespace tessaly
