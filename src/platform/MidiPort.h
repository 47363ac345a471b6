#pragma once
#include <cstdint>
#include <string>

namespace tessaly {

// Result codes of the MIDI device operations; 0 is success.
enum MidiResult : int {
    kMidiOk = 0,
    kMidiBadDeviceId = 2,       // no such device
    kMidiNotEnabled = 3,        // driver failed to start
    kMidiAllocated = 4,         // device busy, taken by another program
    kMidiInvalidHandle = 5,     // no device open
    kMidiNoDriver = 6,          // no output system at all
    kMidiNoMemory = 7,
    kMidiPortVanished = 68,     // the device went away while open
    kMidiSoundFontMissing = 69, // the built-in synthesizer found no SoundFont
    kMidiSendFailed = 70,       // the message could not be delivered
};

// MIDI output devices. Device id -1 is the stand-in for the system's mapper:
// the built-in synthesizer.
class MidiPort {
public:
    virtual ~MidiPort() = default;

    virtual int deviceCount() = 0;
    // The product name of a device (id -1 .. deviceCount() - 1); false when its
    // capabilities cannot be read.
    virtual bool deviceName(int deviceId, std::string& name) = 0;
    virtual int open(int deviceId, uint32_t& handle) = 0;
    virtual int close(uint32_t handle) = 0;
    // Status in bits 0..7, first data byte in 8..15, second in 16..23.
    virtual int shortMessage(uint32_t handle, uint32_t message) = 0;
    virtual std::string errorText(int code) = 0;
};

}  // namespace tessaly
