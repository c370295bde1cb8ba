// Statistics: recording only when enabled, the known and registered kinds, intervals, flushing.
#include "statMgr.h"
#include "statResourceRegistry.h"
#include "statTypes.h"

#include <gtest/gtest.h>

#include <sstream>
#include <thread>

namespace Zr {
namespace {

TEST(StatMgrTest, RecordsOnlyWithLocalStatsAndFlushesOnce) {
    StatMgr& stats = StatMgr::getInstance();
    stats.record(StatTypes::WAITING_EVENTS_ID, 5);
    EXPECT_EQ(stats.getLast(StatTypes::WAITING_EVENTS_ID), 0.0);

    stats.setLocalStats(true);
    stats.record(StatTypes::WAITING_EVENTS_ID, 5);
    stats.record(StatTypes::WAITING_EVENTS_ID, 1);
    stats.record(StatTypes::PROCESSED_EVENTS_ID, 12);
    stats.record(99999, 3); // no such kind: ignored
    EXPECT_TRUE(stats.getContainer(99999).isNull());
    std::ostringstream out, again;
    stats.flushStatistics(out);
    EXPECT_EQ(out.str(), "WaitingEvents: last 1 min 1 max 5 mean 3 count 2\n"
                         "ProcessedEvents: last 12 min 12 max 12 mean 12 count 1\n");
    stats.flushStatistics(again);
    EXPECT_EQ(again.str(), "");
    stats.setLocalStats(false);
    EXPECT_EQ(StatTimeStamp("Stamps").toString(), "Stamps: empty");
}

TEST(StatResourceRegistryTest, RegisteredKindsGetStableIdsAndTheirContainers) {
    StatResourceRegistry& registry = StatResourceRegistry::getInstance();
    EXPECT_EQ(registry.findType("WaitingEvents"), StatTypes::WAITING_EVENTS_ID);
    int id = registry.registerResourceType("TestRedraw", StatContainerFactory::of<StatInterval>());
    EXPECT_GE(id, StatTypes::FIRST_FREE_ID);
    EXPECT_EQ(registry.registerResourceType("TestRedraw", StatContainerFactory::of<StatScalar>()),
              id);
    EXPECT_EQ(registry.getType(id)->getName(), "TestRedraw");
    EXPECT_EQ(registry.getType(-5), nullptr);
    EXPECT_EQ(registry.findType("nothing"), -1);

    RCShdPtr<StatContainerBase> container = StatMgr::getInstance().getContainer(id);
    auto* interval = dynamic_cast<StatInterval*>(container.get());
    ASSERT_NE(interval, nullptr);
    EXPECT_EQ(interval->stop(), 0.0); // not started: nothing recorded
    EXPECT_TRUE(interval->isEmpty());
    interval->start();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    double span = interval->stop();
    EXPECT_GE(span, 0.005);
    EXPECT_EQ(interval->getLast(), span);
    interval->clear();
}

} // namespace
} // namespace Zr
