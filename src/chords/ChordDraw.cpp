#include "chords/ChordDraw.h"

#include "platform/EventLoop.h"
#include "runtime/Arithmetic.h"

namespace tessaly {

namespace {

// SplitMix64: one well-mixed 64-bit value from any seed.
uint64_t mix(uint64_t z) {
    z += 0x9E3779B97F4A7C15ull;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

}  // namespace

double ChordDraw::clockSeededUniform() {
    state_ = mix(state_ ^ (static_cast<uint64_t>(clock_.nowMs()) << 20));
    return static_cast<double>(state_ >> 11) * 0x1.0p-53;
}

long ChordDraw::draw(long m) {
    const double x = uniform ? uniform() : clockSeededUniform();
    return static_cast<long>(roundHalfEven(x * static_cast<double>(m - 1) + 1));
}

}  // namespace tessaly
