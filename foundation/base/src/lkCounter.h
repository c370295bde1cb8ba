// LkCounter, the atomic counter behind every shared reference count.
#pragma once

#include <atomic>

namespace Zr {

template <class T>
class LkCounter {
public:
    explicit LkCounter(T value = T()) : _value(value) {}
    LkCounter(LkCounter const&) = delete;
    LkCounter& operator=(LkCounter const&) = delete;

    T increment() { return _value.fetch_add(1, std::memory_order_relaxed) + 1; }
    // Acquire-release on the way down: the thread that reaches zero, and deletes, sees every
    // write that other owners made before they let go. A release decrement followed by a
    // standalone acquire fence would order the same on its own, but ThreadSanitizer does not
    // model fences (GCC refuses -fsanitize=thread next to one under -Werror), so the ordering
    // lives on the operation itself.
    T decrement() { return _value.fetch_sub(1, std::memory_order_acq_rel) - 1; }
    // Increments unless the value is zero, in one atomic step; returns whether it did. A weak
    // reference uses it to take a strong one only while the object still lives.
    bool incrementIfNotZero() {
        T v = _value.load(std::memory_order_relaxed);
        while (v != 0) {
            if (_value.compare_exchange_weak(v, v + 1, std::memory_order_acquire,
                                             std::memory_order_relaxed))
                return true;
        }
        return false;
    }
    T get() const { return _value.load(std::memory_order_relaxed); }
    void set(T v) { _value.store(v, std::memory_order_relaxed); }

private:
    std::atomic<T> _value;
};

} // namespace Zr
