// The statistics the loop keeps: what snapStatistics records and when the flush step flushes.
#include "loopTestSupport.h"

#include "statMgr.h"
#include "statTypes.h"
#include "uiApplication.h"
#include "wsEventQ.h"

#include <gtest/gtest.h>

namespace Zr {
namespace {

struct LocalStats {
    LocalStats() { StatMgr::getInstance().setLocalStats(true); }
    ~LocalStats() { StatMgr::getInstance().setLocalStats(false); }
};

TEST(ApplicationStatistics, SnapRecordsWaitingAndProcessedEvents) {
    LocalStats on;
    WsEventQ::getInstance().clear();
    UiApplication::getInstance().postEvent(std::make_unique<EvDefaultEvent>());
    UiApplication::getInstance().postEvent(std::make_unique<EvDefaultEvent>());
    UiApplication::getInstance().snapStatistics();
    EXPECT_EQ(StatMgr::getInstance().getLast(StatTypes::WAITING_EVENTS_ID), 2.0);
    EXPECT_EQ(StatMgr::getInstance().getLast(StatTypes::PROCESSED_EVENTS_ID),
              UiApplication::getInstance().getProcessedEvents());
    WsEventQ::getInstance().clear();
}

TEST(ApplicationStatistics, NothingIsRecordedWithoutLocalStatistics) {
    StatMgr::getInstance().setLocalStats(false);
    double before = StatMgr::getInstance().getLast(StatTypes::WAITING_EVENTS_ID);
    WsEventQ::getInstance().clear();
    for (int i = 0; i < 5; ++i)
        UiApplication::getInstance().postEvent(std::make_unique<EvDefaultEvent>());
    UiApplication::getInstance().snapStatistics();
    EXPECT_EQ(StatMgr::getInstance().getLast(StatTypes::WAITING_EVENTS_ID), before);
    WsEventQ::getInstance().clear();
}

} // namespace
} // namespace Zr
