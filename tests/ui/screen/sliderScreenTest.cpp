// A track slider dragged with real pointer input (XTest) through SDL and the toolkit's loop: the
// value follows the hand, the handle shows it is held, and a progress bar fed by the slider's
// value callbacks fills up to the same fraction on screen. Skipped without a display or XTest.
#include "xinputWindowFixture.h"

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

class SliderScreen : public XInputTest::XInputWindowFixture {
protected:
    GeRectangle<int> windowRect() const override { return {100, 420, 100, 220}; }
    char const* windowTitle() const override { return "slider test"; }
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
    pumpFor(100);

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
