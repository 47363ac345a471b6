#include "platform/WallClock.h"

#include <chrono>
#include <cstdio>
#include <ctime>

#include "platform/EventLoop.h"

namespace tessaly {

namespace {

class SystemWallClock : public WallClock {
public:
    LocalTime now() const override {
        std::time_t seconds = std::time(nullptr);
        std::tm parts{};
        localtime_r(&seconds, &parts);
        return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
    }
};

}  // namespace

WallClock& systemWallClock() {
    static SystemWallClock clock;
    return clock;
}

std::string dateTimeText(const LocalTime& t) {
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute,
                  t.second);
    return text;
}

LocalTime VirtualWallClock::now() const {
    using namespace std::chrono;
    const sys_days startDay = year{start_.year} / month{static_cast<unsigned>(start_.month)} /
                              day{static_cast<unsigned>(start_.day)};
    const sys_seconds at = startDay + hours{start_.hour} + minutes{start_.minute} + seconds{start_.second} +
                           seconds{loop_.nowMs() / 1000};
    const sys_days today = floor<days>(at);
    const year_month_day date{today};
    const hh_mm_ss<seconds> clock{at - today};
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())), static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count())};
}

}  // namespace tessaly
