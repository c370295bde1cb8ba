// Strong and weak references: lifetimes of object and count block, locking, and the race of a
// lock against the release of the last strong reference.
#include "rcWeakPtr.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace Zr {
namespace {

struct Tracked : RCSWBase {
    explicit Tracked(int* deaths) : _deaths(deaths) {}
    ~Tracked() override { ++*_deaths; }
    int* _deaths;
    int value = 7;
};

struct Derived : Tracked {
    using Tracked::Tracked;
};

TEST(RCWeakPtrTest, WeakDoesNotKeepTheObjectAlive) {
    int deaths = 0;
    RCStrongPtr<Tracked> strong(new Tracked(&deaths));
    RCWeakPtr<Tracked> weak(strong);
    EXPECT_EQ(strong->getWeakCount(), 1);
    {
        RCStrongPtr<Tracked> locked = weak.lock();
        ASSERT_FALSE(locked.isNull());
        EXPECT_EQ(locked->value, 7);
        EXPECT_EQ(strong->getStrongCount(), 2);
    }
    strong.reset();
    EXPECT_EQ(deaths, 1);
    EXPECT_TRUE(weak.expired());
    EXPECT_TRUE(weak.lock().isNull());
    // The copy of an expired weak pointer is expired too and frees the block cleanly.
    RCWeakPtr<Tracked> copy = weak;
    EXPECT_TRUE(copy.lock().isNull());
}

TEST(RCWeakPtrTest, StrongCopiesAndConversionsShareOneCount) {
    int deaths = 0;
    RCStrongPtr<Derived> derived(new Derived(&deaths));
    RCStrongPtr<Tracked> base = derived;
    RCStrongBasePtr<Tracked> plain = base;
    EXPECT_EQ(derived->getStrongCount(), 3);
    derived = RCStrongPtr<Derived>();
    base.reset();
    EXPECT_EQ(deaths, 0);
    plain.reset();
    EXPECT_EQ(deaths, 1);
    EXPECT_THROW(*derived, ExNullPtr);
}

TEST(RCWeakPtrTest, AccessorPinsTheTargetForItsSpanAndUnownedObjectsAreExpired) {
    int deaths = 0;
    RCStrongPtr<Tracked> strong(new Tracked(&deaths));
    RCWeakPtr<Tracked> weak(strong);
    {
        RCWeakAccessor<Tracked> access(weak);
        ASSERT_TRUE(access.isValid());
        strong.reset();
        EXPECT_EQ(deaths, 0);
        EXPECT_EQ(access->value, 7);
    }
    EXPECT_EQ(deaths, 1);
    RCWeakAccessor<Tracked> late(weak);
    EXPECT_FALSE(late.isValid());
    EXPECT_THROW((void)late->value, ExNullPtr);

    // A weak pointer to an object no one owns yet is expired.
    Tracked* raw = new Tracked(&deaths);
    RCWeakPtr<Tracked> unowned(raw);
    EXPECT_TRUE(unowned.lock().isNull());
    RCStrongPtr<Tracked> owner(raw); // takes ownership; frees the object at scope end
    EXPECT_FALSE(unowned.lock().isNull());
}

TEST(RCWeakPtrTest, LockRacingTheLastReleaseNeverRevivesTheObject) {
    for (int round = 0; round < 200; ++round) {
        std::atomic<int> deaths{0};
        int plainDeaths = 0;
        RCStrongPtr<Tracked> strong(new Tracked(&plainDeaths));
        RCWeakPtr<Tracked> weak(strong);
        std::atomic<bool> go{false};
        std::vector<std::thread> lockers;
        for (int t = 0; t < 3; ++t)
            lockers.emplace_back([&] {
                while (!go.load())
                    std::this_thread::yield();
                for (int i = 0; i < 200; ++i) {
                    RCStrongPtr<Tracked> p = weak.lock();
                    if (p.isNull())
                        break;
                    // A pinned object is whole: reading it is what ASan watches.
                    if (p->value != 7)
                        ++deaths;
                }
            });
        go = true;
        strong.reset();
        for (auto& t : lockers)
            t.join();
        EXPECT_EQ(deaths.load(), 0);
        EXPECT_EQ(plainDeaths, 1);
        EXPECT_TRUE(weak.expired());
    }
}

} // namespace
} // namespace Zr
