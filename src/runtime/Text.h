#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessaly {

// The tolerant numeric value of a text: blanks are skipped, an optional sign,
// digits with a decimal point and exponent, or "&H"/"&O" prefixed integers;
// reading stops at the first character that cannot belong to the number.
// A text with no number in front is 0.
double numericValue(std::string_view text);

// The value of a text that is a number and nothing else, as a conversion
// (not the tolerant reading above) takes it: blanks around it, an optional
// sign, digits with a decimal point and exponent, or "&H"/"&O" integers.
// Empty when the text is not such a number.
std::optional<double> exactNumericValue(std::string_view text);

// Upper-case hexadecimal, no prefix. Values in 16-bit range that are negative
// print as four digits of their two's complement, others as eight.
std::string hexText(long long value);

// A number's general text form: a leading blank where a sign would stand for a
// value that is not negative (" 89", "-5", " .5").
std::string numberText(long long value);
std::string numberText(double value);

// UTF-8 strings counted in characters, as the user sees them.
std::size_t charLength(std::string_view text);
// Byte offset of character index `chars` (clamped to the end).
std::size_t byteOffsetOfChar(std::string_view text, std::size_t chars);
// Characters [start, start + count) of the text, clamped to its end.
std::string charSubstr(std::string_view text, std::size_t start, std::size_t count = std::string::npos);

}  // namespace tessaly
