#include "export/TempoMap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace tessaly;

namespace {

// The longer of the pulses on either side of where a time lands.
double pulseMs(const TempoMap& map, uint32_t ms) {
    const int pulse = map.pulseAt(ms);
    return std::max(map.msAt(pulse + 1) - map.msAt(pulse), pulse > 0 ? map.msAt(pulse) - map.msAt(pulse - 1) : 0.0);
}

}  // namespace

// A score's tick (1/8 of a quarter) at 107 ms is 120 pulses: every tick of
// the play falls on a whole pulse, and a reader finds it at its millisecond.
TEST(TempoMap, TheTicksOfAPlayFallOnWholePulses) {
    TempoMap map({{0, 8 * 107 * 1000}});
    for (uint32_t tick = 0; tick < 4000; ++tick) {
        ASSERT_EQ(map.pulseAt(tick * 107), static_cast<int>(tick * 120));
        ASSERT_DOUBLE_EQ(map.msAt(static_cast<int>(tick * 120)), tick * 107.0);
    }
}

// Many tempo changes at times off the pulse grid: every time lands within
// half a pulse of where a reader finds it, however many changes came before.
TEST(TempoMap, RoundingAtTempoChangesNeverPilesUp) {
    std::mt19937 random(7);
    std::vector<TempoChange> changes{{0, 8 * 107 * 1000}};
    for (int i = 1; i < 500; ++i) {
        const auto ms = static_cast<uint32_t>(changes.back().ms + 1 + random() % 997);
        changes.push_back({ms, static_cast<uint32_t>((54 + random() % 160) * 8 * 1000 + random() % 7)});
    }
    TempoMap map(changes);
    for (uint32_t ms = 0; ms < changes.back().ms + 5000; ms += 3)
        ASSERT_LE(std::abs(map.msAt(map.pulseAt(ms)) - ms), pulseMs(map, ms) / 2 + 1e-9) << "at " << ms << " ms";
    // Later times never come before earlier ones.
    for (uint32_t ms = 1; ms < changes.back().ms; ms += 5) ASSERT_LE(map.pulseAt(ms - 1), map.pulseAt(ms));
}

TEST(TempoMap, OfTwoChangesOnOnePulseTheLaterHolds) {
    TempoMap map({{0, 500000}, {1000, 600000}, {1000, 400000}});
    ASSERT_EQ(map.segments().size(), 2u);
    EXPECT_EQ(map.segments()[1].microsecondsPerQuarter, 400000u);
    EXPECT_EQ(map.pulseAt(1400), 1920 + 960);
}
