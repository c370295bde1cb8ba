// Named locks.
#include "lkLock.h"

#include <thread>
#include <utility>

namespace Zr {

LkLock::LkLock(std::string name) : _name(std::move(name)) {}

void LkLock::lock() {
    _mutex.lock();
}

void LkLock::unlock() {
    _mutex.unlock();
}

bool LkLock::tryLock() {
    return _mutex.try_lock();
}

void LkSpinLock::lock() {
    while (_flag.test_and_set(std::memory_order_acquire)) {
        // Read-only spin first: it keeps the cache line shared while someone else holds it.
        while (_flag.test(std::memory_order_relaxed))
            std::this_thread::yield();
    }
}

} // namespace Zr
