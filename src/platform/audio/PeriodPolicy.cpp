#include "platform/audio/PeriodPolicy.h"

#include <algorithm>

namespace tessaly::audio {

PeriodPolicy::Change PeriodPolicy::second(long callbacks, long late) {
    window_.push_back({callbacks, late});
    if (window_.size() > kWindowSeconds) window_.pop_front();
    quietSeconds_ = late > 0 ? 0 : quietSeconds_ + 1;

    long allCallbacks = 0, allLate = 0;
    int lateSeconds = 0;
    for (const Second& s : window_) {
        allCallbacks += s.callbacks;
        allLate += s.late;
        if (s.late > 0) ++lateSeconds;
    }
    const bool sustained = lateSeconds >= kLateSecondsToGrow && allLate * 1000 >= allCallbacks * kLatePerMille;
    if (sustained && frames_ < maxFrames_)
        return changeTo(std::min(frames_ * 2, maxFrames_),
                        std::to_string(allLate) + " of " + std::to_string(allCallbacks) + " callbacks late in the last " +
                            std::to_string(kWindowSeconds) + " s");
    if (quietSeconds_ >= kQuietSecondsToShrink && frames_ > startFrames_)
        return changeTo(std::max(frames_ / 2, startFrames_),
                        "no callback late for " + std::to_string(kQuietSecondsToShrink) + " s");
    return {};
}

PeriodPolicy::Change PeriodPolicy::changeTo(int frames, std::string reason) {
    frames_ = frames;
    // The new period is judged on its own seconds.
    window_.clear();
    quietSeconds_ = 0;
    return {frames, std::move(reason)};
}

}  // namespace tessaly::audio
