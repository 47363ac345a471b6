#pragma once
#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "runtime/FatalFailure.h"

namespace tessaly {

// A large two-dimensional table of fixed bounds 0..LastRow by 0..LastColumn
// whose storage is made in chunks of rows as they are first touched, reads
// included: an untouched entry reads as T's default. An index outside the
// bounds is a fatal failure, as with FixedTable. References stay valid for
// the table's life.
template <typename T, long LastRow, long LastColumn, long ChunkRows = 256>
class ChunkedTable2 {
    static constexpr long kColumns = LastColumn + 1;
    static constexpr long kChunks = (LastRow + ChunkRows) / ChunkRows;
    using Chunk = std::array<T, static_cast<std::size_t>(ChunkRows * kColumns)>;

public:
    static constexpr long lastRow = LastRow;
    static constexpr long lastColumn = LastColumn;

    ChunkedTable2() = default;
    ChunkedTable2(const ChunkedTable2& other) { *this = other; }
    // Copies entry by entry into the chunks this table has, so that
    // references into it stay valid.
    ChunkedTable2& operator=(const ChunkedTable2& other) {
        if (this == &other) return *this;
        if (chunks_.empty()) chunks_.resize(static_cast<std::size_t>(kChunks));
        for (std::size_t i = 0; i < chunks_.size(); ++i) {
            const Chunk* from = i < other.chunks_.size() ? other.chunks_[i].get() : nullptr;
            if (from && !chunks_[i]) chunks_[i] = std::make_unique<Chunk>(*from);
            else if (from) *chunks_[i] = *from;
            else if (chunks_[i]) chunks_[i]->fill(T{});
        }
        return *this;
    }

    T& operator()(long row, long column) { return at(row, column); }
    const T& operator()(long row, long column) const { return at(row, column); }

    static bool inBounds(long row, long column) {
        return row >= 0 && row <= LastRow && column >= 0 && column <= LastColumn;
    }

private:
    T& at(long row, long column) const {
        if (row < 0 || row > LastRow) throw FatalFailure(FailureKind::SubscriptOutOfRange, std::to_string(row));
        if (column < 0 || column > LastColumn)
            throw FatalFailure(FailureKind::SubscriptOutOfRange, std::to_string(column));
        if (chunks_.empty()) chunks_.resize(static_cast<std::size_t>(kChunks));
        auto& chunk = chunks_[static_cast<std::size_t>(row / ChunkRows)];
        if (!chunk) chunk = std::make_unique<Chunk>();
        return (*chunk)[static_cast<std::size_t>((row % ChunkRows) * kColumns + column)];
    }

    // Chunks are made on reads too, so that every entry has one address.
    mutable std::vector<std::unique_ptr<Chunk>> chunks_;
};

}  // namespace tessaly
