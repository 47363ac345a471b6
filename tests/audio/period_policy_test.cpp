#include <gtest/gtest.h>

#include "platform/audio/PeriodPolicy.h"

using tessaly::audio::PeriodPolicy;

namespace {

constexpr int kFramesPerSecond = 48000;

// Runs `seconds` seconds at the policy's period with `latePerSecond` late
// callbacks each, and returns the periods it changed to.
std::vector<int> run(PeriodPolicy& policy, int seconds, long latePerSecond) {
    std::vector<int> changes;
    for (int s = 0; s < seconds; ++s) {
        const PeriodPolicy::Change change = policy.second(kFramesPerSecond / policy.frames(), latePerSecond);
        if (change.frames != 0) {
            EXPECT_FALSE(change.reason.empty());
            changes.push_back(change.frames);
        }
    }
    return changes;
}

}  // namespace

// A window opening late a burst of callbacks, then quiet: the period stays.
// Lateness that lasts grows it step by step to the ceiling; a minute without
// lateness brings it back one step at a time, never below where it started.
TEST(PeriodPolicy, AStartUpBurstKeepsThePeriodLastingLatenessGrowsItQuietShrinksIt) {
    PeriodPolicy policy(64, 256);
    EXPECT_TRUE(run(policy, 1, 40).empty());  // the splash hands over: 40 late in a second
    EXPECT_TRUE(run(policy, 2, 3).empty());
    EXPECT_TRUE(run(policy, 120, 0).empty());
    EXPECT_EQ(policy.frames(), 64);
    // A few late callbacks now and then are not lateness that lasts.
    for (int i = 0; i < 20; ++i) EXPECT_TRUE(run(policy, 3, i % 3 == 0 ? 4 : 0).empty());

    // 5 % late: the fourth such second doubles the period; at 128 frames
    // the count starts afresh.
    EXPECT_EQ(run(policy, 3, 38), std::vector<int>{});
    EXPECT_EQ(run(policy, 1, 38), std::vector<int>{128});
    EXPECT_EQ(run(policy, 3, 19), std::vector<int>{});
    EXPECT_EQ(run(policy, 1, 19), std::vector<int>{256});
    // Late in every second but a small share: not worth a larger period.
    PeriodPolicy mild(64, 256);
    EXPECT_TRUE(run(mild, 30, 5).empty());
    EXPECT_EQ(run(policy, 10, 10), std::vector<int>{}) << "256 is the ceiling";

    // Quiet: 59 s are not yet a minute.
    EXPECT_TRUE(run(policy, 59, 0).empty());
    EXPECT_EQ(run(policy, 1, 0), std::vector<int>{128});
    // A late callback in the next minute starts the count again.
    EXPECT_TRUE(run(policy, 30, 0).empty());
    EXPECT_TRUE(run(policy, 1, 1).empty());
    EXPECT_TRUE(run(policy, 59, 0).empty());
    EXPECT_EQ(run(policy, 1, 0), std::vector<int>{64});
    EXPECT_TRUE(run(policy, 300, 0).empty());
    EXPECT_EQ(policy.frames(), 64);
}
