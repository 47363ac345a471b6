#pragma once
#include <optional>
#include <string>
#include <vector>

#include "platform/MidiInput.h"

namespace tessaly {

// What the list "输入设备" holds and which keyboard it connects: "无" first,
// then the ports keyboards offer, our own and the system's pass-through left
// out. A keyboard is known by its address while it stays plugged in, so a
// renamed port keeps its place and its connection; it is remembered by name,
// so that it is found again after a new start or a new plug.
class InputPortList {
public:
    static constexpr const char* kNone = "无";

    // ownClient: the MIDI client name our own ports carry.
    explicit InputPortList(std::string ownClient) : ownClient_(std::move(ownClient)) {}

    struct Update {
        bool entriesChanged = false;
        // The connected port went away; nothing is connected now.
        bool connectionLost = false;
        // The address to connect to now: the remembered keyboard, or the only
        // one, newly there while nothing is connected.
        std::optional<std::string> connect;
    };
    // Takes the ports as they are now.
    Update refresh(const std::vector<MidiInputPort>& ports);

    // The user chose entry `listIndex` (0: "无"): it is connected and
    // remembered. The address to connect to, empty for none.
    std::string choose(int listIndex);
    // A connection asked for did not come about.
    void connectionFailed() { connected_.clear(); }
    void markConnected(const std::string& address) { connected_ = address; }

    // "无" and the ports' names, in list order.
    std::vector<std::string> captions() const;
    // The list index of the connected port, 0 when none.
    int connectedIndex() const;
    const std::string& connected() const { return connected_; }

    const std::string& remembered() const { return remembered_; }
    void setRemembered(std::string name) { remembered_ = std::move(name); }

private:
    bool isKeyboard(const MidiInputPort& port) const;

    std::string ownClient_;
    std::vector<MidiInputPort> entries_;
    std::string connected_;
    std::string remembered_;
};

}  // namespace tessaly
