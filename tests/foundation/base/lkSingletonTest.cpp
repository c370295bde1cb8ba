// Singletons: built once under contention, destroyed on request, and the named locks. A
// singleton's state lasts as long as the process, so each test of a singleton's life runs in a
// new process of this program: the tests hold in any order and under --gtest_repeat.
#include "lkSingleton.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

namespace Zr {
namespace {

std::atomic<int> gConstructions{0};
std::atomic<int> gDestructions{0};

class SlowToBuild {
    friend class LkSingleton<SlowToBuild>;
    SlowToBuild() {
        ++gConstructions;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }

public:
    int value = 42;
};

class Destroyable {
    friend class LkSingleton<Destroyable>;
    Destroyable() = default;

public:
    ~Destroyable() { ++gDestructions; }
};

class FailsOnce {
    friend class LkSingleton<FailsOnce>;
    FailsOnce() {
        if (_attempts++ == 0)
            throw std::runtime_error("first attempt fails");
    }
    inline static int _attempts = 0;
};

class AsksForItself {
    friend class LkSingleton<AsksForItself>;
    AsksForItself() { LkSingleton<AsksForItself>::getInstance(); }
};

template <int N>
class Ordered {
    friend class LkSingleton<Ordered<N>>;
    Ordered() = default;

public:
    ~Ordered() { std::fprintf(stderr, "destroyed %d\n", N); }
};

// Runs `body` in a new process of this test program, where every singleton is still unbuilt;
// the child's failures are printed by it and fail the test through its exit status.
template <class Body>
void inNewProcess(Body body) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            body();
            std::exit(::testing::Test::HasFailure() ? 1 : 0);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST(LkSingletonTest, IsBuiltOnceUnderContention) {
    inNewProcess([] {
        EXPECT_FALSE(LkSingleton<SlowToBuild>::isInitialized());
        EXPECT_STREQ(LkSingleton<SlowToBuild>::getStateName(), "UNINITIALIZED");
        std::vector<std::thread> threads;
        std::vector<SlowToBuild*> seen(8, nullptr);
        for (int i = 0; i < 8; ++i)
            threads.emplace_back(
                [&seen, i] { seen[i] = &LkSingleton<SlowToBuild>::getInstance(); });
        for (auto& t : threads)
            t.join();
        EXPECT_EQ(gConstructions.load(), 1);
        for (SlowToBuild* p : seen)
            EXPECT_EQ(p, seen[0]);
        EXPECT_EQ(seen[0]->value, 42);
        EXPECT_TRUE(LkSingleton<SlowToBuild>::isInitialized());
        EXPECT_STREQ(LkSingleton<SlowToBuild>::getStateName(), "INITIALIZED");
    });
}

TEST(LkSingletonTest, GetInstanceAfterDestroyThrows) {
    inNewProcess([] {
        LkSingleton<Destroyable>::getInstance();
        int live = LkSingletonDestroyer::getNbLiveSingletons();
        LkSingleton<Destroyable>::destroy();
        EXPECT_EQ(gDestructions.load(), 1);
        EXPECT_EQ(LkSingletonDestroyer::getNbLiveSingletons(), live - 1);
        EXPECT_STREQ(LkSingleton<Destroyable>::getStateName(), "DESTROYED");
        EXPECT_FALSE(LkSingleton<Destroyable>::isInitialized());
        EXPECT_THROW(LkSingleton<Destroyable>::getInstance(), InSingletonEx::ExAlreadyDestroyed);
        // A second destroy is harmless and deletes nothing.
        LkSingleton<Destroyable>::destroy();
        EXPECT_EQ(gDestructions.load(), 1);
    });
}

TEST(LkSingletonTest, ExistingInstanceIsNotBuiltOnDemand) {
    inNewProcess([] {
        struct NeverBuilt {};
        try {
            LkSingleton<NeverBuilt>::getExistingInstance();
            FAIL() << "expected an assertion";
        } catch (ExAssertionFailed const& ex) {
            EXPECT_EQ(ex.getReason(), "_pointee != 0");
        }
        EXPECT_FALSE(LkSingleton<NeverBuilt>::isInitialized());
    });
}

TEST(LkSingletonTest, FailedConstructionCanBeRetried) {
    inNewProcess([] {
        EXPECT_THROW(LkSingleton<FailsOnce>::getInstance(), std::runtime_error);
        EXPECT_STREQ(LkSingleton<FailsOnce>::getStateName(), "UNINITIALIZED");
        EXPECT_NO_THROW(LkSingleton<FailsOnce>::getInstance());
        EXPECT_TRUE(LkSingleton<FailsOnce>::isInitialized());
    });
}

TEST(LkSingletonTest, ConstructorAskingForItselfIsReportedNotDeadlocked) {
    inNewProcess([] {
        EXPECT_THROW(LkSingleton<AsksForItself>::getInstance(), ExAssertionFailed);
        EXPECT_FALSE(LkSingleton<AsksForItself>::isInitialized());
    });
}

// The destroyer runs at exit, so the order is watched in a child process that exits.
TEST(LkSingletonDeathTest, ExitDestroysLiveSingletonsNewestFirst) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            LkSingleton<Ordered<1>>::getInstance();
            LkSingleton<Ordered<2>>::getInstance();
            LkSingleton<Ordered<3>>::getInstance();
            LkSingleton<Ordered<2>>::destroy();
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), "destroyed 2\ndestroyed 3\ndestroyed 1\n");
}

TEST(LkLockTest, NamedLocksGuardAndRelease) {
    LkLock lock("table lock");
    EXPECT_EQ(lock.getName(), "table lock");
    {
        LkLockGuard guard(lock);
        std::thread other([&lock] { EXPECT_FALSE(lock.tryLock()); });
        other.join();
    }
    EXPECT_TRUE(lock.tryLock());
    lock.unlock();

    static LkSpinLock spin("LkSingleton init lock");
    EXPECT_STREQ(spin.getName(), "LkSingleton init lock");
    int counter = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&counter] {
            for (int i = 0; i < 1000; ++i) {
                spin.lock();
                ++counter;
                spin.unlock();
            }
        });
    for (auto& t : threads)
        t.join();
    EXPECT_EQ(counter, 4000);
}

} // namespace
} // namespace Zr
