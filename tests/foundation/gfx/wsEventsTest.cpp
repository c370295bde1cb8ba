// The window layer's events and the display timing.
#include "wsEvents.h"
#include "tmGfxMsc.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace Zr;

TEST(WsEventsTest, ExitEventKeepsItsMode) {
    EXPECT_EQ(WsExitEvent::AskExitHandlers, WsExitEvent().getExitHandlingMode());
    EXPECT_THROW(WsExitEvent(2), ExAssertionFailed);
    auto copy = WsExitEvent(1).clone();
    EXPECT_STREQ("WsExitEvent", copy->getClassName());
    EXPECT_EQ(1, dynamic_cast<WsExitEvent&>(*copy).getExitHandlingMode());
}

TEST(WsEventsTest, WindowEventsCarryTheWindowAndRegion) {
    WsConfigureEvent configure(7, {0, 640, 0, 480});
    configure.setWindowRegion({10, 20, 30, 40});
    std::stringstream s;
    configure.dump(s);
    EXPECT_EQ("WsConfigureEvent processed 0 window 7 origin 0 0 windowRegion 10 20 30 40", s.str());
    WsConfigureEvent back;
    back.read(s);
    EXPECT_EQ(configure.getWindowRegion(), back.getWindowRegion());
    EXPECT_EQ(7u, back.getWindowId());

    auto expose = WsExposeEvent(3, {1, 2, 3, 4}).clone();
    EXPECT_EQ((GeRectangle<int>{1, 2, 3, 4}), dynamic_cast<WsExposeEvent&>(*expose).getRegion());
    EXPECT_NE(nullptr, dynamic_cast<EvSystemInterfaceEvent*>(expose.get()));
}

TEST(TmGfxMscTest, RateGivesThePeriodAndTheCounterFollowsTheClock) {
    EXPECT_EQ(16667, TmGfxMsc::getUstPerMsc());
    TmGfxMsc::setRate(50.0);
    EXPECT_EQ(20000, TmGfxMsc::getUstPerMsc());
    EXPECT_THROW(TmGfxMsc::setRate(0.0), ExAssertionFailed);

    std::int64_t msc = TmGfxMsc::syncCurrentMsc();
    std::int64_t expected = DtRefTimeFactory::now().getTicks() / 20000;
    EXPECT_LE(msc, expected);
    EXPECT_GE(msc, expected - 1);
    EXPECT_EQ(msc, TmGfxMsc::getCurrentMsc()); // unchanged until the next sync
    EXPECT_EQ(msc * 20000, TmGfxMsc::mscToUst(msc));

    TmGfxMsc::setRate(TmGfxMsc::DEFAULT_RATE);
    EXPECT_EQ(16667, TmGfxMsc::computeUstPerMsc());
}
