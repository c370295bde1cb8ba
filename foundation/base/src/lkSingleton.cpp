// The exit-time destroyer of the singletons.
#include "lkSingleton.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace Zr {

namespace {

struct Entry {
    void const* key;
    LkSingletonDestroyer::DestroyFunction destroy;
};

struct DestroyerList {
    LkLock lock{LkSingletonDestroyer::getLockName()};
    std::vector<Entry> entries;
};

// Built on the first registration, before the first exit handler is registered, so it
// outlives every handler.
DestroyerList& destroyerList() {
    static DestroyerList list;
    return list;
}

} // namespace

void LkSingletonDestroyer::registerSingleton(void const* key, DestroyFunction destroy) {
    DestroyerList& list = destroyerList();
    {
        LkLockGuard guard(list.lock);
        list.entries.push_back({key, destroy});
    }
    std::atexit(&LkSingletonDestroyer::exitHandler);
}

void LkSingletonDestroyer::unregisterSingleton(void const* key) {
    DestroyerList& list = destroyerList();
    LkLockGuard guard(list.lock);
    auto it = std::find_if(list.entries.begin(), list.entries.end(),
                           [key](Entry const& e) { return e.key == key; });
    if (it != list.entries.end())
        list.entries.erase(it);
}

bool LkSingletonDestroyer::destroyNewest() {
    DestroyerList& list = destroyerList();
    Entry entry;
    {
        LkLockGuard guard(list.lock);
        if (list.entries.empty())
            return false;
        entry = list.entries.back();
        list.entries.pop_back();
    }
    // Outside the lock: the destructor may create or destroy other singletons.
    entry.destroy();
    return true;
}

void LkSingletonDestroyer::destroyAll() {
    while (destroyNewest()) {
    }
}

int LkSingletonDestroyer::getNbLiveSingletons() {
    DestroyerList& list = destroyerList();
    LkLockGuard guard(list.lock);
    return static_cast<int>(list.entries.size());
}

void LkSingletonDestroyer::exitHandler() {
    try {
        destroyNewest();
    } catch (ExBase const& ex) {
        ExStdout::printAtomically("Singleton destruction failed at exit: " + ex.getReason());
    } catch (...) {
        ExStdout::printAtomically("Singleton destruction failed at exit");
    }
}

} // namespace Zr
