// A track slider dragged with real pointer input (XTest) through SDL and the toolkit's loop: the
// value follows the hand, the handle shows it is held, and a progress bar fed by the slider's
// value callbacks fills up to the same fraction on screen. Skipped without a display or XTest.
#include "xinputDriver.h"

#include "uiApplication.h"
#include "uiGrab.h"
#include "uiProgressBar.h"
#include "uiTopLevel.h"
#include "uiTrackSlider.h"
#include "uiWidgetEvent.h"

#include "wsScreenshot.h"
#include "wsSdl.h"

#include <gtest/gtest.h>

#include <cstdint>

using namespace Zr;

namespace {

class SliderScreen : public ::testing::Test {
protected:
    void SetUp() override {
        if (!WsSdl::isActive())
            GTEST_SKIP() << "No display: " << WsSdl::getLastError();
        if (!_x.isUsable())
            GTEST_SKIP() << "No XTest: " << _x.getProblem();
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({100, 420, 100, 220});
        style.setMainWindow(false);
        _top = UiTopLevel::create("slider test", nullptr, style);
        _top->show();
        pump(200);
        // Where window point (5, 5) lands on the screen gives the window's place.
        _top->getOSWindow()->warpPointer(5, 5);
        _x.sync();
        pump(50);
        int rx = 0, ry = 0;
        unsigned long window = 0;
        ASSERT_TRUE(_x.queryPointer(rx, ry, window));
        _originX = rx - 5;
        _originTop = ry + 5;
    }
    void TearDown() override {
        if (!_top)
            return;
        UiGrab::pointer().clear();
        UiApplication::getInstance().clearCurrentWindow();
        _top->getRootContainer()->removeChildren();
        _top = nullptr;
        pump(50);
    }
    void pump(int ms) {
        UiApplication& app = UiApplication::getInstance();
        DtTimeIndex const until = DtRefTimeFactory::now() + std::int64_t(ms) * 1000;
        do {
            while (OPtr<EvEvent> e = app.getNextEvent(DtRefTimeFactory::now() + 5000))
                app.processEvent(*e);
            if (_top)
                _top->redraw();
        } while (DtRefTimeFactory::now() < until);
    }
    // Window coordinates (y up) to the screen's, then the server's answer and a redraw.
    void moveTo(int x, int y) {
        _x.moveTo(_originX + x, _originTop - y);
        _x.sync();
        pump(40);
    }
    void button(bool down) {
        _x.button(1, down);
        _x.sync();
        pump(40);
    }
    std::uint32_t pixel(int x, int y) {
        GeRectangle<int> const g = _top->getOSWindow()->getGeometry();
        return WsScreenshot::pixelAt(_top->readPixels(), g.width(), g.height(), x, y);
    }

    XInputTest::XInputDriver _x;
    RCShdPtr<UiTopLevel> _top;
    int _originX = 0, _originTop = 0;
};

// A pixel of the bar's blue shade: clearly more blue than red, unlike the grey background.
bool isBarBlue(std::uint32_t rgba) {
    int const r = static_cast<int>(rgba >> 24), b = static_cast<int>(rgba >> 8 & 0xff);
    return b - r > 25;
}

TEST_F(SliderScreen, DraggingTheHandleSetsTheValueAndTheBarFollowsOnScreen) {
    UiContainer* root = _top->getRootContainer().get();
    auto slider = UiTrackSlider::create(root, "slider");
    slider->setRect({20, 133, 60, 81}); // line frame: canvas 21..132, travel 26..126
    auto bar = UiProgressBar::create(root, "bar");
    bar->setRect({20, 300, 20, 41}); // canvas 21..299
    CbFunction<EvEvent> follow(
        [&](EvEvent& e) { bar->setValue(static_cast<UiValueChanged&>(e).getValue(), false); });
    slider->addValueChangedCb(&follow);
    pump(100);

    moveTo(26, 70);
    button(true);
    moveTo(60, 72);
    moveTo(101, 70);
    EXPECT_DOUBLE_EQ(slider->getValue(), 0.75);
    int const p = slider->getHandle().position;
    EXPECT_EQ(p, 101);
    // The grip of a held handle is lighter; the bar fills to 21 + 0.75 * 278, rounded.
    EXPECT_EQ(pixel(p - 1, 72), 0xbebebeffu); // Grey190
    EXPECT_TRUE(isBarBlue(pixel(225, 30)));
    EXPECT_FALSE(isBarBlue(pixel(235, 30)));

    button(false);
    EXPECT_EQ(pixel(p - 1, 72), 0x919191ffu); // Grey145
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    slider->removeValueChangedCb(&follow);
}

} // namespace
