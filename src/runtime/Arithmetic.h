#pragma once
#include <cstdint>

namespace tessaly {

// 16-bit truth values: true is -1.
constexpr int16_t kTrue = -1;
constexpr int16_t kFalse = 0;
constexpr int16_t truth(bool b) { return b ? kTrue : kFalse; }

// Narrows to 16 signed bits; a value that does not fit is a fatal overflow.
int16_t toInt16(long long value);

// The product formed in 16 signed bits, fatal when it overflows.
int16_t multiply16(int16_t a, int16_t b);

// Rounds to the nearest integer, halves to the even neighbour (2.5 -> 2, 3.5 -> 4).
double roundHalfEven(double value);

// Rounds half to even and narrows to 16 bits, fatal on overflow.
int16_t roundToInt16(double value);

// Integer division and remainder, truncating toward zero; a zero divisor is
// the fatal division failure, never a signal.
long long integerDivide(long long dividend, long long divisor);
long long integerRemainder(long long dividend, long long divisor);

// Narrows to 32 signed bits, fatal on overflow.
int32_t toInt32(long long value);

}  // namespace tessaly
