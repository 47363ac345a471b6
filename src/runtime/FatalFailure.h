#pragma once
#include <stdexcept>
#include <string>

namespace tessaly {

// The kinds of run-time failure that end the program unless a handler traps
// them: an index beyond a fixed table, an overflow of a 16-bit value, a text
// that will not convert, a call the platform refuses, a division by zero.
enum class FailureKind { SubscriptOutOfRange, Overflow, TypeMismatch, InvalidCall, DivisionByZero };

class FatalFailure : public std::runtime_error {
public:
    explicit FatalFailure(FailureKind kind, const std::string& detail = {});
    FailureKind kind() const { return kind_; }

private:
    FailureKind kind_;
};

// The words shown to the user for each kind, as a run-time error would name it.
const char* failureText(FailureKind kind);

}  // namespace tessaly
