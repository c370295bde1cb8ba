// The pointer and keyboard grabs: the hand-over between holders with its notices and callbacks,
// releases, and a holder that goes away.
#include "uiGrab.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace Zr;

namespace {

using Log = std::vector<std::string>;

class RecordingHandler : public UiGrabHandler {
public:
    RecordingHandler(std::string name, Log& log) : _name(std::move(name)), _log(log) {}
    void processEvent(EvEvent& event) override {
        auto const* notice = dynamic_cast<EvDeviceManagementEvent const*>(&event);
        _log.push_back(_name + " " + event.getClassName() + " " +
                       std::to_string(notice ? notice->getDeviceType() : 0));
    }
    GePoint2<int> getProcessOrigin() const override { return {}; }
    std::string getHandlerName() const override { return _name; }

private:
    std::string _name;
    Log& _log;
};

class GrabPointer : public ::testing::Test {
protected:
    void SetUp() override {
        onGrab.set([this](UiGrab const*& g) { log.push_back("grabbed " + holderName(g)); });
        onRelease.set([this](UiGrab const*& g) { log.push_back("released " + holderName(g)); });
        grab().registerGrabCb(&onGrab);
        grab().registerReleaseCb(&onRelease);
    }
    void TearDown() override {
        grab().unregisterGrabCb(&onGrab);
        grab().unregisterReleaseCb(&onRelease);
        grab().clear();
    }
    static UiGrab& grab() { return UiGrab::pointer(); }
    static std::string holderName(UiGrab const* g) {
        return g->getCurrent() ? g->getCurrent()->getHandlerName() : "nobody";
    }

    Log log;
    RecordingHandler h1{"h1", log};
    RecordingHandler h2{"h2", log};
    RecordingHandler h3{"h3", log};
    CbFunction<UiGrab const*> onGrab;
    CbFunction<UiGrab const*> onRelease;
};

} // namespace

// A grab by the holder, or by nobody, fires nothing.
TEST_F(GrabPointer, GrabNotifiesTheNewHolderThenTheCallbacks) {
    EXPECT_TRUE(grab().grab(&h1));
    EXPECT_EQ(grab().getCurrent(), &h1);
    EXPECT_TRUE(grab().grab(&h1));
    EXPECT_FALSE(grab().grab(nullptr));
    EXPECT_EQ(grab().getCurrent(), &h1);
    EXPECT_EQ(log, (Log{"h1 EvGrabAcquiredEvent 1", "grabbed h1"}));
}

TEST_F(GrabPointer, TakingTheGrabTellsTheOldHolderFirst) {
    grab().grab(&h1);
    log.clear();
    grab().grab(&h2);
    EXPECT_EQ(log, (Log{"h1 EvGrabLostEvent 1", "released nobody", "h2 EvGrabAcquiredEvent 1",
                        "grabbed h2"}));
}

TEST_F(GrabPointer, GrabDuringAReleaseIsServedByTheLoop) {
    grab().grab(&h1);
    bool once = true;
    CbFunction<UiGrab const*> grabber([&](UiGrab const*&) {
        if (once) {
            once = false;
            grab().grab(&h3);
        }
    });
    grab().registerReleaseCb(&grabber);
    log.clear();
    EXPECT_TRUE(grab().grab(&h2));
    grab().unregisterReleaseCb(&grabber);
    EXPECT_EQ(grab().getCurrent(), &h2);
    EXPECT_EQ(log, (Log{"h1 EvGrabLostEvent 1", "released nobody", "h3 EvGrabAcquiredEvent 1",
                        "grabbed h3", "h3 EvGrabLostEvent 1", "released nobody",
                        "h2 EvGrabAcquiredEvent 1", "grabbed h2"}));
}

TEST_F(GrabPointer, ReleaseByANonHolderIsRefused) {
    EXPECT_FALSE(grab().release(&h1));
    grab().grab(&h1);
    log.clear();
    EXPECT_FALSE(grab().release(&h2));
    EXPECT_FALSE(grab().release(nullptr));
    EXPECT_EQ(grab().getCurrent(), &h1);
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(grab().release(&h1));
    EXPECT_EQ(grab().getCurrent(), nullptr);
    EXPECT_EQ(log, (Log{"h1 EvGrabLostEvent 1", "released nobody"}));
}

TEST_F(GrabPointer, ClearReleasesWhoeverHoldsIt) {
    grab().clear();
    EXPECT_TRUE(log.empty());
    grab().grab(&h2);
    log.clear();
    grab().clear();
    EXPECT_EQ(grab().getCurrent(), nullptr);
    EXPECT_EQ(log, (Log{"h2 EvGrabLostEvent 1", "released nobody"}));
}

TEST_F(GrabPointer, DestroyedHolderLeavesTheGrabWithoutANotice) {
    {
        RecordingHandler temporary("temporary", log);
        grab().grab(&temporary);
        log.clear();
    }
    EXPECT_EQ(grab().getCurrent(), nullptr);
    EXPECT_EQ(log, (Log{"released nobody"}));
}

TEST(GrabKeyboard, IsSeparateFromThePointerGrabAndSaysSo) {
    Log log;
    RecordingHandler h("h", log);
    ASSERT_NE(&UiGrab::keyboard(), &UiGrab::pointer());
    EXPECT_EQ(UiGrab::keyboard().getDeviceType(), UiGrab::Keyboard);
    UiGrab::keyboard().grab(&h);
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    EXPECT_TRUE(UiGrab::keyboard().release(&h));
    EXPECT_EQ(log, (Log{"h EvGrabAcquiredEvent 2", "h EvGrabLostEvent 2"}));
}
