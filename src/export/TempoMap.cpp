#include "export/TempoMap.h"

#include <algorithm>
#include <cmath>

namespace tessaly {

namespace {

constexpr uint32_t kDefaultQuarter = 500000;
// The largest tempo a MIDI file can hold: three bytes.
constexpr uint32_t kLongestQuarter = 0xFFFFFF;

int pulsesAfter(double ms, const TempoMap::Segment& from) {
    const double pulses = (ms - from.readerMs) * 1000.0 * TempoMap::kPulsesPerQuarter / from.microsecondsPerQuarter;
    return from.pulse + static_cast<int>(std::llround(std::max(0.0, pulses)));
}

}  // namespace

TempoMap::TempoMap(const std::vector<TempoChange>& changes) {
    for (const TempoChange& change : changes) {
        const uint32_t quarter = std::clamp<uint32_t>(change.microsecondsPerQuarter, 1, kLongestQuarter);
        if (segments_.empty()) {
            segments_.push_back({change.ms, quarter, 0, static_cast<double>(change.ms)});
            continue;
        }
        Segment& last = segments_.back();
        if (change.ms < last.ms) continue;
        const int pulse = pulsesAfter(change.ms, last);
        if (pulse == last.pulse) {
            // Two changes on one pulse: the later one holds.
            last.microsecondsPerQuarter = quarter;
            continue;
        }
        segments_.push_back({change.ms, quarter, pulse, msAt(pulse)});
    }
    if (segments_.empty()) segments_.push_back({0, kDefaultQuarter, 0, 0.0});
}

int TempoMap::pulseAt(uint32_t ms) const {
    // By where the reader finds each change: a time just after a change may
    // still lie before the pulse the change was rounded to.
    auto after = std::upper_bound(segments_.begin(), segments_.end(), static_cast<double>(ms),
                                  [](double t, const Segment& s) { return t < s.readerMs; });
    const Segment& segment = after == segments_.begin() ? segments_.front() : *(after - 1);
    return pulsesAfter(ms, segment);
}

double TempoMap::msAt(int pulse) const {
    auto after = std::upper_bound(segments_.begin(), segments_.end(), pulse,
                                  [](int p, const Segment& s) { return p < s.pulse; });
    const Segment& segment = after == segments_.begin() ? segments_.front() : *(after - 1);
    return segment.readerMs +
           static_cast<double>(pulse - segment.pulse) * segment.microsecondsPerQuarter / (1000.0 * kPulsesPerQuarter);
}

}  // namespace tessaly
