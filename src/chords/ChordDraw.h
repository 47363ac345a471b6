#pragma once
#include <cstdint>
#include <functional>

namespace tessaly {

class EventLoop;

// The draw of an integer from 1 to m for the chord page: the generator is
// re-seeded from the clock at every draw, x is uniform in [0, 1), and
// x * (m - 1) + 1 is rounded half to even, so the two ends come up half as
// often as the values between them.
class ChordDraw {
public:
    explicit ChordDraw(EventLoop& clock) : clock_(clock) {}

    long draw(long m);

    // Tests may give the uniform numbers themselves.
    std::function<double()> uniform;

private:
    double clockSeededUniform();

    EventLoop& clock_;
    // The clock is mixed into what the generator last held, so that draws
    // within one millisecond still differ.
    uint64_t state_ = 0x9E3779B97F4A7C15ull;
};

}  // namespace tessaly
