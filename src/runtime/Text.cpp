#include "runtime/Text.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tessaly {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// Collects the characters of a number, skipping blanks inside it as the
// tolerant conversion does ("1 2" is 12).
std::string compactNumber(std::string_view text, std::size_t& pos) {
    std::string out;
    bool seenDigit = false, seenPoint = false, seenExponent = false;
    while (pos < text.size()) {
        char c = text[pos];
        if (isBlank(c)) { ++pos; continue; }
        if (std::isdigit(static_cast<unsigned char>(c))) {
            seenDigit = true;
        } else if ((c == '+' || c == '-') &&
                   (out.empty() || out.back() == 'E')) {
            // sign at the start or right after the exponent letter
        } else if (c == '.' && !seenPoint && !seenExponent) {
            seenPoint = true;
        } else if ((c == 'e' || c == 'E' || c == 'd' || c == 'D') && seenDigit && !seenExponent) {
            seenExponent = true;
            c = 'E';
        } else {
            break;
        }
        out.push_back(c);
        ++pos;
    }
    return out;
}

double radixValue(std::string_view text, std::size_t pos, int radix) {
    unsigned long long value = 0;
    std::size_t digits = 0;
    for (; pos < text.size(); ++pos) {
        char c = static_cast<char>(std::toupper(static_cast<unsigned char>(text[pos])));
        int d = (c >= '0' && c <= '9') ? c - '0' : (c >= 'A' && c <= 'F') ? c - 'A' + 10 : 99;
        if (d >= radix) break;
        value = value * static_cast<unsigned>(radix) + static_cast<unsigned>(d);
        if (++digits > 16) break;
    }
    // Hexadecimal literals of up to four digits are 16-bit, of up to eight 32-bit.
    if (digits <= 4 && radix == 16 && value > 0x7FFF) return static_cast<double>(static_cast<int16_t>(value));
    if (digits <= 8 && value > 0x7FFFFFFF && value <= 0xFFFFFFFF)
        return static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(value)));
    return static_cast<double>(value);
}

}  // namespace

double numericValue(std::string_view text) {
    std::size_t pos = 0;
    while (pos < text.size() && isBlank(text[pos])) ++pos;
    if (pos + 1 < text.size() && text[pos] == '&') {
        char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(text[pos + 1])));
        if (kind == 'H') return radixValue(text, pos + 2, 16);
        if (kind == 'O') return radixValue(text, pos + 2, 8);
    }
    std::string number = compactNumber(text, pos);
    // Trim a dangling exponent or sign that has no digits after it.
    while (!number.empty() && (number.back() == 'E' || number.back() == '+' || number.back() == '-'))
        number.pop_back();
    if (number.empty()) return 0.0;
    char* end = nullptr;
    double value = std::strtod(number.c_str(), &end);
    if (!std::isfinite(value)) return 0.0;
    return value;
}

std::optional<double> exactNumericValue(std::string_view text) {
    std::size_t first = 0, last = text.size();
    while (first < last && isBlank(text[first])) ++first;
    while (last > first && isBlank(text[last - 1])) --last;
    std::string_view number = text.substr(first, last - first);
    if (number.empty()) return std::nullopt;
    if (number.size() > 2 && number[0] == '&') {
        char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(number[1])));
        int radix = kind == 'H' ? 16 : kind == 'O' ? 8 : 0;
        if (radix == 0) return std::nullopt;
        for (char c : number.substr(2)) {
            char u = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
            int d = (u >= '0' && u <= '9') ? u - '0' : (u >= 'A' && u <= 'F') ? u - 'A' + 10 : 99;
            if (d >= radix) return std::nullopt;
        }
        return radixValue(number, 2, radix);
    }
    std::size_t i = 0;
    auto digits = [&] {
        std::size_t start = i;
        while (i < number.size() && std::isdigit(static_cast<unsigned char>(number[i]))) ++i;
        return i - start;
    };
    if (number[i] == '+' || number[i] == '-') ++i;
    std::size_t mantissa = digits();
    if (i < number.size() && number[i] == '.') {
        ++i;
        mantissa += digits();
    }
    if (mantissa == 0) return std::nullopt;
    if (i < number.size() && std::string_view("eEdD").find(number[i]) != std::string_view::npos) {
        ++i;
        if (i < number.size() && (number[i] == '+' || number[i] == '-')) ++i;
        if (digits() == 0) return std::nullopt;
    }
    if (i != number.size()) return std::nullopt;
    std::string plain(number);
    for (char& c : plain)
        if (c == 'd' || c == 'D') c = 'E';
    // Too large a number reads as infinite: the narrowing that follows overflows.
    return std::strtod(plain.c_str(), nullptr);
}

std::string hexText(long long value) {
    char buffer[24];
    if (value < 0 && value >= -32768)
        std::snprintf(buffer, sizeof buffer, "%X", static_cast<unsigned>(static_cast<uint16_t>(value)));
    else
        std::snprintf(buffer, sizeof buffer, "%X", static_cast<unsigned>(static_cast<uint32_t>(value)));
    return buffer;
}

std::string numberText(long long value) {
    std::string digits = std::to_string(value);
    return value < 0 ? digits : " " + digits;
}

std::string numberText(double value) {
    if (value == std::floor(value) && std::fabs(value) < 1e15)
        return numberText(static_cast<long long>(value));
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.15G", std::fabs(value));
    std::string digits = buffer;
    if (digits.rfind("0.", 0) == 0) digits.erase(0, 1);  // " .5", not " 0.5"
    return (value < 0 ? "-" : " ") + digits;
}

std::size_t charLength(std::string_view text) {
    std::size_t n = 0;
    for (char c : text)
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++n;
    return n;
}

std::size_t byteOffsetOfChar(std::string_view text, std::size_t chars) {
    std::size_t pos = 0;
    while (pos < text.size() && chars > 0) {
        ++pos;
        while (pos < text.size() && (static_cast<unsigned char>(text[pos]) & 0xC0) == 0x80) ++pos;
        --chars;
    }
    return pos;
}

std::string charSubstr(std::string_view text, std::size_t start, std::size_t count) {
    std::size_t from = byteOffsetOfChar(text, start);
    std::string_view rest = text.substr(from);
    std::size_t to = count == std::string::npos ? rest.size() : byteOffsetOfChar(rest, count);
    return std::string(rest.substr(0, to));
}

}  // namespace tessaly
