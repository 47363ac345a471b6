#include "platform/testing/ScriptedMidiInput.h"

#include <algorithm>

namespace tessaly {

bool ScriptedMidiInput::connect(const std::string& address) {
    const bool present =
        std::any_of(ports_.begin(), ports_.end(), [&](const MidiInputPort& p) { return p.address == address; });
    connected_ = present ? address : std::string();
    return present;
}

bool ScriptedMidiInput::take(uint32_t& message) {
    if (waiting_.empty()) return false;
    message = waiting_.front();
    waiting_.pop_front();
    return true;
}

void ScriptedMidiInput::setPorts(std::vector<MidiInputPort> ports) {
    ports_ = std::move(ports);
    // A port pulled out takes its connection with it.
    if (!connected_.empty() &&
        std::none_of(ports_.begin(), ports_.end(), [&](const MidiInputPort& p) { return p.address == connected_; }))
        connected_.clear();
}

}  // namespace tessaly
