#pragma once
#include <cstdint>
#include <vector>

#include "export/CapturedPlay.h"

namespace tessaly {

// Places the milliseconds of a play on the pulses of a MIDI file whose tempo
// events follow the play's own tempo. A time becomes the pulse nearest to
// where a reader of the file, going by those tempo events, finds it; each
// tempo change is placed the same way and the next segment counts from
// where the reader puts it, so rounding never piles up: every time lands
// within half a pulse. The play's ticks fall on whole pulses.
class TempoMap {
public:
    static constexpr int kPulsesPerQuarter = 960;

    // changes in time order, the first at 0 ms.
    explicit TempoMap(const std::vector<TempoChange>& changes);

    struct Segment {
        uint32_t ms;                     // the play's time of the change
        uint32_t microsecondsPerQuarter;
        int pulse;                       // where it stands in the file
        double readerMs;                 // where a reader of the file finds that pulse
    };
    const std::vector<Segment>& segments() const { return segments_; }

    int pulseAt(uint32_t ms) const;
    // Where a reader of the file finds a pulse, in ms.
    double msAt(int pulse) const;

private:
    std::vector<Segment> segments_;
};

}  // namespace tessaly
