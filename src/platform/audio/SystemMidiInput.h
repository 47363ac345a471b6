#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/MidiInput.h"
#include "platform/audio/SpscQueue.h"

class RtMidiIn;

namespace tessaly::audio {

// The keyboards of this machine: the input ports of the ALSA sequencer,
// through RtMidi. RtMidi calls us on a thread of its own; the message is
// queued without a lock and an eventfd is signalled, which the event loop
// watches, so the event thread takes it at once. With no ALSA sequencer on
// the machine there are no ports, and nothing is printed or thrown.
class SystemMidiInput : public MidiInput {
public:
    SystemMidiInput();
    ~SystemMidiInput() override;
    SystemMidiInput(const SystemMidiInput&) = delete;
    SystemMidiInput& operator=(const SystemMidiInput&) = delete;

    std::vector<MidiInputPort> ports() override;
    bool connect(const std::string& address) override;
    void disconnect() override;
    bool take(uint32_t& message) override;

    // Readable while messages wait. The event thread calls acknowledgeWake()
    // and then takes every waiting message, in that order, so that a message
    // arriving meanwhile signals again.
    int wakeFd() const { return wakeFd_; }
    void acknowledgeWake();

    // RtMidi's side: one message arrived. Public for the benchmark, which
    // stands in for RtMidi's thread.
    void arrived(const unsigned char* bytes, std::size_t size);
    // Messages dropped because the event thread fell this far behind.
    uint64_t dropped() const { return dropped_.load(std::memory_order_relaxed); }

    // "client:port 20:0" as RtMidi names a port, split into name and address.
    static MidiInputPort splitPortName(const std::string& full);

private:
    RtMidiIn* lister();
    static int findPort(RtMidiIn& midi, const std::string& address, bool& failed);

    std::unique_ptr<RtMidiIn> lister_;
    bool listerFailed_ = false;
    std::vector<MidiInputPort> lastPorts_;
    std::unique_ptr<RtMidiIn> connected_;
    bool connectedFailed_ = false;
    SpscQueue<uint32_t, 1024> queue_;
    std::atomic<uint64_t> dropped_{0};
    int wakeFd_ = -1;
};

}  // namespace tessaly::audio
