#pragma once
#include <string>

namespace tessaly {

class EventLoop;

// The local date and time, to the second.
struct LocalTime {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

// The calendar clock of the machine.
class WallClock {
public:
    virtual ~WallClock() = default;
    virtual LocalTime now() const = 0;
};

// The system's clock in the local time zone.
WallClock& systemWallClock();

// "yyyy-mm-dd hh:mm:ss".
std::string dateTimeText(const LocalTime& time);

// A calendar that starts at a fixed moment and runs with a loop's clock, so
// that runs in virtual time print the same dates every time.
class VirtualWallClock : public WallClock {
public:
    VirtualWallClock(const EventLoop& loop, LocalTime start) : loop_(loop), start_(start) {}
    LocalTime now() const override;

private:
    const EventLoop& loop_;
    LocalTime start_;
};

}  // namespace tessaly
