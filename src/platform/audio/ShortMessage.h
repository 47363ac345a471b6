#pragma once
#include <cstdint>

namespace tessaly::audio {

// A packed MIDI short message taken apart: status in bits 0..7, first data
// byte in 8..15, second in 16..23.
struct ShortMessage {
    uint8_t status;
    uint8_t data1;
    uint8_t data2;

    static ShortMessage unpack(uint32_t packed) {
        return {static_cast<uint8_t>(packed & 0xFF), static_cast<uint8_t>((packed >> 8) & 0xFF),
                static_cast<uint8_t>((packed >> 16) & 0xFF)};
    }

    int channel() const { return status & 0x0F; }
    int kind() const { return status & 0xF0; }

    // Bytes on the wire, status included; 0 for a first byte that is no status.
    int length() const {
        if (status < 0x80) return 0;
        switch (kind()) {
        case 0xC0:
        case 0xD0: return 2;
        case 0xF0:
            if (status == 0xF1 || status == 0xF3) return 2;
            if (status == 0xF2) return 3;
            return 1;
        default: return 3;
        }
    }

    // A data byte with its top bit set would be read as a status by any MIDI
    // receiver, so such a message is dropped whole rather than masked into a
    // different, audible value (a program of -1 arrives as 255).
    bool wellFormed() const {
        const int n = length();
        if (n == 0) return false;
        if (n >= 2 && data1 > 127) return false;
        if (n >= 3 && data2 > 127) return false;
        return true;
    }
};

}  // namespace tessaly::audio
