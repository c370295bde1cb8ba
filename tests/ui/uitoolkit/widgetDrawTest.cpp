// The draw path as OpenGL sees it: one draw cycle per marked rectangle with its state, scissor
// and translation, background by clear or by rectangle, the user draw callbacks, the frame,
// and what opacity changes.
#include "treeTestSupport.h"
#include "uiTestSupport.h"

#include "smContext.h"
#include "smGlRecorder.h"
#include "uiFrame.h"
#include "uiMarkedRect.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Zr {
namespace {

using UiTest::TestRoot;

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
