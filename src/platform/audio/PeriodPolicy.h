#pragma once
#include <cstdint>
#include <deque>
#include <string>

namespace tessaly::audio {

// When the device's period should change, judged once a second from how
// many of that second's callbacks came late. It grows (doubling, up to a
// ceiling) only on sustained lateness, so that a burst while the program
// starts or a window opens does not count (late callbacks in most seconds of a window, and a share of
// all its callbacks); and it shrinks back (halving, down to where it started)
// after a minute without a late callback.
class PeriodPolicy {
public:
    static constexpr int kWindowSeconds = 5;
    // Seconds of the window with a late callback.
    static constexpr int kLateSecondsToGrow = 4;
    // Of the window's callbacks, at least this many per thousand late.
    static constexpr int kLatePerMille = 10;
    static constexpr int kQuietSecondsToShrink = 60;

    PeriodPolicy(int startFrames, int maxFrames) : startFrames_(startFrames), maxFrames_(maxFrames), frames_(startFrames) {}

    struct Change {
        int frames = 0;      // the new period; 0 for no change
        std::string reason;  // for the log
    };
    // One second's callbacks and how many of them came late.
    Change second(long callbacks, long late);

    int frames() const { return frames_; }

private:
    struct Second {
        long callbacks;
        long late;
    };
    Change changeTo(int frames, std::string reason);

    int startFrames_;
    int maxFrames_;
    int frames_;
    std::deque<Second> window_;
    int quietSeconds_ = 0;
};

}  // namespace tessaly::audio
