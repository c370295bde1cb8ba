// Windows over the headless window layer: construction of a top level, repaint of the marks
// only, swaps, sizes and the stencil view. A click through the loop is in pushButtonTest.
#include "loopTestSupport.h"

#include "uiWindowImp.h"

#include "msgProtocol.h"
#include "smGlRecorder.h"
#include "wsDrawable.h"
#include "wsHeadlessWindow.h"

namespace Zr {
namespace {

using namespace LoopTest;

class WindowTopLevel : public LoopFixture {};

TEST_F(WindowTopLevel, IsBuiltOverANewSystemWindowWithARootThatFillsIt) {
    UiApplication& app = UiApplication::getInstance();
    WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({10, 310, 20, 220});
    RCShdPtr<UiTopLevel> top = UiTopLevel::create("Title", nullptr, style);
    EXPECT_EQ(top->getName(), "top_level");
    EXPECT_EQ(top->getWindowName(), "SecondaryWindow");
    ASSERT_TRUE(top->getOSWindow());
    EXPECT_EQ(top->getOSWindow()->getName(), "Title");
    EXPECT_EQ(top->getRect(), GeRectangle<int>(10, 310, 20, 220));
    EXPECT_EQ(app.getCurrentWindow().get(), top.get());
    EXPECT_EQ(app.getWindowRef(top->getOSWindow().get()), top.get());

    RCShdPtr<UiContainer> root = top->getRootContainer();
    ASSERT_TRUE(root);
    EXPECT_EQ(root->getName(), "OS_container");
    EXPECT_EQ(root->getParent(), top.get());
    EXPECT_EQ(root->getRect(), GeRectangle<int>(0, 300, 0, 200));
    EXPECT_FALSE(top->isMapped());

    // The system resizes the window: the root follows.
    static_cast<WsHeadlessWindow&>(*top->getOSWindow()).simulateResize({10, 110, 20, 70});
    EXPECT_EQ(root->getRect(), GeRectangle<int>(0, 100, 0, 50));
}

TEST_F(WindowTopLevel, SetRectGoesThroughTheSystemAndNeverBelowOnePixel) {
    RCShdPtr<UiTopLevel> top = UiTopLevel::create("size");
    top->setRect({0, 0, 0, 40});
    EXPECT_EQ(top->getOSWindow()->getGeometry(), GeRectangle<int>(0, 1, 0, 40));
    EXPECT_EQ(top->getRect(), GeRectangle<int>(0, 1, 0, 40));
}

TEST_F(WindowTopLevel, MappingMapsTheSystemWindowAndUnmappingUnmapsIt) {
    RCShdPtr<UiTopLevel> top = UiTopLevel::create("map");
    RCShdPtr<UiWidget> child = UiWidget::create(top->getRootContainer().get(), "child");
    top->show();
    EXPECT_TRUE(top->getOSWindow()->isMapped());
    EXPECT_TRUE(child->isMapped());
    {
        WsUnmapNotifyEvent unmap(top->getOSWindow()->getId());
        UiApplication::getInstance().processEvent(unmap);
    }
    EXPECT_FALSE(top->getOSWindow()->isMapped());
    EXPECT_FALSE(child->isMapped());
}

// --- redraw ---------------------------------------------------------------------------------

class WindowRedraw : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        _top = top;
        _left = UiWidget::create(root(), "left");
        _left->setRect({10, 60, 10, 60});
        _right = UiWidget::create(root(), "right");
        _right->setRect({100, 150, 10, 60});
        _window = static_cast<WsHeadlessWindow*>(_top->getOSWindow().get());
        // Paint both buffers once so that no mark is left: the first redraw leaves each mark
        // waiting for the other buffer, and only new damage asks for the next.
        _top->redraw();
        _top->markNotify();
        _top->redraw();
    }
    void TearDown() override {
        _left = nullptr;
        _right = nullptr;
        _top = nullptr;
        WindowFixture::TearDown();
    }
    // Rectangles painted by recti or clears that lie inside `r`.
    static int paintedInside(SmGlRecorder const& gl, GeRectangle<int> const& r) {
        int n = 0;
        for (auto const& p : gl.getPaintedRects())
            if (!p.rect.isEmpty() && r.intersection(p.rect) == p.rect)
                ++n;
        return n;
    }

    RCShdPtr<UiTopLevel> _top;
    RCShdPtr<UiWidget> _left, _right;
    WsHeadlessWindow* _window = nullptr;
};

TEST_F(WindowRedraw, AWindowWithNoMarksDoesNotSwap) {
    int swaps = _window->getNbSwaps();
    EXPECT_FALSE(_top->needsRedraw());
    EXPECT_FALSE(_top->redraw());
    EXPECT_EQ(_window->getNbSwaps(), swaps);
    EXPECT_EQ(_top->getSwapCount(), swaps);
}

TEST_F(WindowRedraw, OnlyTheMarkedWidgetIsPainted) {
    SmGlRecorder gl;
    SmGlBackendGuard guard(gl);
    _top->getContext()->invalidate(); // the new backend has been told nothing yet
    _right->markForUpdate();
    EXPECT_TRUE(_top->needsRedraw());
    int swaps = _window->getNbSwaps();
    ASSERT_TRUE(_top->redraw());
    EXPECT_EQ(_window->getNbSwaps(), swaps + 1);
    EXPECT_FALSE(_top->needsRedraw());
    EXPECT_GT(paintedInside(gl, {100, 150, 10, 60}), 0);
    EXPECT_EQ(paintedInside(gl, {10, 60, 10, 60}), 0);
    for (auto const& p : gl.getPaintedRects())
        EXPECT_TRUE(GeRectangle<int>(100, 150, 10, 60).contains(p.rect)) << p.rect;
    // The frame is set up for pixel-exact drawing.
    EXPECT_EQ(gl.getViewport(), GeRectangle<int>(0, 640, 0, 480));
}

TEST_F(WindowRedraw, AnExposeFromTheSystemIsPaintedAtTheNextRedraw) {
    SmGlRecorder gl;
    SmGlBackendGuard guard(gl);
    _top->getContext()->invalidate();
    _window->simulateExpose({10, 60, 10, 60});
    EXPECT_TRUE(_top->needsRedraw());
    ASSERT_TRUE(_top->redraw());
    EXPECT_GT(paintedInside(gl, {10, 60, 10, 60}), 0);
    EXPECT_EQ(paintedInside(gl, {100, 150, 10, 60}), 0);
}

TEST_F(WindowRedraw, TheLoopRedrawsDamagedWindowsOncePerTurn) {
    UiApplication& app = UiApplication::getInstance();
    int swaps = _window->getNbSwaps();
    CbFunction<EvEvent> handler([&](EvEvent&) {
        _left->markForUpdate();
        _right->markForUpdate();
    });
    app.addMainHandler(&handler);
    for (int i = 0; i < 3; ++i)
        app.postEvent(std::make_unique<EvDefaultEvent>());
    app.exitLoop();
    app.messageLoop();
    app.removeMainHandler(&handler);
    // All marks of the slice went into one repaint; the exit ended the loop before the next.
    EXPECT_EQ(_window->getNbSwaps(), swaps);
    EXPECT_TRUE(_top->needsRedraw());
    EXPECT_TRUE(_top->redraw());
    EXPECT_EQ(_window->getNbSwaps(), swaps + 1);
}

// Marks that cover, summed, twice the window's area since the last redraw merge into one
// repaint of all of it, in both buffers; fewer, or smaller, repaint only what they cover.
TEST_F(WindowRedraw, MarksOverTwiceTheWindowMergeIntoOneRepaint) {
    int const rows[][4] = {{3, 640, 240, 0}, {4, 640, 240, 1}, {64, 40, 40, 0}}; // n, w, h, merged
    for (auto const& [marks, width, height, merged] : rows) {
        for (int i = 0; i < 2; ++i, _top->markNotify())
            _top->redraw(); // both buffers, so that no mark is left
        SmGlRecorder gl;
        SmGlBackendGuard guard(gl);
        _top->getContext()->invalidate();
        for (int i = 0; i < marks; ++i)
            root()->markRegion(GeRectangle<int>::fromSize(0, 240, width, height));
        // The second redraw paints the other buffer (the next damage would ask for it).
        for (int buffer = 0; buffer < 2; ++buffer, _top->markNotify()) {
            gl.clearLog();
            ASSERT_TRUE(_top->redraw());
            EXPECT_EQ(paintedInside(gl, {10, 60, 10, 60}) > 0, merged != 0) << marks << width;
        }
    }
}

TEST_F(WindowRedraw, StencilModesCycleAndModeTwoForbidsClears) {
    UiWindowInitState::resetStencilCheck();
    EXPECT_TRUE(_top->isGlClearAllowed());
    _top->toggleStencilMode();
    EXPECT_EQ(_top->getStencilMode(), 1);
    EXPECT_TRUE(_top->isGlClearAllowed());
    {
        SmGlRecorder gl;
        SmGlBackendGuard guard(gl);
        ASSERT_TRUE(_top->redraw());
        EXPECT_EQ(gl.getCount("stencilOp"), 1);
        EXPECT_EQ(gl.getCount("drawPixels"), 1);
    }
    _top->toggleStencilMode();
    EXPECT_EQ(_top->getStencilMode(), 2);
    EXPECT_FALSE(_top->isGlClearAllowed());
    _top->toggleStencilMode();
    EXPECT_EQ(_top->getStencilMode(), 0);
    EXPECT_THROW(_top->setStencilMode(3), ExProgramAborted);
}

TEST(WindowStencil, HeatMapTablesCountOverdrawInColour) {
    auto const& t = UiWindowExitState::getHeatMapTables();
    EXPECT_EQ(t[0][0], 0);
    EXPECT_EQ(t[0][1], 85 << 8);
    EXPECT_EQ(t[2][1], 78 << 8);
    EXPECT_EQ(t[1][11], 255 << 8);
    EXPECT_EQ(t[0][20], 255 << 8);
    EXPECT_EQ(t[2][20], 197 << 8);
    for (int c = 0; c < 3; ++c)
        EXPECT_EQ(t[c][21], 255 << 8);
    EXPECT_EQ(t[3][0], 255 << 8);
    EXPECT_EQ(t[3][255], 255 << 8);
}

TEST_F(WindowTopLevel, StencilWarningWithTooFewBitsKeepsModeZero) {
    UiWindowInitState::resetStencilCheck();
    WsPixelFormat format = WsDrawable::getPixelFormat();
    WsPixelFormat poor = format;
    poor.stencilBits = 2;
    WsDrawable::setPixelFormat(poor);
    std::vector<std::string> shown;
    auto previous =
        MsgProtocol::setDisplayHandler([&](MsgBase const& m) { shown.push_back(m.getText()); });
    RCShdPtr<UiTopLevel> top = UiTopLevel::create("stencil");
    top->toggleStencilMode();
    top->toggleStencilMode(); // the check isn't repeated: no second warning
    MsgProtocol::setDisplayHandler(previous);
    WsDrawable::setPixelFormat(format);
    UiWindowInitState::resetStencilCheck();
    EXPECT_EQ(top->getStencilMode(), 0);
    EXPECT_EQ(shown, std::vector<std::string>{"Not enough stencil bits (2) in visual."});
}

} // namespace
} // namespace Zr
