#include "platform/audio/BlockClock.h"

#include <cmath>
#include <numbers>

namespace tessaly::audio {

namespace {
// Bandwidth of the loop in hertz: slow enough to average out scheduling
// jitter over many blocks, fast enough to follow a device clock that differs
// from the steady clock by a fraction of a percent.
constexpr double kBandwidthHz = 0.5;
// Requests further than this many periods from the prediction restart the loop.
constexpr double kRestartPeriods = 8.0;
}  // namespace

int BlockSpan::frameOf(int64_t sentNs, int frames) const {
    if (!timed() || sentNs < startNs) return 0;
    if (sentNs >= endNs) return -1;
    const auto frame = static_cast<int>((sentNs - startNs) * frames / (endNs - startNs));
    return frame < frames ? frame : frames - 1;
}

BlockSpan BlockClock::next(int64_t nowNs, int64_t nominalPeriodNs) {
    const double error = static_cast<double>(nowNs) - nextEnd_;
    if (!started_ || std::fabs(error) > kRestartPeriods * static_cast<double>(nominalPeriodNs)) {
        started_ = true;
        periodNs_ = static_cast<double>(nominalPeriodNs);
        blockEnd_ = nowNs;
        nextEnd_ = static_cast<double>(nowNs) + periodNs_;
        return {nowNs - nominalPeriodNs, nowNs};
    }
    // Second-order loop: b corrects the phase, c the period.
    const double omega = 2.0 * std::numbers::pi * kBandwidthHz * periodNs_ * 1e-9;
    const double b = std::numbers::sqrt2 * omega;
    const double c = omega * omega;
    const int64_t start = blockEnd_;
    blockEnd_ = static_cast<int64_t>(nextEnd_);
    nextEnd_ += b * error + periodNs_;
    periodNs_ += c * error;
    return {start, blockEnd_};
}

}  // namespace tessaly::audio
