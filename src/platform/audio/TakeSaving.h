#pragma once
#include <cstdint>
#include <string>

#include "platform/EventLoop.h"
#include "platform/MciInterpreter.h"

namespace tessaly::audio {

// exportTake on a worker thread, serving the event loop while it runs, so
// that timers tick and the windows answer during a long save. Returns once
// the file is complete (or has failed), with exportTake's answer: to its
// caller the save is as synchronous as ever.
bool exportTakeServing(EventLoop& loop, const std::string& takePath, uint64_t frames, const std::string& target,
                       const MciWaveFormat& format);

}  // namespace tessaly::audio
