// Drag and drop as a client sees it through the application's dispatch: the gesture threshold,
// what the sinks of source and target hear and in which order, refused drops, cancels, the
// cursors, the hover activation, pick and stick, and a target that goes away mid-drag.
#include "loopTestSupport.h"
#include "support/exceptionReason.h"

#include "drSrcSink.h"
#include "snItemConvert.h"
#include "uiDragAndDrop.h"
#include "uiGestureRecogniser.h"
#include "uiTransporter.h"

#include "evKeyCode.h"
#include "ixTile.h"
#include "wsHeadlessWindow.h"
#include "wsManagedImage.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace Zr {
namespace {

using namespace LoopTest;

enum : unsigned { Left = 1, Middle = 2, Right = 4 };

// A sink that logs every call as "<name> <call>", gives a string when asked to fill a carrier
// and takes what it is given when `accept` is set.
class LogSink : public DrSrcSink {
public:
    LogSink(std::string name, std::vector<std::string>* log) : _name(std::move(name)), _log(log) {}

    bool willPopulateSelection() override {
        note("willPopulate");
        return give;
    }
    void populateSelection(DrCarrier& carrier) override {
        note("populate");
        if (!payload.empty())
            carrier.getSelection()->addItem(SnItemConvert<std::string>::createItem(payload));
        populatedAt = carrier.getLocation();
    }
    bool willConsumeSelection(DrCarrier const&) override {
        note("willConsume");
        return accept;
    }
    bool consumeSelection(DrCarrier& carrier) override {
        note("consume");
        consumedAt = carrier.getLocation();
        for (auto const& item : *carrier.getSelection())
            if (SnItemConvert<std::string>::test(item))
                consumed.push_back(SnItemConvert<std::string>::get(item));
        return true;
    }
    void dropCompleted(DrCarrier&) override { note("completed"); }
    void operationCancelled(DrCarrier&) override { note("cancelled"); }

    bool give = true;
    bool accept = true;
    std::string payload = "hello";
    std::vector<std::string> consumed;
    GePoint2<float> populatedAt{-1, -1};
    GePoint2<float> consumedAt{-1, -1};

private:
    void note(char const* what) { _log->push_back(_name + " " + what); }
    std::string _name;
    std::vector<std::string>* _log;
};

// A drag-and-drop object whose optional answers a test chooses, logging the target calls.
class TestDnd : public UiDragAndDrop {
public:
    static RCShdPtr<TestDnd> make(std::string name, std::vector<std::string>* log) {
        return RCShdPtr<TestDnd>(new TestDnd(std::move(name), log));
    }
    void dragEnter(Info&) override { note("enter"); }
    void dragLeave(Info&) override { note("leave"); }
    bool willAcceptActivate(Info&) override { return activates; }
    void activateWidget(Info&, UiGrabHandler* transporter) override {
        note("activate");
        activatedBy = transporter;
    }
    bool willPickAndStick() override { return picks; }
    bool getDragAndDropImage(RCShdPtr<WsManagedImage>* image, Info&) override {
        if (!this->image)
            return false;
        *image = this->image;
        return true;
    }

    bool activates = false;
    bool picks = false;
    RCShdPtr<WsManagedImage> image;
    UiGrabHandler* activatedBy = nullptr;

private:
    TestDnd(std::string name, std::vector<std::string>* log) : _name(std::move(name)), _log(log) {}
    void note(char const* what) { _log->push_back(_name + " " + what); }
    std::string _name;
    std::vector<std::string>* _log;
};

// A window with a source at x 0..50 and a target at x 100..150, both 50 high, over the root.
class DndFixture : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        _source = UiWidget::create(root(), "source");
        _source->setRect({0, 50, 0, 50});
        _target = UiWidget::create(root(), "target");
        _target->setRect({100, 150, 0, 50});

        _sourceSink = makeShared<LogSink>("source", &_log);
        _targetSink = makeShared<LogSink>("target", &_log);
        _sourceDnd = TestDnd::make("source", &_log);
        _sourceDnd->setDndSrcSink(_sourceSink);
        _sourceDnd->setDragEnabled(true);
        _source->setDndObject(_sourceDnd);
        _source->setDragRecogniser(std::make_unique<UiGestureDrag>());
        _targetDnd = TestDnd::make("target", &_log);
        _targetDnd->setDndSrcSink(_targetSink);
        _targetDnd->setDropEnabled(true);
        _target->setDndObject(_targetDnd);
    }
    void TearDown() override {
        UiApplication& app = UiApplication::getInstance();
        if (RCShdPtr<UiTransporter> t = app.getCurrentTransporter())
            t->cancel();
        // A release that ends any press a test left held, so the button filter starts clean.
        release({600, 400});
        EXPECT_FALSE(UiTransporter::isTransporting());
        EXPECT_FALSE(UiDragAndDrop::isPickAndStickActive());
        _source = nullptr;
        _target = nullptr;
        WindowFixture::TearDown();
    }

    void press(GePoint2<int> p, unsigned button = Left, unsigned held = Left) {
        send(makeDown(id, p, button, held));
    }
    void drag(GePoint2<int> p, unsigned held = Left) { send(makeMove(id, p, 1.0f, held)); }
    void release(GePoint2<int> p, unsigned button = Left) { send(makeUp(id, p, button, 0)); }
    void key(int code) { send(makeKey(id, code)); }
    // Press on the source and move far enough to start a drag.
    void startDrag() {
        press({10, 10});
        drag({20, 10});
        ASSERT_TRUE(UiTransporter::isTransporting());
    }
    std::string cursor() const {
        auto& window = static_cast<WsHeadlessWindow&>(*top->getOSWindow());
        return window.getCursor() ? window.getCursor()->getName().str() : "";
    }
    // Lines of the log that start with `who`.
    std::vector<std::string> of(std::string const& who) const {
        std::vector<std::string> lines;
        for (auto const& line : _log)
            if (line.rfind(who + " ", 0) == 0)
                lines.push_back(line.substr(who.size() + 1));
        return lines;
    }
    int count(std::string const& line) const {
        return static_cast<int>(std::count(_log.begin(), _log.end(), line));
    }
    // Waits up to `ms` for the hover request and takes it off the queue, leaving the rest.
    OPtr<EvEvent> awaitHoverRequest(int ms) {
        DtTimeIndex const until = DtRefTimeFactory::now() + std::int64_t(ms) * 1000;
        std::deque<OPtr<EvEvent>> events;
        do {
            WsEventQ::getInstance().getAllEvents(events);
            for (auto& e : events)
                if (dynamic_cast<UiTransporterRequestEvent*>(e.get()))
                    return std::move(e);
            events.clear();
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        } while (DtRefTimeFactory::now() < until);
        return nullptr;
    }

    std::vector<std::string> _log;
    RCShdPtr<UiWidget> _source, _target;
    RCShdPtr<LogSink> _sourceSink, _targetSink;
    RCShdPtr<TestDnd> _sourceDnd, _targetDnd;
};

using DndGesture = DndFixture;
using DndDrop = DndFixture;
using DndCancel = DndFixture;
using DndHover = DndFixture;
using DndPickAndStick = DndFixture;

// --- the gesture ---------------------------------------------------------------------------

TEST(DndRecogniser, ThresholdIsStrictAlongEitherAxisAndNeedsTheButtonAndModifier) {
    UiGestureDrag drag(EvPointerState::Left, EvKeyboardState::Shift, 3);
    auto down = makeDown(1, {10, 10}, Left, Left);
    down->setKeyboardState(EvKeyboardState(EvKeyboardState::Shift));
    EXPECT_FALSE(drag.feed(*down));
    auto move = [&](GePoint2<int> p, unsigned held, unsigned mods) {
        auto m = makeMove(1, p, 1.0f, held);
        m->setKeyboardState(EvKeyboardState(mods));
        return drag.feed(*m);
    };
    EXPECT_FALSE(move({13, 7}, Left, EvKeyboardState::Shift));  // 3 along both: not beyond
    EXPECT_FALSE(move({14, 10}, Left, 0));                      // beyond, but shift let go
    EXPECT_FALSE(move({14, 10}, Left, EvKeyboardState::Shift)); // that press is over
    EXPECT_FALSE(drag.feed(*down));
    EXPECT_TRUE(move({10, 6}, Left, EvKeyboardState::Shift)); // 4 down
    drag.reset();
    EXPECT_FALSE(drag.isRecognised());
    EXPECT_FALSE(move({20, 20}, Left, EvKeyboardState::Shift)); // reset forgot the press

    auto right = makeDown(1, {10, 10}, Right, Right);
    right->setKeyboardState(EvKeyboardState(EvKeyboardState::Shift));
    EXPECT_FALSE(drag.feed(*right));
    EXPECT_FALSE(move({30, 30}, Right, EvKeyboardState::Shift)); // wrong button

    UiGestureDrag atOnce(EvPointerState::Left, EvKeyboardState::None, 0);
    EXPECT_TRUE(atOnce.feed(*makeDown(1, {0, 0}, Left, Left)));
    OPtr<UiGestureRecogniser> copy = atOnce.createSimilar();
    EXPECT_FALSE(copy->isRecognised());
    EXPECT_TRUE(copy->feed(*makeDown(1, {0, 0}, Left, Left)));

    UiGestureDrop drop;
    EXPECT_FALSE(drop.feed(*makeMove(1, {0, 0})));
    EXPECT_FALSE(drop.feed(*makeDown(1, {0, 0}, Left, Left)));
    EXPECT_TRUE(drop.feed(*makeUp(1, {0, 0}, Left, 0)));
}

TEST_F(DndGesture, MovesUpToTheThresholdNeverStartAndOneMoreDoes) {
    press({10, 10});
    drag({15, 10});
    drag({15, 15});
    drag({5, 5});
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    drag({10, 16});
    EXPECT_TRUE(UiTransporter::isTransporting());
    EXPECT_EQ(UiGrab::pointer().getCurrent(), UiApplication::getInstance().getTransporter().get());
    EXPECT_EQ(UiApplication::getInstance().getCurrentTransporter(),
              UiApplication::getInstance().getTransporter());
    EXPECT_EQ(of("source"), (std::vector<std::string>{"willPopulate", "populate"}));
}

TEST_F(DndGesture, ASourceWithNothingToGiveStartsNoDrag) {
    _sourceSink->give = false;
    press({10, 10});
    drag({30, 10});
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_EQ(of("source"), std::vector<std::string>{"willPopulate"});

    // Willing, but the carrier stays empty: no grab is taken either.
    _sourceSink->give = true;
    _sourceSink->payload.clear();
    release({30, 10});
    press({10, 10});
    drag({30, 10});
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    EXPECT_EQ(UiApplication::getInstance().getCurrentTransporter(), nullptr);
}

TEST_F(DndGesture, AChildOfTheSourceStartsTheSourcesDrag) {
    auto panel = UiContainer::create(root(), "panel");
    panel->setRect({200, 300, 0, 100});
    auto child = UiWidget::create(panel.get(), "child");
    child->setRect({0, 20, 0, 20});
    panel->setDndObject(_sourceDnd);
    panel->setDragRecogniser(std::make_unique<UiGestureDrag>());
    _source->setDndObject(UiDragAndDrop::create());
    press({205, 5});
    drag({215, 5});
    ASSERT_TRUE(UiTransporter::isTransporting());
    EXPECT_EQ(UiApplication::getInstance().getTransporter()->getSource(), panel);
    // The carrier's location is the press in the source's canvas, in pixels.
    EXPECT_EQ(_sourceSink->populatedAt.x, 15.0f);
    EXPECT_EQ(_sourceSink->populatedAt.y, 5.0f);
    drag({125, 25});
    release({125, 25});
    EXPECT_EQ(_targetSink->consumed, std::vector<std::string>{"hello"});
    panel->removeChildren();
    top->getRootContainer()->removeChild(panel);
}

TEST_F(DndGesture, ASyntheticEventCannotStartADrag) {
    auto down = makeDown(0, {10, 10}, Left, Left);
    _source->processEvent(*down);
    auto move = makeMove(0, {30, 10}, 1.0f, Left);
    EXPECT_EQ(TestSupport::reasonOf<ExAssertionFailed>([&] { _source->processEvent(*move); }),
              "sysEvent->getWindowId() != 0");
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_EQ(of("source"), std::vector<std::string>{"willPopulate"});
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
}

// --- drops ----------------------------------------------------------------------------------

TEST_F(DndDrop, TheTargetTakesTheStringAndTheSourceHearsOfItOnce) {
    startDrag();
    drag({60, 25});
    drag({125, 40});
    release({125, 40});
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_EQ(_targetSink->consumed, std::vector<std::string>{"hello"});
    EXPECT_EQ(count("target consume"), 1);
    EXPECT_EQ(of("source"),
              (std::vector<std::string>{"willPopulate", "populate", "leave", "completed"}));
    // The target is asked before it takes it; the source hears last.
    ASSERT_GE(_log.size(), 3u);
    EXPECT_EQ(
        std::vector<std::string>(_log.end() - 3, _log.end()),
        (std::vector<std::string>{"target willConsume", "target consume", "source completed"}));
    // The place of the drop as a fraction of the target: (25, 40) of 50 by 50.
    EXPECT_FLOAT_EQ(_targetSink->consumedAt.x, 0.5f);
    EXPECT_FLOAT_EQ(_targetSink->consumedAt.y, 0.8f);
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    EXPECT_EQ(UiApplication::getInstance().getCurrentTransporter(), nullptr);
    EXPECT_FALSE(UiApplication::getInstance().getAllowDoubleDownEvent());
    // The press armed the source; the release of the drag disarmed it.
    EXPECT_TRUE(UiArmStack::empty());
}

TEST_F(DndDrop, EnterAndLeaveFollowThePointerAcrossTargets) {
    startDrag();
    drag({125, 40});
    drag({125, 41});
    drag({300, 300});
    drag({120, 20});
    EXPECT_EQ(of("target"), (std::vector<std::string>{"enter", "willConsume", "willConsume",
                                                      "leave", "enter", "willConsume"}));
    // The source doesn't take drops, so it is never asked whether it would.
    EXPECT_EQ(of("source"), (std::vector<std::string>{"willPopulate", "populate", "leave"}));
    release({120, 20});
}

TEST_F(DndDrop, ATargetWithDropsDisabledOrUnwillingRefusesAndTheSourceHearsACancel) {
    _targetDnd->setDropEnabled(false);
    startDrag();
    drag({125, 40});
    release({125, 40});
    EXPECT_EQ(count("target consume"), 0);
    EXPECT_EQ(of("source"),
              (std::vector<std::string>{"willPopulate", "populate", "leave", "cancelled"}));

    _log.clear();
    _targetDnd->setDropEnabled(true);
    _targetSink->accept = false;
    startDrag();
    drag({125, 40});
    release({125, 40});
    EXPECT_EQ(count("target willConsume"), 2); // the move's cursor choice, then the drop
    EXPECT_EQ(count("target consume"), 0);
    EXPECT_EQ(of("source"),
              (std::vector<std::string>{"willPopulate", "populate", "leave", "cancelled"}));
    EXPECT_TRUE(_targetSink->consumed.empty());
}

TEST_F(DndDrop, TheCursorShowsWhetherTheDropWouldBeTakenAndGoesBackAfter) {
    bool const overriddenBefore = UiApplication::getInstance().hasOverrideCursor();
    startDrag();
    EXPECT_EQ(cursor(), UiTransporter::RefusedCursor);
    drag({125, 40});
    EXPECT_EQ(cursor(), UiTransporter::AcceptedCursor);
    drag({300, 300});
    EXPECT_EQ(cursor(), UiTransporter::RefusedCursor);

    // At the drop the busy cursor shows while the target takes the carrier.
    std::string atDrop;
    _targetSink->accept = true;
    drag({125, 40});
    class Peek : public LogSink {
    public:
        Peek(std::vector<std::string>* log, std::function<void()> f)
            : LogSink("peek", log), _f(std::move(f)) {}
        bool consumeSelection(DrCarrier& c) override {
            _f();
            return LogSink::consumeSelection(c);
        }

    private:
        std::function<void()> _f;
    };
    _targetDnd->setDndSrcSink(makeShared<Peek>(&_log, [&] { atDrop = cursor(); }));
    release({125, 40});
    EXPECT_EQ(atDrop, "Busy");
    EXPECT_EQ(UiApplication::getInstance().hasOverrideCursor(), overriddenBefore);
    for (char const* dragCursor : {"Drag", "Drop", "Busy"})
        EXPECT_NE(cursor(), dragCursor);
}

TEST_F(DndDrop, WhileDraggingTheSecondButtonReachesTheTransporterOnly) {
    std::vector<std::string> seen;
    CbFunction<EvEvent> armed([&](EvEvent&) { seen.push_back("target armed"); });
    _target->addArmCb(&armed);
    startDrag();
    EXPECT_TRUE(UiApplication::getInstance().getAllowDoubleDownEvent());
    drag({125, 40});
    press({125, 40}, Right, Left | Right);
    EXPECT_TRUE(UiTransporter::isTransporting());
    EXPECT_TRUE(seen.empty());
    release({125, 40}, Right);
    EXPECT_EQ(count("target consume"), 1);
    EXPECT_FALSE(UiApplication::getInstance().getAllowDoubleDownEvent());
    _target->removeArmCb(&armed);
}

TEST_F(DndDrop, ConsumeSelectionHandsACarrierToATargetWithoutADrag) {
    RCShdPtr<DrCarrier> carrier = DrCarrier::create(SnSelection::create());
    carrier->getSelection()->addItem(SnItemConvert<std::string>::createItem("pasted"));
    EXPECT_TRUE(UiDragAndDrop::consumeSelection(_target, carrier));
    EXPECT_EQ(_targetSink->consumed, std::vector<std::string>{"pasted"});
    _targetSink->accept = false;
    EXPECT_FALSE(UiDragAndDrop::consumeSelection(_target, carrier));
    EXPECT_FALSE(UiDragAndDrop::consumeSelection(nullptr, carrier));
    EXPECT_FALSE(UiDragAndDrop::consumeSelection(_source, nullptr));
    EXPECT_EQ(_targetSink->consumed.size(), 1u);
}

TEST_F(DndDrop, TheIconFollowsThePointerAtHalfOpacityAndGoesWithTheDrop) {
    auto tile = makeShared<IxTile>(20, 10, 4);
    _sourceDnd->image = makeShared<WsManagedImage>(tile);
    startDrag();
    RCShdPtr<UiTransporter> t = UiApplication::getInstance().getTransporter();
    EXPECT_FALSE(t->getIcon()); // it comes up with the first move under the drag
    drag({20, 10});
    RCShdPtr<UiTransporterIcon> icon = t->getIcon();
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->getName(), LiString("TransporterIcon"));
    EXPECT_EQ(icon->getParent(), root());
    EXPECT_FLOAT_EQ(icon->getOpacity(), 0.5f);
    // Centred on the pointer (20, 10), its top 10 pixels below it.
    EXPECT_EQ(icon->getRect(), (GeRectangle<int>{10, 30, -10, 0}));
    drag({125, 40});
    EXPECT_EQ(icon->getRect(), (GeRectangle<int>{115, 135, 20, 30}));
    EXPECT_EQ(count("target enter"), 1); // the icon is never under the pointer
    release({125, 40});
    EXPECT_EQ(icon->getParent(), nullptr);
    EXPECT_FALSE(t->getIcon());
}

// --- cancels --------------------------------------------------------------------------------

TEST_F(DndCancel, DroppingOutsideAnyTargetCancels) {
    startDrag();
    drag({400, 300});
    release({400, 300});
    EXPECT_EQ(of("source"),
              (std::vector<std::string>{"willPopulate", "populate", "leave", "cancelled"}));
    EXPECT_EQ(count("target consume"), 0);
}

TEST_F(DndCancel, EscapeCancelsOnceAndTheReleaseThatFollowsIsHarmless) {
    startDrag();
    drag({125, 40});
    key(EvKeyCode::Escape);
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    EXPECT_EQ(count("source cancelled"), 1);
    release({125, 40});
    key(EvKeyCode::Escape);
    EXPECT_EQ(count("source cancelled"), 1);
    EXPECT_EQ(count("target consume"), 0);
    EXPECT_EQ(count("source completed"), 0);
}

TEST_F(DndCancel, AnotherGrabEndsTheDragAsACancel) {
    startDrag();
    UiGrab::pointer().grab(_target->getEventHandler());
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_EQ(count("source cancelled"), 1);
    EXPECT_EQ(UiGrab::pointer().getCurrent(), _target->getEventHandler());
}

TEST_F(DndCancel, ATargetRemovedMidDragIsHeldUntilThePointerLeavesIt) {
    startDrag();
    drag({125, 40});
    UiWidget* raw = _target.get();
    top->getRootContainer()->removeChild(_target);
    _target = nullptr;
    EXPECT_EQ(UiApplication::getInstance().getTransporter()->getTarget().get(), raw);
    drag({126, 40});
    release({126, 40});
    EXPECT_EQ(count("target consume"), 0);
    EXPECT_EQ(count("source cancelled"), 1);
}

TEST_F(DndCancel, ATargetRemovedWhileHoveredCanStillBeDroppedOnSafely) {
    startDrag();
    drag({125, 40});
    top->getRootContainer()->removeChild(_target);
    _target = nullptr;
    release({125, 40});
    // The transporter's reference kept it alive to the end; nothing was left behind.
    EXPECT_EQ(UiApplication::getInstance().getTransporter()->getTarget(), nullptr);
    EXPECT_EQ(count("source completed") + count("source cancelled"), 1);
}

// --- hover activation ---------------------------------------------------------------------------

TEST_F(DndHover, RestingOnATargetThatActivatesPostsOneRequestThatActivatesIt) {
    _targetDnd->activates = true;
    _targetDnd->setActivateEnabled(true);
    _targetDnd->setActivateOnDragEnterOnly(true);
    startDrag();
    drag({125, 40});
    RCShdPtr<UiTransporter> t = UiApplication::getInstance().getTransporter();
    EXPECT_TRUE(t->isAlarmRegistered());
    EXPECT_EQ(t->getAlarm()->getName(), "Activate Drag and Drop (UiTransporter)");
    EXPECT_EQ(count("target activate"), 0);
    OPtr<EvEvent> request = awaitHoverRequest(3000);
    ASSERT_TRUE(request);
    EXPECT_EQ(count("target activate"), 0); // the alarm thread only posts
    send(std::move(request));
    EXPECT_EQ(count("target activate"), 1);
    EXPECT_EQ(_targetDnd->activatedBy, t.get());
    // Entered once, activated once: more moves on it don't arm the alarm again.
    drag({126, 40});
    EXPECT_FALSE(t->isAlarmRegistered());
    release({126, 40});
}

TEST_F(DndHover, LeavingBeforeTheDelayOrActivationsOffActivateNothing) {
    _targetDnd->activates = true;
    startDrag();
    drag({125, 40});
    RCShdPtr<UiTransporter> t = UiApplication::getInstance().getTransporter();
    EXPECT_FALSE(t->isAlarmRegistered()); // activation isn't enabled on the target
    _targetDnd->setActivateEnabled(true);
    drag({126, 40});
    EXPECT_TRUE(t->isAlarmRegistered());
    drag({300, 300});
    EXPECT_FALSE(t->isAlarmRegistered());
    EXPECT_FALSE(awaitHoverRequest(800));
    // A request that arrives after the hover moved on does nothing.
    send(std::make_unique<UiTransporterRequestEvent>(0));
    release({300, 300});
    EXPECT_EQ(count("target activate"), 0);
}

// --- pick and stick ---------------------------------------------------------------------------

TEST_F(DndPickAndStick, OneClickPicksAndTheNextDropsOnATargetThatTakesIt) {
    _sourceDnd->picks = true;
    press({10, 10});
    EXPECT_TRUE(UiTransporter::isTransporting());
    EXPECT_TRUE(UiDragAndDrop::isPickAndStickActive());
    EXPECT_EQ(UiApplication::getInstance().getCurrentTransporter(),
              UiApplication::getInstance().getTransporterPnS());
    release({10, 10});
    EXPECT_TRUE(UiTransporter::isTransporting());
    drag({125, 40}, 0);
    EXPECT_EQ(cursor(), UiTransporter::AcceptedCursor);
    EXPECT_FALSE(UiApplication::getInstance().getTransporterPnS()->getIcon());
    press({125, 40});
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_FALSE(UiDragAndDrop::isPickAndStickActive());
    release({125, 40});
    EXPECT_EQ(_targetSink->consumed, std::vector<std::string>{"hello"});
    // Pick and stick doesn't ask whether the source will drag: the press picks.
    EXPECT_EQ(of("source"), (std::vector<std::string>{"populate", "leave", "completed"}));
    EXPECT_TRUE(UiArmStack::empty()); // neither press armed anything
}

TEST_F(DndPickAndStick, AClickThatIsRefusedTriesActivationAndKeepsTheDataOnThePointer) {
    _sourceDnd->picks = true;
    _targetSink->accept = false;
    _targetDnd->activates = true;
    _targetDnd->setActivateEnabled(true);
    press({10, 10});
    release({10, 10});
    drag({125, 40}, 0);
    press({125, 40});
    release({125, 40});
    EXPECT_TRUE(UiTransporter::isTransporting());
    EXPECT_EQ(count("target activate"), 1);
    EXPECT_EQ(count("source cancelled"), 0);
    key(EvKeyCode::Escape);
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_FALSE(UiDragAndDrop::isPickAndStickActive());
    EXPECT_EQ(count("source cancelled"), 1);
    EXPECT_EQ(count("target consume"), 0);
    // Presses reach widgets again.
    std::vector<std::string> seen;
    CbFunction<EvEvent> armed([&](EvEvent&) { seen.push_back("armed"); });
    _target->addArmCb(&armed);
    press({125, 40});
    release({125, 40});
    EXPECT_EQ(seen, std::vector<std::string>{"armed"});
    _target->removeArmCb(&armed);
}

TEST_F(DndPickAndStick, OnlyAPressPicksAndNothingPicksWithoutData) {
    _sourceDnd->picks = true;
    drag({10, 10}, 0);
    EXPECT_FALSE(UiTransporter::isTransporting());
    _sourceSink->payload.clear();
    press({10, 10});
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_FALSE(UiDragAndDrop::isPickAndStickActive());
    release({10, 10});
}

// --- the object -----------------------------------------------------------------------------

TEST(DndObject, WithoutASinkItSaysNoToEverything) {
    RCShdPtr<UiDragAndDrop> dnd = UiDragAndDrop::create();
    EXPECT_FALSE(dnd->isDragEnabled());
    EXPECT_FALSE(dnd->isDropEnabled());
    EvPointerMoveEvent move;
    EXPECT_FALSE(dnd->willDrag(move, nullptr));
    EXPECT_EQ(dnd->beginDrag(move, nullptr), nullptr);
    UiDragAndDrop::Info info(DrCarrier::create(SnSelection::create()));
    EXPECT_FALSE(info.isValidDrag());
    EXPECT_FALSE(dnd->willAcceptDrop(info));
    EXPECT_FALSE(dnd->beginDrop(info));
    EXPECT_FALSE(dnd->willAcceptActivate(info));
    EXPECT_FALSE(dnd->willPickAndStick());
    EXPECT_TRUE(dnd->getDragAndDropNames(info).empty());
    RCShdPtr<WsManagedImage> image;
    EXPECT_FALSE(dnd->getDragAndDropImage(&image, info));
    dnd->cancelDragAndDrop(info);
    dnd->dragAndDropComplete(info);
    EXPECT_EQ(info.getCarrier()->getLocation(), (GePoint2<float>{0, 0}));
}

TEST_F(DndDrop, FlagRequestsTakeEffectWhenTheLoopRunsThem) {
    UiApplication& app = UiApplication::getInstance();
    app.postRequest(std::make_unique<UiDragAndDrop::SetDragEnabledRequest>(_sourceDnd, false));
    app.postRequest(std::make_unique<UiDragAndDrop::SetDropEnabledRequest>(_targetDnd, false));
    app.postRequest(std::make_unique<UiDragAndDrop::SetActivateEnabledRequest>(_targetDnd, true));
    EXPECT_TRUE(_sourceDnd->isDragEnabled());
    std::deque<OPtr<EvEvent>> events;
    WsEventQ::getInstance().getAllEvents(events);
    for (auto& e : events)
        send(std::move(e));
    EXPECT_FALSE(_sourceDnd->isDragEnabled());
    EXPECT_FALSE(_targetDnd->isDropEnabled());
    EXPECT_TRUE(_targetDnd->isActivateEnabled());
    press({10, 10});
    drag({30, 10});
    EXPECT_FALSE(UiTransporter::isTransporting());
    release({30, 10});
}

} // namespace
} // namespace Zr
