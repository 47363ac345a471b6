#pragma once
#include <cstdint>
#include <set>
#include <utility>

namespace tessaly {

// Which notes a General MIDI synthesizer would still be sounding after a
// stream of short messages: a note-on starts a note, a note-off or a note-on
// of velocity 0 ends it, All Sound Off and All Notes Off end every note of
// their channel. Percussion (channel 9) has no note-offs and is not tracked.
class SoundingNotes {
public:
    void apply(uint32_t message) {
        const int status = static_cast<int>(message & 0xF0), channel = static_cast<int>(message & 0x0F);
        const int data1 = static_cast<int>((message >> 8) & 0x7F), data2 = static_cast<int>((message >> 16) & 0x7F);
        if (channel == 9) return;
        if (status == 0x90 && data2 > 0) notes_.insert({channel, data1});
        else if (status == 0x80 || status == 0x90) notes_.erase({channel, data1});
        else if (status == 0xB0 && (data1 == 120 || data1 == 123)) {
            auto from = notes_.lower_bound({channel, 0});
            notes_.erase(from, notes_.lower_bound({channel + 1, 0}));
        }
    }
    bool silent() const { return notes_.empty(); }
    const std::set<std::pair<int, int>>& notes() const { return notes_; }

private:
    std::set<std::pair<int, int>> notes_;  // (channel, note)
};

}  // namespace tessaly
