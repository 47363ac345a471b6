#include <gtest/gtest.h>

#include <QCoreApplication>
#include <chrono>
#include <functional>
#include <string>
#include <thread>

#include "platform/qt/QtEventLoop.h"

using namespace tessaly;
using namespace std::chrono_literals;

namespace {

struct Probe : TimerClient {
    std::function<void()> action;
    void timerDue() override { action(); }
};

// Runs the loop until `done` or two seconds have passed.
void runUntil(QtEventLoop& loop, const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + 2s;
    while (!done() && std::chrono::steady_clock::now() < end) loop.idleUntil(loop.nowMs() + 5);
}

}  // namespace

// The order in which two timers fire tells where a period was counted from,
// whatever the machine's load does to the exact times.
TEST(QtEventLoop, ReArmingFromItsOwnTickCountsFromTheScheduledTime) {
    QtEventLoop loop;
    std::string order;
    Probe own, witness;
    witness.action = [&] {
        order += 'w';
        loop.stopTimer(witness);
    };
    own.action = [&] {
        order += 'o';
        if (order.size() > 1) {
            loop.stopTimer(own);
            return;
        }
        std::this_thread::sleep_for(30ms);  // a late tick
        loop.startTimer(own, 50);           // due 50 ms after its scheduled time: 20 ms from now
        loop.startTimer(witness, 40);       // 40 ms from now
    };
    loop.startTimer(own, 20);
    runUntil(loop, [&] { return order.size() >= 3; });
    EXPECT_EQ(order, "oow");
}

TEST(QtEventLoop, RestartingFromOutsideItsTickCountsFromTheCall) {
    QtEventLoop loop;
    std::string order;
    Probe restarted, witness;
    restarted.action = [&] {
        order += 'r';
        loop.stopTimer(restarted);
    };
    witness.action = [&] {
        order += 'w';
        loop.stopTimer(witness);
    };
    loop.startTimer(restarted, 50);
    std::this_thread::sleep_for(30ms);
    loop.startTimer(restarted, 50);  // due 50 ms from now, not 20
    loop.startTimer(witness, 40);
    runUntil(loop, [&] { return order.size() >= 2; });
    EXPECT_EQ(order, "wr");
}

TEST(QtEventLoop, AStoppedTimerDoesNotFireAndDoEventsServesDueTicks) {
    QtEventLoop loop;
    int stoppedTicks = 0, ticks = 0;
    Probe stopped, ticking;
    stopped.action = [&] { ++stoppedTicks; };
    ticking.action = [&] { ++ticks; };
    loop.startTimer(stopped, 5);
    loop.startTimer(ticking, 5);
    std::this_thread::sleep_for(20ms);
    loop.stopTimer(stopped);  // already due: its notification must come to nothing
    loop.doEvents();
    EXPECT_EQ(stoppedTicks, 0);
    EXPECT_EQ(ticks, 1) << "ticks missed while the thread was busy are not made up";
    loop.stopTimer(ticking);
}
