// LkSingleton<T>, a lazily built process-wide instance, and LkSingletonDestroyer, which
// destroys the singletons still alive at process exit, newest first.
#pragma once

#include "exBase.h"
#include "inPackageInit.h"
#include "lkLock.h"
#include "rcBase.h"

#include <atomic>
#include <typeinfo>

namespace Zr {

// getInstance on a destroyed singleton raises InSingletonEx::ExAlreadyDestroyed; the older
// name LkSingletonEx stays for callers written against it.
using LkSingletonEx = InSingletonEx;

// Keeps the live singletons in order of creation. Each creation also registers an exit
// handler; the handlers run in reverse order of registration and each destroys the newest
// singleton still alive, so a singleton goes before anything static that existed before it
// was made (the same lifetime a function-local static would have) and singletons go in
// reverse order of creation. The list is guarded by the lock "LkSingletonDestroyer final lock".
class LkSingletonDestroyer {
public:
    using DestroyFunction = void (*)();

    // Called once a singleton has been built; `key` identifies it for unregisterSingleton.
    static void registerSingleton(void const* key, DestroyFunction destroy);
    // Called when a singleton is destroyed by hand; a key not in the list is ignored.
    static void unregisterSingleton(void const* key);
    // Destroys every live singleton, newest first. Runs at exit; tests may call it.
    static void destroyAll();
    static int getNbLiveSingletons();
    static char const* getLockName() { return "LkSingletonDestroyer final lock"; }

private:
    // Destroys the newest live singleton, if any.
    static bool destroyNewest();
    static void exitHandler();
};

// The process-wide instance of T, built on the first getInstance with `new T()`. T may keep
// its constructor private and befriend LkSingleton<T>. All state is constant-initialised, so
// getInstance is safe from static constructors and from any thread; the first call builds
// under the spin lock "LkSingleton init lock", later calls read one atomic pointer.
template <class T>
class LkSingleton {
public:
    enum State { UNINITIALIZED, INITIALIZED, DESTROYED };

    static T& getInstance() {
        T* p = _pointee.load(std::memory_order_acquire);
        if (p)
            return *p;
        return create();
    }

    // The instance, which must exist already; never builds it.
    static T& getExistingInstance() {
        T* p = _pointee.load(std::memory_order_acquire);
        ZR_ASSERT_TEXT(p != nullptr, "_pointee != 0");
        return *p;
    }

    static bool isInitialized() { return _state.load(std::memory_order_acquire) == INITIALIZED; }
    static State getState() { return _state.load(std::memory_order_acquire); }
    static char const* getStateName() {
        switch (getState()) {
        case UNINITIALIZED:
            return "UNINITIALIZED";
        case INITIALIZED:
            return "INITIALIZED";
        case DESTROYED:
            return "DESTROYED";
        }
        return "UNINITIALIZED";
    }

    // Deletes the instance, if any; from then on getInstance raises ExAlreadyDestroyed.
    // The destructor runs outside the init lock, so it may use other singletons.
    static void destroy() {
        _initLock.lock();
        T* p = _pointee.exchange(nullptr, std::memory_order_acq_rel);
        _state.store(DESTROYED, std::memory_order_release);
        _initLock.unlock();
        if (p) {
            LkSingletonDestroyer::unregisterSingleton(key());
            delete p;
        }
    }

    LkSingleton() = delete;

private:
    static void const* key() { return &_pointee; }

    static T& create() {
        ZR_ASSERT_TEXT(!_creatingHere, "LkSingleton created recursively");
        _initLock.lock();
        struct Unlock {
            ~Unlock() {
                _creatingHere = false;
                _initLock.unlock();
            }
        } unlock;
        _creatingHere = true;
        if (T* p = _pointee.load(std::memory_order_acquire))
            return *p; // another thread built it while this one waited
        if (_state.load(std::memory_order_acquire) == DESTROYED) {
            throw InSingletonEx::ExAlreadyDestroyed(__FILE__, __LINE__,
                                                    "Singleton already destroyed: " +
                                                        RCExUtil::demangle(typeid(T).name()));
        }
        ZR_ASSERT_TEXT(_state.load() == UNINITIALIZED, "_state == UNINITIALIZED");
        ZR_ASSERT_TEXT(_pointee.load() == nullptr, "_pointee == 0");
        T* p = new T();
        LkSingletonDestroyer::registerSingleton(key(), &destroy);
        _state.store(INITIALIZED, std::memory_order_release);
        _pointee.store(p, std::memory_order_release);
        return *p;
    }

    inline static std::atomic<T*> _pointee{nullptr};
    inline static std::atomic<State> _state{UNINITIALIZED};
    inline static LkSpinLock _initLock{"LkSingleton init lock"};
    // Set while this thread runs T's constructor: a constructor that asks for its own
    // instance would otherwise wait for itself forever.
    inline static thread_local bool _creatingHere = false;
};

} // namespace Zr
