#include "runtime/Arithmetic.h"

#include <cmath>
#include <limits>

#include "runtime/FatalFailure.h"

namespace tessaly {

int16_t toInt16(long long value) {
    if (value < std::numeric_limits<int16_t>::min() || value > std::numeric_limits<int16_t>::max())
        throw FatalFailure(FailureKind::Overflow, std::to_string(value));
    return static_cast<int16_t>(value);
}

int32_t toInt32(long long value) {
    if (value < std::numeric_limits<int32_t>::min() || value > std::numeric_limits<int32_t>::max())
        throw FatalFailure(FailureKind::Overflow, std::to_string(value));
    return static_cast<int32_t>(value);
}

long long integerDivide(long long dividend, long long divisor) {
    if (divisor == 0) throw FatalFailure(FailureKind::DivisionByZero);
    return dividend / divisor;
}

long long integerRemainder(long long dividend, long long divisor) {
    if (divisor == 0) throw FatalFailure(FailureKind::DivisionByZero);
    return dividend % divisor;
}

int16_t multiply16(int16_t a, int16_t b) {
    return toInt16(static_cast<long long>(a) * b);
}

double roundHalfEven(double value) {
    double below = std::floor(value);
    double fraction = value - below;
    if (fraction > 0.5) return below + 1.0;
    if (fraction < 0.5) return below;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

int16_t roundToInt16(double value) {
    double rounded = roundHalfEven(value);
    if (!std::isfinite(rounded) || rounded < std::numeric_limits<int16_t>::min() ||
        rounded > std::numeric_limits<int16_t>::max())
        throw FatalFailure(FailureKind::Overflow);
    return static_cast<int16_t>(rounded);
}

}  // namespace tessaly
