#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "platform/testing/VirtualEventLoop.h"

using namespace tessaly;

namespace {
struct Probe : TimerClient {
    std::function<void()> action;
    void timerDue() override { action(); }
};
}  // namespace

TEST(VirtualEventLoop, TicksKeepTheirGridAndFireInTimeOrder) {
    VirtualEventLoop loop;
    std::vector<std::pair<char, uint32_t>> fired;
    Probe a, b;
    a.action = [&] { fired.push_back({'a', loop.nowMs()}); };
    b.action = [&] { fired.push_back({'b', loop.nowMs()}); };
    loop.startTimer(a, 107);
    loop.startTimer(b, 214);
    loop.advance(430);
    std::vector<std::pair<char, uint32_t>> expected{{'a', 107}, {'a', 214}, {'b', 214}, {'a', 321}, {'a', 428}, {'b', 428}};
    EXPECT_EQ(fired, expected);
    EXPECT_EQ(loop.nowMs(), 430u);
}

TEST(VirtualEventLoop, RestartingAPeriodCountsFromNow) {
    VirtualEventLoop loop;
    std::vector<uint32_t> fired;
    Probe a;
    a.action = [&] { fired.push_back(loop.nowMs()); };
    loop.startTimer(a, 100);
    loop.advance(150);
    loop.startTimer(a, 100);  // restart at 150
    loop.advance(200);
    EXPECT_EQ(fired, (std::vector<uint32_t>{100, 250, 350}));
}

TEST(VirtualEventLoop, WaitingInsideAHandlerLetsOtherTimersRun) {
    VirtualEventLoop loop;
    std::vector<std::pair<char, uint32_t>> fired;
    Probe slow, fast;
    slow.action = [&] {
        fired.push_back({'s', loop.nowMs()});
        loop.idleUntil(loop.nowMs() + 50);  // fast fires at 110 within this wait
        loop.idleUntil(loop.nowMs() + 50);
        fired.push_back({'S', loop.nowMs()});
    };
    fast.action = [&] { fired.push_back({'f', loop.nowMs()}); };
    loop.startTimer(slow, 100);
    loop.startTimer(fast, 110);
    loop.advance(100);
    ASSERT_GE(fired.size(), 3u);
    EXPECT_EQ(fired[0], (std::pair<char, uint32_t>{'s', 100}));
    EXPECT_EQ(fired[1], (std::pair<char, uint32_t>{'f', 110}));
    EXPECT_EQ(fired.back().first, 'S');
}

TEST(VirtualEventLoop, StoppingFromInsideAHandlerTakesEffect) {
    VirtualEventLoop loop;
    int count = 0;
    Probe a;
    a.action = [&] {
        if (++count == 2) loop.stopTimer(a);
    };
    loop.startTimer(a, 10);
    loop.advance(100);
    EXPECT_EQ(count, 2);
}

// A timer that sets its own interval from its tick counts from the tick's
// scheduled time, even when a wait inside the tick moved the clock; set from
// anywhere else, the period counts from the call.
TEST(VirtualEventLoop, ReArmingFromItsOwnTickKeepsTheGrid) {
    VirtualEventLoop loop;
    std::vector<std::pair<char, uint32_t>> fired;
    Probe own, other;
    own.action = [&] {
        fired.push_back({'o', loop.nowMs()});
        loop.idleUntil(loop.nowMs() + 20);  // a strum's waits
        loop.startTimer(own, 100);
    };
    other.action = [&] {
        fired.push_back({'x', loop.nowMs()});
        loop.idleUntil(loop.nowMs() + 20);
        loop.startTimer(own, 100);  // not its own tick: counts from now
        loop.stopTimer(other);
    };
    loop.startTimer(own, 100);
    loop.advance(300);
    EXPECT_EQ(fired, (std::vector<std::pair<char, uint32_t>>{{'o', 100}, {'o', 200}, {'o', 300}}));
    // The last tick's wait left the clock at 320. The other timer's tick at
    // 370 waits too and moves own from its grid (400) to 390 + 100.
    loop.startTimer(other, 50);
    loop.advance(200);
    ASSERT_EQ(fired.size(), 5u);
    EXPECT_EQ(fired[3], (std::pair<char, uint32_t>{'x', 370}));
    EXPECT_EQ(fired[4], (std::pair<char, uint32_t>{'o', 490}));
}

// A tick that ran later than its whole new interval fires at once, then the
// grid goes on from its scheduled time.
TEST(VirtualEventLoop, ATickLateByMoreThanItsIntervalCatchesUpOnce) {
    VirtualEventLoop loop;
    std::vector<uint32_t> fired;
    bool busy = false;
    Probe own;
    own.action = [&] {
        if (busy) return;  // as a timer control does: its tick due at 100 falls inside the wait
        busy = true;
        fired.push_back(loop.nowMs());
        const uint32_t until = loop.nowMs() + 70;
        if (fired.size() == 1)
            while (loop.nowMs() < until) loop.idleUntil(until);
        loop.startTimer(own, 50);
        busy = false;
    };
    loop.startTimer(own, 50);
    loop.advance(260);
    EXPECT_EQ(fired, (std::vector<uint32_t>{50, 120, 150, 200, 250}));
}
