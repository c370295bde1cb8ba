// Replaces the global allocation functions to count allocations and live heap bytes, so that a
// benchmark can report what an operation allocates. Include it in exactly one file per program.
#pragma once

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

// The replaced operators pair malloc with free; GCC can't see that through inlining.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

namespace BenchAllocations {
inline std::atomic<long> count{0};
// Live heap bytes, as the allocator sized the blocks.
inline std::atomic<long> liveBytes{0};
} // namespace BenchAllocations

void* operator new(std::size_t size) {
    void* p = std::malloc(size ? size : 1);
    if (!p)
        throw std::bad_alloc();
    BenchAllocations::count.fetch_add(1, std::memory_order_relaxed);
    BenchAllocations::liveBytes.fetch_add(static_cast<long>(malloc_usable_size(p)),
                                          std::memory_order_relaxed);
    return p;
}
void operator delete(void* p) noexcept {
    if (p)
        BenchAllocations::liveBytes.fetch_sub(static_cast<long>(malloc_usable_size(p)),
                                              std::memory_order_relaxed);
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    operator delete(p);
}
