// Alarms: firing after the duration, repeats, deregistration races, and the sleepers.
#include "mtAlarmManager.h"
#include "sleeper.h"

#include "support/testSupport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

namespace Zr {
namespace {

using Clock = std::chrono::steady_clock;

using TestSupport::waitFor;

RCShdPtr<MtAlarmHandle> makeAlarm(double seconds, std::atomic<int>& count, int repeats = 0) {
    RCShdPtr<MtAlarmHandle> h(new MtAlarmHandle("test alarm"));
    h->setDuration(seconds);
    h->setRequestedRepeats(repeats);
    h->setCallback([&count](MtAlarmHandle&) { ++count; });
    return h;
}

TEST(MtAlarmManagerTest, FiresOnceAfterItsDurationOnTheAlarmThread) {
    std::atomic<int> count{0};
    std::thread::id firedOn;
    RCShdPtr<MtAlarmHandle> h(new MtAlarmHandle("once"));
    h->setDuration(0.05);
    h->setCallback([&](MtAlarmHandle& fired) {
        firedOn = std::this_thread::get_id();
        EXPECT_EQ(&fired, h.get());
        EXPECT_TRUE(fired.hasOccurred());
        ++count;
    });
    auto start = Clock::now();
    MtAlarmManager::getInstance().registerAlarm(h);
    EXPECT_FALSE(h->hasOccurred());
    ASSERT_TRUE(waitFor([&] { return count.load() == 1; }));
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(50));
    EXPECT_NE(firedOn, std::this_thread::get_id());
    EXPECT_TRUE(waitFor([&] { return !h->isRegistered(); }));
    EXPECT_TRUE(h->hasOccurred());
    std::this_thread::sleep_for(std::chrono::milliseconds(120));
    EXPECT_EQ(count.load(), 1);
}

TEST(MtAlarmManagerTest, DeregisteredAlarmDoesNotFire) {
    std::atomic<int> count{0};
    auto h = makeAlarm(0.05, count);
    MtAlarmManager::getInstance().registerAlarm(h);
    MtAlarmManager::getInstance().deregisterAlarm(h);
    EXPECT_FALSE(h->isRegistered());
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    EXPECT_EQ(count.load(), 0);
}

TEST(MtAlarmManagerTest, RepeatsTheRequestedNumberOfTimes) {
    std::atomic<int> count{0};
    auto h = makeAlarm(0.01, count, 2);
    MtAlarmManager::getInstance().registerAlarm(h);
    ASSERT_TRUE(waitFor([&] { return !h->isRegistered(); }));
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(count.load(), 3);
    EXPECT_EQ(h->getNbOccurrences(), 3);

    // Re-registering re-arms the alarm and forgets the earlier firings.
    count = 0;
    h->setRequestedRepeats(0);
    MtAlarmManager::getInstance().registerAlarm(h);
    EXPECT_FALSE(h->hasOccurred());
    ASSERT_TRUE(waitFor([&] { return count.load() == 1; }));
}

TEST(MtAlarmManagerTest, EndlessRepeatsStopAtDeregistration) {
    std::atomic<int> count{0};
    auto h = makeAlarm(0.002, count, -1);
    MtAlarmManager::getInstance().registerAlarm(h);
    ASSERT_TRUE(waitFor([&] { return count.load() >= 5; }));
    MtAlarmManager::getInstance().deregisterAlarm(h);
    int after = count.load();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    EXPECT_EQ(count.load(), after);
}

TEST(MtAlarmManagerTest, DeregisterWaitsForARunningCallback) {
    std::atomic<bool> inside{false};
    std::atomic<bool> finished{false};
    RCShdPtr<MtAlarmHandle> h(new MtAlarmHandle("slow"));
    h->setDuration(0.0);
    h->setCallback([&](MtAlarmHandle&) {
        inside = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(80));
        finished = true;
    });
    MtAlarmManager::getInstance().registerAlarm(h);
    ASSERT_TRUE(waitFor([&] { return inside.load(); }));
    MtAlarmManager::getInstance().deregisterAlarm(h);
    EXPECT_TRUE(finished.load());
}

struct SelfRemover : MtAlarmHandle::Callback {
    std::atomic<int> calls{0};
    void alarm(MtAlarmHandle& h) override {
        ++calls;
        MtAlarmManager::getInstance().deregisterAlarm(h); // must not wait for itself
    }
};

TEST(MtAlarmManagerTest, CallbackMayDeregisterItsOwnAlarm) {
    SelfRemover remover;
    RCShdPtr<MtAlarmHandle> h(new MtAlarmHandle("self"));
    h->setDuration(0.001);
    h->setRequestedRepeats(-1);
    h->setCallback(&remover);
    MtAlarmManager::getInstance().registerAlarm(h);
    ASSERT_TRUE(waitFor([&] { return remover.calls.load() == 1 && !h->isRegistered(); }));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(remover.calls.load(), 1);
}

TEST(MtAlarmManagerTest, FailingCallbackKeepsTheThreadAlive) {
    RCShdPtr<MtAlarmHandle> bad(new MtAlarmHandle("bad"));
    bad->setCallback([](MtAlarmHandle&) { throw ExBase(__FILE__, __LINE__); });
    MtAlarmManager::getInstance().registerAlarm(bad);
    std::atomic<int> count{0};
    auto good = makeAlarm(0.01, count);
    MtAlarmManager::getInstance().registerAlarm(good);
    EXPECT_TRUE(waitFor([&] { return count.load() == 1; }));
}

TEST(MtAlarmManagerTest, ShutdownDisarmsAndRegistrationRestarts) {
    std::atomic<int> count{0};
    auto pending = makeAlarm(0.05, count);
    MtAlarmManager& manager = MtAlarmManager::getInstance();
    manager.registerAlarm(pending);
    manager.shutdown();
    EXPECT_FALSE(manager.isRunning());
    EXPECT_FALSE(pending->isRegistered());
    EXPECT_EQ(manager.getNbRegisteredAlarms(), 0);

    auto next = makeAlarm(0.0, count);
    manager.registerAlarm(next);
    EXPECT_TRUE(manager.isRunning());
    ASSERT_TRUE(waitFor([&] { return count.load() == 1; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(80));
    EXPECT_EQ(count.load(), 1);
}

TEST(SleeperTest, SleepsAtLeastTheSpan) {
    for (Sleeper* s : {&Sleeper::getInstance(), &Sleeper::getHighResInstance()}) {
        auto start = Clock::now();
        s->sleep(0.01);
        EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(10));
        s->sleep(-1.0); // returns at once
    }
}

} // namespace
} // namespace Zr
