#pragma once
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "platform/MidiInput.h"

namespace tessaly {

// The test side of the MIDI input: a port list the test sets as it likes
// (ports plugged in, pulled out, renamed) and messages delivered by hand as
// if a keyboard sent them on the connected port.
class ScriptedMidiInput : public MidiInput {
public:
    std::vector<MidiInputPort> ports() override { return ports_; }
    bool connect(const std::string& address) override;
    void disconnect() override { connected_.clear(); }
    bool take(uint32_t& message) override;

    void setPorts(std::vector<MidiInputPort> ports);
    // A message from the keyboard; it waits until taken.
    void deliver(uint32_t message) { waiting_.push_back(message); }
    // The address connected to, empty when none.
    const std::string& connected() const { return connected_; }

private:
    std::vector<MidiInputPort> ports_;
    std::string connected_;
    std::deque<uint32_t> waiting_;
};

}  // namespace tessaly
