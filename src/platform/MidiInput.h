#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace tessaly {

// A port a MIDI keyboard offers. The address tells the same port apart when
// its name changes; the name is what the user sees and what is remembered.
struct MidiInputPort {
    std::string address;
    std::string name;
    bool operator==(const MidiInputPort&) const = default;
};

// The MIDI input side: the ports keyboards offer, one connection at a time,
// and the messages that arrived on it. Messages are packed as short messages
// are (status in bits 0..7, data bytes in 8..15 and 16..23). Everything here
// is called on the event thread.
class MidiInput {
public:
    virtual ~MidiInput() = default;

    // The keyboards' ports now; empty where there is no MIDI system.
    virtual std::vector<MidiInputPort> ports() = 0;
    // Connects to the port at that address, leaving any other; false when
    // it is not there or cannot be connected.
    virtual bool connect(const std::string& address) = 0;
    virtual void disconnect() = 0;
    // The oldest message that arrived and is not yet taken; false when none.
    virtual bool take(uint32_t& message) = 0;
};

// No MIDI input at all: no ports, no messages.
MidiInput& noMidiInput();

}  // namespace tessaly
