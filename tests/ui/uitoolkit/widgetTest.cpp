// UiWidget as a client sees it: resize notices and the damage a move leaves on parent and
// widget, mapping under unmapped parents, the enable asymmetry, opacity, colours, event
// dropping, scroll forwarding, sibling constraints and what a destroyed widget leaves behind;
// and the draw path as OpenGL sees it: one draw cycle per marked rectangle with its state,
// scissor and translation, background by clear or by rectangle, the user draw callbacks, the
// frame, and what opacity changes.
#include "smContext.h"
#include "smGlRecorder.h"
#include "support/exceptionReason.h"
#include "treeTestSupport.h"
#include "uiFocusKeyboard.h"
#include "uiFocusPointer.h"
#include "uiFrame.h"
#include "uiGrab.h"
#include "uiMarkedRect.h"
#include "uiTestSupport.h"
#include "uiWidgetEvent.h"
#include "wsEvents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace Zr {
namespace {

using UiTest::LoggingWidget;
using UiTest::TestRoot;
using Log = std::vector<std::string>;
using Rects = std::vector<GeRectangle<int>>;

class WidgetTest : public ::testing::Test {
protected:
    void SetUp() override {
        root = TestRoot::make({0, 200, 0, 100});
        w = LoggingWidget::make(root.get(), "w", {0, 10, 0, 10}, &log);
        root->clearMarks();
        w->clearMarks();
        log.clear();
    }
    void TearDown() override {
        UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
        UiArmStack::clear();
        root->removeChildren();
    }
    // The log without focus notices, which depend on the focus rules.
    Log entries(std::string const& suffix) const {
        Log out;
        for (auto const& s : log)
            if (s.ends_with(suffix))
                out.push_back(s);
        return out;
    }

    Log log;
    RCShdPtr<TestRoot> root;
    RCShdPtr<LoggingWidget> w;
};

// The same tree under a window: containers keep marks only when they have one.
class WidgetDamage : public ::testing::Test {
protected:
    void SetUp() override {
        root = TreeTest::MappedWindow::make({0, 200, 0, 100});
        w = LoggingWidget::make(root.get(), "w", {0, 10, 0, 10}, &log);
        root->clearMarks();
        w->clearMarks();
        log.clear();
    }
    void TearDown() override { root->removeChildren(); }

    Log log;
    RCShdPtr<TreeTest::MappedWindow> root;
    RCShdPtr<LoggingWidget> w;
};

TEST_F(WidgetTest, SetRectToTheSameRectangleFiresNothingAndMarksNothing) {
    w->setRect({0, 10, 0, 10}, true);
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(w->getMarkedRects().empty());
    EXPECT_TRUE(root->getMarkedRects().empty());
}

TEST_F(WidgetTest, SetRectFiresResizeWithTheNewRectangleOnlyWhenAsked) {
    GeRectangle<int> seen;
    CbFunction<EvEvent> onResize([&](EvEvent& e) {
        seen = dynamic_cast<UiResize&>(e).getRegion();
        EXPECT_EQ(dynamic_cast<UiResize&>(e).getWidget(), w.get());
    });
    w->addResizeCb(&onResize);
    w->setRect({0, 20, 0, 10}, false);
    EXPECT_TRUE(entries("resize").empty());
    w->setRect({0, 30, 0, 15}, true);
    EXPECT_EQ(entries("resize"), (Log{"w resize"}));
    EXPECT_EQ(seen, (GeRectangle<int>{0, 30, 0, 15}));
}

TEST_F(WidgetDamage, OverlappingMoveMarksOnlyTheUncoveredStripOnEachSide) {
    w->setRect({5, 15, 0, 10}, true);
    EXPECT_EQ(root->getMarkedRects(), (Rects{{0, 5, 0, 10}}));
    EXPECT_EQ(w->getMarkedRects(), (Rects{{10, 15, 0, 10}}));
}

TEST_F(WidgetDamage, DisjointMoveMarksTheWholeOldAndNewRectangles) {
    w->setRect({50, 60, 20, 30}, true);
    EXPECT_EQ(root->getMarkedRects(), (Rects{{0, 10, 0, 10}}));
    EXPECT_EQ(w->getMarkedRects(), (Rects{{50, 60, 20, 30}}));
}

TEST_F(WidgetTest, GrowthNotAStripKeepsTheWholeRectangle) {
    // Growing on two sides: the new less the old is no single strip, so all of it is marked.
    w->setRect({0, 20, 0, 20}, true);
    EXPECT_EQ(w->getMarkedRects(), (Rects{{0, 20, 0, 20}}));
    EXPECT_TRUE(root->getMarkedRects().empty());
}

TEST_F(WidgetTest, RectangleSubtractionCutsOnlyStrips) {
    using R = GeRectangle<int>;
    EXPECT_EQ(UiWidget::subtractRect({0, 10, 0, 10}, {5, 15, 0, 10}), (R{0, 5, 0, 10}));
    EXPECT_EQ(UiWidget::subtractRect({5, 15, 0, 10}, {0, 10, 0, 10}), (R{10, 15, 0, 10}));
    EXPECT_EQ(UiWidget::subtractRect({0, 10, 0, 10}, {0, 10, 4, 20}), (R{0, 10, 0, 4}));
    EXPECT_EQ(UiWidget::subtractRect({2, 8, 2, 8}, {0, 10, 0, 10}).isEmpty(), true);
    EXPECT_EQ(UiWidget::subtractRect({0, 10, 0, 10}, {3, 6, 3, 6}), (R{0, 10, 0, 10}));
}

TEST_F(WidgetTest, ZeroSizedWidgetNeverReceivesMarks) {
    w->setRect({20, 20, 5, 5}, true);
    w->clearMarks();
    w->markForUpdate();
    w->markRegion({});
    EXPECT_TRUE(w->getMarkedRects().empty());
}

TEST_F(WidgetTest, ShowUnderAnUnmappedParentDisplaysWithoutMappingUntilTheParentMaps) {
    w->hide();
    EXPECT_EQ(entries("unmap"), (Log{"w unmap"}));
    root->unmapRoot();
    w->clearMarks();
    log.clear();
    w->show();
    EXPECT_TRUE(w->isDisplayed());
    EXPECT_FALSE(w->isMapped());
    EXPECT_TRUE(w->getMarkedRects().empty());
    EXPECT_TRUE(log.empty());
    root->mapRoot();
    EXPECT_TRUE(w->isMapped());
    EXPECT_EQ(entries("map"), (Log{"w map"}));
}

TEST_F(WidgetDamage, HideMarksTheRectangleOnTheParent) {
    w->hide();
    EXPECT_FALSE(w->isMapped());
    EXPECT_EQ(root->getMarkedRects(), (Rects{{0, 10, 0, 10}}));
    EXPECT_TRUE(w->getMarkedRects().empty());
}

TEST_F(WidgetTest, EnableUnderADisabledParentIsNotRemembered) {
    auto box = UiContainer::create(root.get(), "box");
    auto child = LoggingWidget::make(box.get(), "child", {0, 5, 0, 5}, &log);
    log.clear();
    box->enable(false);
    EXPECT_FALSE(child->isEnabled());
    EXPECT_TRUE(child->isParentDisabled());
    EXPECT_FALSE(child->isSelfDisabled());

    child->enable(false); // no change of effective state: nothing, not even _selfDisabled
    EXPECT_FALSE(child->isSelfDisabled());
    child->enable(true);
    EXPECT_EQ(entries("able"), (Log{"child disable"}));

    box->enable(true);
    EXPECT_TRUE(child->isEnabled());
    EXPECT_EQ(entries("able"), (Log{"child disable", "child enable"}));
}

TEST_F(WidgetTest, EnableCallbacksStillSeeTheOldState) {
    bool enabledInCallback = false;
    CbFunction<EvEvent> onDisable([&](EvEvent&) { enabledInCallback = w->isEnabled(); });
    w->addDisableCb(&onDisable);
    w->enable(false);
    EXPECT_TRUE(enabledInCallback);
    EXPECT_FALSE(w->isEnabled());
    EXPECT_TRUE(w->isSelfDisabled());
    EXPECT_EQ(w->getMarkedRects(), (Rects{{0, 10, 0, 10}}));
}

TEST_F(WidgetTest, DisabledWidgetDropsEveryEvent) {
    w->enable(false);
    log.clear();
    EvPointerMoveEvent move;
    w->processEvent(move);
    auto down = UiTest::makeDown(1);
    w->processEvent(down);
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(UiArmStack::empty());
}

TEST_F(WidgetTest, ExposeEventAtAWidgetAbortsTheProgram) {
    WsExposeEvent expose;
    EXPECT_THROW(w->processEvent(expose), ExProgramAborted);
}

TEST_F(WidgetTest, OpaqueWithinOneRelativeFloatStep) {
    // One step below or above 1 is opaque, three half steps below or four above are not.
    std::string opaque;
    for (float v :
         {1.0f, std::nextafter(1.0f, 0.0f), 1.0f - 1.1920929e-7f, 1.0f - 3 * 5.9604645e-8f,
          std::nextafter(1.0f, 2.0f), 1.0f + 4 * 1.1920929e-7f, 0.5f, 0.0f, INFINITY}) {
        w->setOpacity(v);
        opaque += w->isOpaque() ? 'y' : 'n';
    }
    EXPECT_EQ(opaque, "yyynynnnn");
}

TEST_F(WidgetDamage, TranslucentWidgetMarksItsParentToo) {
    w->setOpacity(0.5f);
    EXPECT_EQ(w->getMarkedRects(), (Rects{{0, 10, 0, 10}}));
    EXPECT_EQ(root->getMarkedRects(), (Rects{{0, 10, 0, 10}}));
}

TEST_F(WidgetTest, ColoursByNameAndBlackForUnknownNames) {
    CoRgbColor red(1, 0, 0), green(0, 1, 0);
    w->setColor("Background", red);
    w->setColor("Foreground", green);
    w->setColor("NoSuchColour", green);
    EXPECT_EQ(w->getColor("Background"), red);
    EXPECT_EQ(w->getCurrentBackground(), red);
    EXPECT_EQ(w->getColor("Foreground"), green);
    EXPECT_EQ(w->getColor("NoSuchColour"), CoRgbColor(0, 0, 0));
}

TEST_F(WidgetTest, LockFiresOnlyOnChange) {
    int locks = 0, unlocks = 0;
    CbFunction<EvEvent> onLock([&](EvEvent&) { ++locks; });
    CbFunction<EvEvent> onUnlock([&](EvEvent&) { ++unlocks; });
    w->addLockCb(&onLock);
    w->addUnlockCb(&onUnlock);
    w->lock();
    w->lock();
    w->unlock();
    w->unlock();
    EXPECT_EQ(locks, 1);
    EXPECT_EQ(unlocks, 1);
    EXPECT_FALSE(w->isLocked());
}

TEST_F(WidgetTest, RemovedCallbackIsNotCalledAndUserDrawInsertGoesFirst) {
    Log order;
    CbFunction<EvEvent> first([&](EvEvent&) { order.push_back("first"); });
    CbFunction<EvEvent> second([&](EvEvent&) { order.push_back("second"); });
    w->addUserDrawCb(&second);
    w->insertUserDrawCb(&first);
    w->markForUpdate();
    w->expose({0, 200, 0, 100}, {0, 0});
    EXPECT_EQ(order, (Log{"first", "second"}));
    w->removeUserDrawCb(&first);
    order.clear();
    w->markForUpdate();
    w->expose({0, 200, 0, 100}, {0, 0});
    EXPECT_EQ(order, (Log{"second"}));
}

// --- scroll --------------------------------------------------------------------------------

TEST_F(WidgetTest, ScrollClimbsTheParentsUntilProcessed) {
    auto box = UiContainer::create(root.get(), "box");
    auto child = LoggingWidget::make(box.get(), "child", {0, 5, 0, 5}, &log);
    CbFunction<EvEvent> onBox([&](EvEvent&) { log.push_back("box scroll"); });
    CbFunction<EvEvent> onRoot([&](EvEvent&) { log.push_back("root scroll"); });
    box->addScrollCb(&onBox);
    root->addScrollCb(&onRoot);
    log.clear();
    EvPointerScrollEvent scroll;
    child->processEvent(scroll);
    EXPECT_EQ(entries("scroll"), (Log{"child scroll", "box scroll", "root scroll"}));

    log.clear();
    CbFunction<EvEvent> consume([](EvEvent& e) { e.setProcessed(); });
    box->addScrollCb(&consume);
    EvPointerScrollEvent second;
    child->processEvent(second);
    EXPECT_EQ(entries("scroll"), (Log{"child scroll", "box scroll"}));
}

TEST_F(WidgetTest, ScrollHandedBackDownDoesNotCycle) {
    auto box = UiContainer::create(root.get(), "box");
    auto child = LoggingWidget::make(box.get(), "child", {0, 5, 0, 5}, &log);
    CbFunction<EvEvent> bounce([&](EvEvent& e) {
        log.push_back("box scroll");
        child->scroll(static_cast<EvPointerScrollEvent&>(e));
    });
    box->addScrollCb(&bounce);
    CbFunction<EvEvent> onRoot([&](EvEvent&) { log.push_back("root scroll"); });
    root->addScrollCb(&onRoot);
    log.clear();
    EvPointerScrollEvent scroll;
    child->processEvent(scroll);
    EXPECT_EQ(entries("scroll"),
              (Log{"child scroll", "box scroll", "child scroll", "root scroll"}));
}

// --- constraint ----------------------------------------------------------------------------

TEST_F(WidgetTest, ASiblingCreatedAfterTheWidgetIsReportedWithBothNames) {
    UiConstraint c(0, 0, 10, 10, UiConstraint::TypePixel, UiConstraint::TypePixel,
                   UiConstraint::TypePixel, UiConstraint::TypePixel, UiConstraint::TargetSibling,
                   UiConstraint::TargetLow, UiConstraint::TargetLow, UiConstraint::TargetLow,
                   "later");
    EXPECT_EQ(TestSupport::reasonOf<UiWidgetSiblingConstraintEx>([&] { w->setConstraint(c); }),
              "Widget 'w': Invalid sibling constraint: sibling 'later' not found (possible "
              "cause: the widget was created earlier than the target sibling).");
    // Made later, it would be placed after this widget's constraint ran: still refused.
    auto later = LoggingWidget::make(root.get(), "later", {30, 40, 0, 10}, &log);
    EXPECT_THROW(w->applyConstraint(), UiWidgetSiblingConstraintEx);
}

TEST_F(WidgetTest, AConstraintUnderAParentBelowOnePixelWaitsForItsResize) {
    auto box = UiContainer::create(root.get(), "box");
    for (GeRectangle<int> const& empty : {GeRectangle<int>{0, 0, 0, 50}, {0, 50, 0, 0}}) {
        box->setRect(empty);
        auto child = LoggingWidget::make(box.get(), "child", {1, 2, 3, 4}, &log);
        child->setConstraint(UiFillConstraint());
        EXPECT_EQ(child->getRect(), (GeRectangle<int>{1, 2, 3, 4}));
        box->setRect({0, 30, 0, 20});
        EXPECT_EQ(child->getRect(), (GeRectangle<int>{0, 30, 0, 20}));
        box->removeChildren();
    }
}

TEST_F(WidgetTest, RemoveConstraintStopsParentResize) {
    w->setConstraint(UiFillConstraint());
    EXPECT_TRUE(w->hasConstraint());
    GeRectangle<int> placed = w->getRect();
    w->removeConstraint();
    EXPECT_FALSE(w->hasConstraint());
    w->parentResize(500, 500);
    EXPECT_EQ(w->getRect(), placed);
}

// --- destruction ---------------------------------------------------------------------------

TEST_F(WidgetTest, DestroyedWidgetLeavesNoFocusGrabOrArmEntry) {
    auto loose = UiWidget::create(root.get(), "loose");
    int destroyed = 0;
    CbFunction<EvEvent> onDestroy([&](EvEvent&) { ++destroyed; });
    loose->addDestroyCb(&onDestroy);
    UiGrab::pointer().grab(loose->getEventHandler());
    UiGrab::keyboard().grab(loose->getEventHandler());
    UiFocusKeyboard::getInstance().setFocus(loose.get());
    UiFocusPointer::getInstance().updatePointer(loose.get(), false);
    auto down = UiTest::makeDown(1);
    loose->arm(down);
    UiWidget* dying = loose.get();
    root->removeChild(loose);
    loose = nullptr;
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    EXPECT_EQ(UiGrab::keyboard().getCurrent(), nullptr);
    EXPECT_NE(UiFocusKeyboard::getInstance().getFocus(), dying);
    EXPECT_NE(UiFocusPointer::getInstance().getPointer(), dying);
    EXPECT_NE(UiFocusPointer::getInstance().getFocus(), dying);
    EXPECT_FALSE(UiArmStack::contains(dying));
}

TEST_F(WidgetTest, CreateGivesAPlacedDefaultWidget) {
    auto plain = UiWidget::create(root.get(), "plain");
    EXPECT_EQ(plain->getRect(), UiWidget::getDefaultSize());
    EXPECT_EQ(plain->getInitPhase(), 5);
    EXPECT_TRUE(plain->isMapped());
    EXPECT_EQ(plain->getParent(), root.get());
    EXPECT_EQ(plain->getReferenceCount(), 2); // the parent's and ours
}

// A frame that counts its draws and takes one pixel on each side.
class CountingFrame : public UiFrame {
public:
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const&) override {
        ++draws;
        lastRect = rect;
        lastBackground = background;
    }
    GeRectangle<int> getCanvas(GeRectangle<int> const& rect) const override {
        return GeRectangleUtil::addBorder(rect, -1);
    }
    LiString getType() const override { return "Counting"; }
    int draws = 0;
    GeRectangle<int> lastRect;
    CoRgbColor lastBackground;
};

class WidgetDraw : public ::testing::Test {
protected:
    void SetUp() override {
        // The shared context's cache may believe states of earlier tests: start afresh.
        SmContext::getCurrentContext()->invalidate();
        root = TestRoot::make({0, 200, 0, 100});
        w = UiWidget::create(root.get(), "w");
        w->setRect({10, 60, 20, 50}, false);
        frame = makeShared<CountingFrame>();
        w->setFrame(frame, UiWidget::DefaultFrame);
        w->setColor("Background", {0.25f, 0.5f, 0.75f});
        w->clearMarks();
        w->addUserDrawCb(&userDraw);
    }
    void TearDown() override { root->removeChildren(); }
    bool logged(std::string const& call) const {
        auto const& log = gl.getLog();
        return std::find(log.begin(), log.end(), call) != log.end();
    }

    SmGlRecorder gl;
    SmGlBackendGuard guard{gl};
    RCShdPtr<TestRoot> root;
    RCShdPtr<UiWidget> w;
    RCShdPtr<CountingFrame> frame;
    int userDraws = 0;
    CbFunction<EvEvent> userDraw{[this](EvEvent& e) {
        ++userDraws;
        auto& draw = dynamic_cast<EvDrawEvent&>(e);
        EXPECT_EQ(draw.getSender(), w.get());
    }};
};

TEST_F(WidgetDraw, OneCyclePerMarkScissoredAndTranslatedThenMarksAdvance) {
    w->markRegion({10, 20, 20, 30});
    w->markRegion({40, 60, 40, 50});
    gl.clearLog();
    w->expose({0, 200, 0, 100}, {100, 5});
    EXPECT_TRUE(logged("scissor(110, 25, 10, 10)"));
    EXPECT_TRUE(logged("scissor(140, 45, 20, 10)"));
    EXPECT_EQ(gl.getCount("translatef"), 4); // in and out, twice
    EXPECT_TRUE(logged("translatef(100, 5, 0)"));
    EXPECT_TRUE(logged("translatef(-100, -5, 0)"));
    EXPECT_EQ(userDraws, 2);
    EXPECT_EQ(frame->draws, 2);
    EXPECT_EQ(frame->lastRect, (GeRectangle<int>{10, 60, 20, 50}));
    // Drawn into one buffer: both wait for the other.
    for (auto const& m : w->getMarkedRectList())
        EXPECT_EQ(m.getState(), UiMarkedRect::DrawnOnce);
    w->expose({0, 200, 0, 100}, {100, 5});
    EXPECT_TRUE(w->getMarkedRects().empty());
}

TEST_F(WidgetDraw, WithoutAWindowTheBackgroundIsARectangleInWidgetSpace) {
    w->markRegion({10, 20, 20, 30});
    gl.clearLog();
    w->expose({0, 200, 0, 100}, {100, 5});
    EXPECT_TRUE(logged("recti(10, 20, 20, 30)"));
    EXPECT_EQ(gl.getCount("clear"), 0);
    EXPECT_EQ(gl.getColor().r, 0.25f);
}

TEST_F(WidgetDraw, ClipOutsideTheWidgetDrawsNothing) {
    w->markForUpdate();
    gl.clearLog();
    w->expose({150, 200, 0, 100}, {0, 0});
    EXPECT_EQ(gl.getTotalCount(), 0);
    EXPECT_EQ(w->getMarkedRects().size(), 1u);
}

TEST_F(WidgetDraw, OpacityZeroSkipsBackgroundAndUserDrawStaysButFrameIsDrawn) {
    w->setOpacity(0.0f);
    w->clearMarks();
    w->markForUpdate();
    gl.clearLog();
    w->expose({0, 200, 0, 100}, {0, 0});
    EXPECT_EQ(gl.getCount("recti"), 0);
    EXPECT_EQ(gl.getCount("clear"), 0);
    EXPECT_EQ(frame->draws, 1);
    EXPECT_EQ(gl.getCount("blendColor"), 0);
}

TEST_F(WidgetDraw, TranslucentWidgetBlendsWithTheConstantAlpha) {
    w->setOpacity(0.5f);
    w->clearMarks();
    w->markForUpdate();
    gl.clearLog();
    w->expose({0, 200, 0, 100}, {0, 0});
    EXPECT_TRUE(logged("blendColor(0, 0, 0, 0.5)"));
    EXPECT_TRUE(gl.isEnabled(Gl::BLEND) || logged("enable(0x0BE2)"));
    EXPECT_EQ(gl.getCount("recti"), 1);
}

TEST_F(WidgetDraw, DrawStatesBySelection) {
    SmStateObject const& opaque = UiWidget::getDrawState(UiWidget::DrawStateOpaque, 1.0f);
    SmStateObject const& blended = UiWidget::getDrawState(UiWidget::DrawStateBlended, 1.0f);
    EXPECT_EQ(&UiWidget::getDrawState(UiWidget::DrawStateByOpacity, 0.3f), &blended);
    EXPECT_EQ(&UiWidget::getDrawState(UiWidget::DrawStateByOpacity, 1.0f), &opaque);
    EXPECT_EQ(&UiWidget::getDrawState(UiWidget::DrawStateByOpacity, 0.0f), &opaque);
    EXPECT_EQ(opaque.getCapability(Gl::SCISSOR_TEST), true);
    EXPECT_EQ(opaque.getCapability(Gl::DITHER), false);
    EXPECT_EQ(blended.getCapability(Gl::BLEND), true);
    ASSERT_TRUE(blended.getBlendFunc().has_value());
    EXPECT_EQ(blended.getBlendFunc()->src, Gl::CONSTANT_ALPHA);
    EXPECT_EQ(blended.getBlendEquation(), Gl::FUNC_ADD);
    EXPECT_THROW(UiWidget::getDrawState(3, 1.0f), ExProgramAborted);
}

TEST_F(WidgetDraw, CollapsingDrawsTheUnionOnceAndRemarksIt) {
    w->setDrawCollapsing(true);
    w->markRegion({10, 20, 20, 30});
    w->markRegion({40, 60, 40, 50});
    gl.clearLog();
    w->expose({0, 200, 0, 100}, {0, 0});
    EXPECT_EQ(gl.getCount("scissor"), 1);
    EXPECT_TRUE(logged("scissor(10, 20, 50, 30)"));
    EXPECT_EQ(w->getMarkedRects(), (std::vector<GeRectangle<int>>{{10, 60, 20, 50}}));
}

// In a window the opaque background is a clear, unless the window counts overdraw.
class WidgetDrawInWindow : public ::testing::Test {
protected:
    void SetUp() override {
        SmContext::getCurrentContext()->invalidate();
        window = TreeTest::MappedWindow::make({0, 200, 0, 100});
        w = UiWidget::create(window.get(), "w");
        w->setRect({10, 60, 20, 50}, false);
        w->setColor("Background", {0.25f, 0.5f, 0.75f});
    }
    void TearDown() override { window->removeChildren(); }

    SmGlRecorder gl;
    SmGlBackendGuard guard{gl};
    RCShdPtr<TreeTest::MappedWindow> window;
    RCShdPtr<UiWidget> w;
};

TEST_F(WidgetDrawInWindow, OpaqueBackgroundIsAScissoredClear) {
    w->markForUpdate();
    gl.clearLog();
    w->expose({0, 200, 0, 100}, {0, 0});
    EXPECT_EQ(gl.getCount("clear"), 1);
    EXPECT_TRUE(gl.getLog().end() != std::find(gl.getLog().begin(), gl.getLog().end(),
                                               "clearColor(0.25, 0.5, 0.75, 1)"));
    EXPECT_EQ(gl.getCount("recti"), 0);
}

TEST_F(WidgetDrawInWindow, WithoutClearsTheBackgroundIsARectangle) {
    window->setStencilMode(2);
    w->markForUpdate();
    gl.clearLog();
    w->expose({0, 200, 0, 100}, {0, 0});
    EXPECT_EQ(gl.getCount("clear"), 0);
    EXPECT_EQ(gl.getCount("recti"), 1);
    window->setStencilMode(0);
}

} // namespace
} // namespace Zr
