// What the loop lets through: the button filter, pointer-move compression, hand pumping with
// getNextEvent, and the tooltip timing; and the statistics the loop keeps.
#include "loopTestSupport.h"

#include "mtAlarmManager.h"
#include "statMgr.h"
#include "statTypes.h"

#include <chrono>
#include <thread>

namespace Zr {
namespace {

using namespace LoopTest;

enum : unsigned { Left = 1, Middle = 2, Right = 4 };

// Records the buttons of the press and release events that pass the filter.
class AppButtonFilter : public LoopFixture {
protected:
    void SetUp() override {
        LoopFixture::SetUp();
        UiApplication::getInstance().addMainHandler(&_recorder);
    }
    void TearDown() override {
        UiApplication::getInstance().removeMainHandler(&_recorder);
        LoopFixture::TearDown();
    }
    std::vector<std::string> _seen;
    std::vector<unsigned> _upStates;
    CbFunction<EvEvent> _recorder{[this](EvEvent& e) {
        if (auto* d = dynamic_cast<EvPointerButtonDownEvent*>(&e))
            _seen.push_back("down " + std::to_string(d->getTriggerButton()));
        else if (auto* u = dynamic_cast<EvPointerButtonUpEvent*>(&e)) {
            _seen.push_back("up " + std::to_string(u->getTriggerButton()));
            _upStates.push_back(u->getPointerState().getState());
        }
    }};
};

TEST_F(AppButtonFilter, SecondButtonWhileFirstIsHeldReachesNobody) {
    send(makeDown(0, {5, 5}, Left, Left));
    send(makeDown(0, {5, 5}, Right, Left | Right)); // right while left held: dropped
    send(makeUp(0, {5, 5}, Right, Left));           // left still held: dropped
    send(makeUp(0, {5, 5}, Left, 0));               // the gesture ends
    EXPECT_EQ(_seen, (std::vector<std::string>{"down 1", "up 1"}));
}

TEST_F(AppButtonFilter, ReleaseOfTheLastButtonClaimsTheFirstButton) {
    send(makeDown(0, {5, 5}, Left, Left));
    send(makeDown(0, {5, 5}, Right, Left | Right));
    send(makeUp(0, {5, 5}, Left, Right)); // right still held: dropped
    send(makeUp(0, {5, 5}, Right, 0));    // delivered as the left button's release
    EXPECT_EQ(_seen, (std::vector<std::string>{"down 1", "up 1"}));
    EXPECT_EQ(_upStates, std::vector<unsigned>{0});
}

TEST_F(AppButtonFilter, UpWithoutDownAndDownWithTwoButtonsAreDropped) {
    send(makeUp(0, {5, 5}, Middle, 0));
    send(makeDown(0, {5, 5}, Left, Left | Middle));
    send(makeUp(0, {5, 5}, Left, 0));
    EXPECT_TRUE(_seen.empty());
}

TEST_F(AppButtonFilter, WithDoubleDownEveryUpClaimsTheLastDown) {
    UiApplication::getInstance().setAllowDoubleDownEvent(true);
    send(makeDown(0, {5, 5}, Left, Left));
    send(makeDown(0, {5, 5}, Right, Left | Right));
    send(makeUp(0, {5, 5}, Left, Right));
    send(makeUp(0, {5, 5}, Right, 0));
    EXPECT_EQ(_seen, (std::vector<std::string>{"down 1", "down 4", "up 4", "up 0"}));
    EXPECT_EQ(_upStates, (std::vector<unsigned>{0, 0}));
}

TEST_F(AppButtonFilter, AnEventLoopGrabSeesEventsFirstAndMayStopThem) {
    UiApplication& app = UiApplication::getInstance();
    int grabbed = 0;
    CbFunction<EvEvent> grab([&](EvEvent& e) {
        ++grabbed;
        e.setProcessed();
    });
    app.grabEventLoop(&grab);
    send(makeDown(0, {5, 5}, Left, Left));
    app.releaseEventLoop();
    EXPECT_EQ(grabbed, 1);
    EXPECT_TRUE(_seen.empty());
    // The filter never saw the press, so a release is still unpaired.
    send(makeUp(0, {5, 5}, Left, 0));
    EXPECT_TRUE(_seen.empty());
}

// --- compression --------------------------------------------------------------------------------

std::deque<OPtr<EvEvent>> moves(std::vector<int> xs) {
    std::deque<OPtr<EvEvent>> events;
    for (int x : xs)
        events.push_back(makeMove(0, {x, x * 10}, 0.1f * static_cast<float>(x)));
    return events;
}

TEST(AppMoveCompression, ARunOfMovesBecomesItsLastMoveCarryingThePath) {
    auto events = moves({1, 2, 3, 4});
    UiApplication::compressPointerMoves(events);
    ASSERT_EQ(events.size(), 1u);
    auto& last = static_cast<EvPointerMoveEvent&>(*events.front());
    EXPECT_EQ(last.getCoord(), GePoint2<int>(4, 40));
    EXPECT_EQ(last.getCompressedCoords(), (std::vector<GePoint2<int>>{{1, 10}, {2, 20}, {3, 30}}));
    ASSERT_EQ(last.getCompressedPressures().size(), 3u);
    EXPECT_FLOAT_EQ(last.getCompressedPressures()[2], 0.3f);
}

TEST(AppMoveCompression, OtherEventsEndARunAndSingleMovesStayAlone) {
    auto events = moves({1, 2});
    events.push_back(makeDown(0, {2, 2}, Left, Left));
    for (auto& e : moves({3}))
        events.push_back(std::move(e));
    events.push_back(makeUp(0, {3, 3}, Left, 0));
    for (auto& e : moves({5, 6, 7}))
        events.push_back(std::move(e));
    UiApplication::compressPointerMoves(events);
    ASSERT_EQ(events.size(), 5u);
    EXPECT_EQ(static_cast<EvPointerMoveEvent&>(*events[0]).getCompressedCoords().size(), 1u);
    EXPECT_NE(dynamic_cast<EvPointerButtonDownEvent*>(events[1].get()), nullptr);
    EXPECT_TRUE(static_cast<EvPointerMoveEvent&>(*events[2]).getCompressedCoords().empty());
    auto& tail = static_cast<EvPointerMoveEvent&>(*events[4]);
    EXPECT_EQ(tail.getCoord(), GePoint2<int>(7, 70));
    EXPECT_EQ(tail.getCompressedCoords(), (std::vector<GePoint2<int>>{{5, 50}, {6, 60}}));
}

TEST(AppMoveCompression, PathsAlreadyFoldedAreKeptInOrder) {
    auto events = moves({1, 2});
    UiApplication::compressPointerMoves(events);
    for (auto& e : moves({3, 4}))
        events.push_back(std::move(e));
    UiApplication::compressPointerMoves(events);
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(static_cast<EvPointerMoveEvent&>(*events.front()).getCompressedCoords(),
              (std::vector<GePoint2<int>>{{1, 10}, {2, 20}, {3, 30}}));
}

TEST_F(AppButtonFilter, TheLoopDeliversOneMoveWithTheWholePath) {
    UiApplication& app = UiApplication::getInstance();
    std::vector<std::size_t> pathLengths;
    CbFunction<EvEvent> onMove([&](EvEvent& e) {
        if (auto* m = dynamic_cast<EvPointerMoveEvent*>(&e))
            pathLengths.push_back(m->getCompressedCoords().size());
    });
    app.addMainHandler(&onMove);
    for (int i = 0; i < 5; ++i)
        app.postEvent(makeMove(0, {i, i}));
    run();
    app.removeMainHandler(&onMove);
    EXPECT_EQ(pathLengths, std::vector<std::size_t>{4});
}

TEST_F(AppButtonFilter, GetNextEventKeepsTheLastMoveAndHoldsTheNextEvent) {
    UiApplication& app = UiApplication::getInstance();
    for (int i = 0; i < 3; ++i)
        app.postEvent(makeMove(0, {i, 0}));
    app.postEvent(makeDown(0, {2, 0}, Left, Left));
    DtTimeIndex soon = DtRefTimeFactory::now() + 100000;
    OPtr<EvEvent> first = app.getNextEvent(soon);
    auto* move = dynamic_cast<EvPointerMoveEvent*>(first.get());
    ASSERT_NE(move, nullptr);
    EXPECT_EQ(move->getCoord(), GePoint2<int>(2, 0));
    EXPECT_TRUE(move->getCompressedCoords().empty()); // hand pumping keeps no path
    EXPECT_TRUE(app.hasEventsPending(DtTimeIndex(0)));
    OPtr<EvEvent> second = app.getNextEvent(soon);
    EXPECT_NE(dynamic_cast<EvPointerButtonDownEvent*>(second.get()), nullptr);
    EXPECT_FALSE(app.hasEventsPending(DtTimeIndex(0)));
}

// --- tooltips -------------------------------------------------------------------------------

class FakeTooltips : public UiTooltipHooks {
public:
    bool areTooltipsOn() const override { return true; }
    bool isDisplayed() const override { return _displayed; }
    void show(RCShdPtr<UiWidget> const& target, GePoint2<int> const&) override {
        _displayed = true;
        _shown.push_back(target ? target->getName().str() : "null");
    }
    void hide() override { _displayed = false; }
    bool _displayed = false;
    std::vector<std::string> _shown;
};

class AppTooltip : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        // Let the retrigger threshold of an earlier hide run out.
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        UiApplication::setTooltipHooks(&_hooks);
        _a = UiWidget::create(root(), "a");
        _a->setRect({0, 50, 0, 50});
        _b = UiWidget::create(root(), "b");
        _b->setRect({100, 150, 0, 50});
    }
    void TearDown() override {
        UiApplication::getInstance().hideTooltip();
        UiApplication::setTooltipHooks(nullptr);
        _a = nullptr;
        _b = nullptr;
        WindowFixture::TearDown();
    }
    // Moves the pointer through the top level, which updates the pointer focus.
    void moveTo(GePoint2<int> p) { send(makeMove(id, p)); }
    // The tooltip step runs before the window moves the pointer focus, so the first move onto
    // a widget only brings the focus there and the second starts its tooltip.
    void hoverOver(GePoint2<int> p) {
        moveTo(p);
        moveTo(p);
    }
    // The class names of what the loop has been asked to run.
    std::vector<std::string> takeRequests(int waitMs = 0) {
        std::vector<std::string> names;
        WsEventQ& q = WsEventQ::getInstance();
        if (waitMs > 0)
            q.wait(1, DtRefTimeFactory::now() + waitMs * 1000);
        std::deque<OPtr<EvEvent>> events;
        q.getAllEvents(events);
        for (auto& e : events) {
            names.push_back(e->getClassName());
            if (auto* r = dynamic_cast<EvRequestEvent*>(e.get()))
                r->process();
        }
        return names;
    }

    FakeTooltips _hooks;
    RCShdPtr<UiWidget> _a, _b;
};

TEST_F(AppTooltip, TheDelayRunsOnAnAlarmThatPostsTheShowRequest) {
    hoverOver({10, 10});
    UiApplication& app = UiApplication::getInstance();
    EXPECT_EQ(app.getTooltipTarget().get(), _a.get());
    EXPECT_TRUE(takeRequests().empty()); // not yet: the delay runs
    EXPECT_EQ(takeRequests(3000), std::vector<std::string>{"UiShowTooltipRequest"});
    EXPECT_EQ(_hooks._shown, std::vector<std::string>{"a"});
}

TEST_F(AppTooltip, MovingOnRightAfterAHideShowsTheNextAtOnce) {
    UiApplication& app = UiApplication::getInstance();
    hoverOver({10, 10});
    EXPECT_EQ(app.getTooltipTarget().get(), _a.get());
    // A press hides: the alarm goes without a hide request since nothing was shown yet.
    auto down = makeDown(id, {10, 10}, Left, Left);
    app.processEvent(*down);
    auto up = makeUp(id, {10, 10}, Left, 0);
    app.processEvent(*up);
    EXPECT_EQ(app.getTooltipTarget().get(), nullptr);
    EXPECT_TRUE(takeRequests().empty());

    hoverOver({10, 10});
    _hooks._displayed = true; // as if a's tooltip were up
    // The tooltip step runs before the window moves the pointer focus: the first move into b
    // still sees a and only drops a's pending alarm; the next one hides the tooltip and,
    // within the retrigger threshold, shows b's at once.
    moveTo({120, 10});
    EXPECT_TRUE(takeRequests().empty());
    moveTo({121, 10});
    EXPECT_EQ(takeRequests(),
              (std::vector<std::string>{"UiHideTooltipRequest", "UiShowTooltipRequest"}));
    EXPECT_EQ(_hooks._shown, std::vector<std::string>{"b"});
}

TEST_F(AppTooltip, MovesWithAButtonDownOrUnderAGrabStartNoTooltip) {
    UiApplication& app = UiApplication::getInstance();
    auto dragging = makeMove(id, {10, 10}, 1.0f, Left);
    app.processEvent(*dragging);
    EXPECT_EQ(app.getTooltipTarget().get(), nullptr);
    UiGrab::pointer().grab(_b->getEventHandler());
    // Every grab closes tooltips.
    EXPECT_EQ(takeRequests(), std::vector<std::string>{"UiHideTooltipRequest"});
    hoverOver({10, 10});
    EXPECT_EQ(app.getTooltipTarget().get(), nullptr);
    EXPECT_TRUE(takeRequests().empty());
}

// --- statistics ----------------------------------------------------------------------------

TEST_F(AppButtonFilter, SnapStatisticsRecordsWaitingAndProcessedEventsOnlyWhenAsked) {
    UiApplication& app = UiApplication::getInstance();
    StatMgr& stats = StatMgr::getInstance();
    stats.setLocalStats(false);
    double const before = stats.getLast(StatTypes::WAITING_EVENTS_ID);
    for (int i = 0; i < 5; ++i)
        app.postEvent(std::make_unique<EvDefaultEvent>());
    app.snapStatistics();
    EXPECT_EQ(stats.getLast(StatTypes::WAITING_EVENTS_ID), before);
    WsEventQ::getInstance().clear();
    stats.setLocalStats(true);
    app.postEvent(std::make_unique<EvDefaultEvent>());
    app.postEvent(std::make_unique<EvDefaultEvent>());
    app.snapStatistics();
    stats.setLocalStats(false);
    EXPECT_EQ(stats.getLast(StatTypes::WAITING_EVENTS_ID), 2.0);
    EXPECT_EQ(stats.getLast(StatTypes::PROCESSED_EVENTS_ID), app.getProcessedEvents());
}

} // namespace
} // namespace Zr
