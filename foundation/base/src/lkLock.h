// Locks: LkLock, a named mutex, with its scope guard LkLockGuard, and LkSpinLock, a named
// compare-and-swap lock that needs no construction at run time (for static start-up paths).
#pragma once

#include <atomic>
#include <mutex>
#include <string>

namespace Zr {

// A mutex with a name, so that a lock seen in a debugger or a report says what it guards.
// Meets the standard Lockable requirements: std::unique_lock and std::condition_variable_any
// accept it.
class LkLock {
public:
    explicit LkLock(std::string name = std::string());
    LkLock(LkLock const&) = delete;
    LkLock& operator=(LkLock const&) = delete;

    void lock();
    void unlock();
    bool tryLock();
    bool try_lock() { return tryLock(); }

    std::string const& getName() const { return _name; }

private:
    std::mutex _mutex;
    std::string _name;
};

// Holds an LkLock for the span of a scope.
class LkLockGuard {
public:
    explicit LkLockGuard(LkLock& lock) : _lock(lock) { _lock.lock(); }
    ~LkLockGuard() { _lock.unlock(); }
    LkLockGuard(LkLockGuard const&) = delete;
    LkLockGuard& operator=(LkLockGuard const&) = delete;

private:
    LkLock& _lock;
};

// A lock taken by compare-and-swap on an atomic flag. Its constructor is constexpr, so a
// static LkSpinLock is ready before any code runs: static initialisation order cannot bite.
// Waiters yield their time slice, so holding it across a slow piece of work is acceptable.
class LkSpinLock {
public:
    constexpr explicit LkSpinLock(char const* name) : _name(name) {}
    LkSpinLock(LkSpinLock const&) = delete;
    LkSpinLock& operator=(LkSpinLock const&) = delete;

    void lock();
    void unlock() { _flag.clear(std::memory_order_release); }
    bool tryLock() { return !_flag.test_and_set(std::memory_order_acquire); }
    bool try_lock() { return tryLock(); }

    char const* getName() const { return _name; }

private:
    std::atomic_flag _flag;
    char const* _name;
};

} // namespace Zr
