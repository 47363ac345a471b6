#pragma once
#include <array>
#include <cstddef>
#include <string>

#include "runtime/FatalFailure.h"

namespace tessaly {

// A table of fixed bounds Lo..Hi. An index outside the bounds is a fatal
// failure, never a resize and never undefined behaviour.
template <typename T, long Lo, long Hi>
class FixedTable {
    static_assert(Hi >= Lo);

public:
    static constexpr long lower = Lo;
    static constexpr long upper = Hi;
    static constexpr std::size_t size = static_cast<std::size_t>(Hi - Lo + 1);

    T& operator[](long i) { return data_[slot(i)]; }
    const T& operator[](long i) const { return data_[slot(i)]; }

    void fill(const T& value) { data_.fill(value); }
    auto begin() { return data_.begin(); }
    auto end() { return data_.end(); }
    auto begin() const { return data_.begin(); }
    auto end() const { return data_.end(); }

    static bool inBounds(long i) { return i >= Lo && i <= Hi; }

private:
    static std::size_t slot(long i) {
        if (!inBounds(i))
            throw FatalFailure(FailureKind::SubscriptOutOfRange, std::to_string(i));
        return static_cast<std::size_t>(i - Lo);
    }
    std::array<T, size> data_{};
};

// A two-dimensional table, rows Lo1..Hi1 by columns Lo2..Hi2.
template <typename T, long Lo1, long Hi1, long Lo2, long Hi2>
class FixedTable2 {
public:
    T& operator()(long i, long j) { return rows_[i][j]; }
    const T& operator()(long i, long j) const { return rows_[i][j]; }
    FixedTable<T, Lo2, Hi2>& operator[](long i) { return rows_[i]; }
    const FixedTable<T, Lo2, Hi2>& operator[](long i) const { return rows_[i]; }

private:
    FixedTable<FixedTable<T, Lo2, Hi2>, Lo1, Hi1> rows_{};
};

}  // namespace tessaly
