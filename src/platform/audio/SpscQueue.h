#pragma once
#include <array>
#include <atomic>
#include <cstddef>
#include <type_traits>

namespace tessaly::audio {

// A bounded lock-free queue for one producer thread and one consumer thread.
// Neither side allocates or blocks, so the audio callback may be either end.
template <typename T, std::size_t Capacity>
class SpscQueue {
    static_assert(std::is_trivially_copyable_v<T>);
    static_assert((Capacity & (Capacity - 1)) == 0, "capacity must be a power of two");

public:
    // False when the queue is full; the item is then not queued.
    bool push(const T& item) {
        const std::size_t tail = tail_.load(std::memory_order_relaxed);
        if (tail - head_.load(std::memory_order_acquire) == Capacity) return false;
        items_[tail & (Capacity - 1)] = item;
        tail_.store(tail + 1, std::memory_order_release);
        return true;
    }

    bool pop(T& item) {
        const std::size_t head = head_.load(std::memory_order_relaxed);
        if (head == tail_.load(std::memory_order_acquire)) return false;
        item = items_[head & (Capacity - 1)];
        head_.store(head + 1, std::memory_order_release);
        return true;
    }

    // The oldest item, left in the queue; false when there is none.
    bool peek(T& item) const {
        const std::size_t head = head_.load(std::memory_order_relaxed);
        if (head == tail_.load(std::memory_order_acquire)) return false;
        item = items_[head & (Capacity - 1)];
        return true;
    }

    // Drops the oldest item; only after a successful peek.
    void dropFront() { head_.store(head_.load(std::memory_order_relaxed) + 1, std::memory_order_release); }

    bool full() const {
        return tail_.load(std::memory_order_acquire) - head_.load(std::memory_order_acquire) == Capacity;
    }

private:
    std::array<T, Capacity> items_{};
    alignas(64) std::atomic<std::size_t> head_{0};
    alignas(64) std::atomic<std::size_t> tail_{0};
};

}  // namespace tessaly::audio
