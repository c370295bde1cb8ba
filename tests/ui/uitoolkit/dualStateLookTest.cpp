// Two-state widgets and push buttons: the frames each look installs, the colours that wait for
// the next change of state, which label a text change redraws, keys left unconsumed, and the
// colour each widget draws its text in.
#include "buttonTestSupport.h"

#include "uiColorRegistry.h"
#include "uiConfirmButton.h"
#include "uiDragButton.h"
#include "uiFrame.h"
#include "uiLabel.h"
#include "uiLabeledIcon.h"
#include "uiPushButton.h"
#include "uiPushedToggle.h"
#include "uiToggleButton.h"
#include "uiWidgetFactory.h"

#include "smGlRecorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace Zr {
namespace {

using UiTest::clickOn;
using UiTest::keyPressOf;
using UiTest::pressOn;
using UiTest::releaseOn;

CoRgbColor registry(char const* name) {
    return UiColorRegistry::getInstance().getColor(name);
}

std::string frameType(UiWidget const& w, char const* slot) {
    RCShdPtr<UiFrame> frame = w.getFrame(slot);
    return frame ? frame->getType().str() : "(none)";
}

std::string currentFrameType(UiWidget const& w) {
    return w.getCurrentFrame() ? w.getCurrentFrame()->getType().str() : "(none)";
}

class DualStateLook : public UiTest::ButtonFixture {
protected:
    void SetUp() override {
        UiFrameRegistry::registerDefaultFrames();
        ButtonFixture::SetUp();
    }
};

TEST_F(DualStateLook, FramesOfEachKindFollowTheState) {
    // A built toggle button ends with the toggle frames: its radio-frame default replaces the
    // push frames.
    auto toggle = UiToggleButton::create(root.get(), "t");
    EXPECT_EQ(frameType(*toggle, "On"), "ToggleIn");
    EXPECT_EQ(frameType(*toggle, "Off"), "ToggleOut");
    EXPECT_EQ(currentFrameType(*toggle), "ToggleOut");
    toggle->setState(true, false);
    EXPECT_EQ(currentFrameType(*toggle), "ToggleIn");
    toggle->setRadioFrame(true);
    EXPECT_EQ(frameType(*toggle, "On"), "RadioIn");
    EXPECT_EQ(frameType(*toggle, "Off"), "RadioOut");
    EXPECT_EQ(currentFrameType(*toggle), "RadioIn");

    auto pushed = UiPushedToggle::create(root.get(), "p");
    EXPECT_EQ(frameType(*pushed, "On"), "ToggleIn");
    EXPECT_EQ(currentFrameType(*pushed), "ToggleOut");
    EXPECT_EQ(pushed->getColor("DisabledForegroundColor"), registry("InactiveForeground"));
    EXPECT_EQ(pushed->getLabel(0).getMarginH(), 5);

    auto label = UiLabel::create(root.get(), "l");
    EXPECT_EQ(currentFrameType(*label), "CurveI");
    auto icon = UiLabeledIcon::create(root.get(), "i");
    EXPECT_EQ(currentFrameType(*icon), "None");

    auto button = UiPushButton::create(root.get(), "b");
    EXPECT_EQ(currentFrameType(*button), "PushOut");
    EXPECT_EQ(frameType(*button, "Pushed"), "PushIn");
    pressOn(*button);
    EXPECT_EQ(currentFrameType(*button), "PushIn");
    EXPECT_EQ(button->getCurrentBackground(), button->getColor("PushedColor"));
    releaseOn(*button);
    EXPECT_EQ(currentFrameType(*button), "PushOut");
    EXPECT_EQ(button->getCurrentBackground(), button->getBackground());
}

TEST_F(DualStateLook, DefinitionsSetTheFirstLookAndBadRadioFramesAreIgnored) {
    // The off foreground and the background of a definition show before any change of state.
    RCShdPtr<UiWidget> made = UiWidgetFactory::createWidgetFromText(
        RCShdPtr<UiContainer>(root), R"(<PushedToggle><Widget Name="q">
          <OffForegroundColor><Color>Blue</Color></OffForegroundColor>
          <Background><Color>Red</Color></Background>
        </Widget></PushedToggle>)",
        "q.xml");
    EXPECT_EQ(made->getForeground(), registry("Blue"));
    EXPECT_EQ(made->getCurrentBackground(), registry("Red"));

    auto toggle = UiToggleButton::create(root.get(), "t");
    toggle->changeResource(LiString("<RadioFrame><Int>1</Int><Int>1</Int></RadioFrame>"));
    EXPECT_FALSE(toggle->isRadioFrame());
    toggle->changeResource(LiString("<RadioFrame><Text>1</Text></RadioFrame>"));
    EXPECT_FALSE(toggle->isRadioFrame());
    toggle->changeResource(LiString("<RadioFrame><Int>1</Int></RadioFrame>"));
    EXPECT_TRUE(toggle->isRadioFrame());

    EXPECT_EQ(currentFrameType(*UiConfirmButton::create(root.get(), "c")), "In");
    EXPECT_EQ(currentFrameType(*UiDragButton::create(root.get(), "d")), "None");
}

TEST_F(DualStateLook, NewOnColourShowsFromTheNextChangeOfState) {
    auto toggle = UiToggleButton::create(root.get(), "t");
    toggle->setState(true, false);
    CoRgbColor const before = toggle->getCurrentBackground();
    toggle->clearMarks();
    toggle->setColor("OnColor", registry("Red"));
    EXPECT_EQ(toggle->getCurrentBackground(), before);
    EXPECT_FALSE(toggle->getMarkedRects().empty());
    toggle->setState(false, false);
    toggle->setState(true, false);
    EXPECT_EQ(toggle->getCurrentBackground(), registry("Red"));
}

TEST_F(DualStateLook, TextChangeRedrawsOnlyTheLabelOfThePresentState) {
    auto toggle = UiToggleButton::create(root.get(), "t");
    toggle->setRect({0, 80, 0, 20}, false);
    toggle->setState(true, false);
    toggle->clearMarks();
    toggle->setLabel(0, "off");
    EXPECT_TRUE(toggle->getMarkedRects().empty());
    toggle->setLabel(1, "on");
    EXPECT_FALSE(toggle->getMarkedRects().empty());
}

TEST_F(DualStateLook, EnterOnAToggleIsLeftForOthersAndOnAButtonConsumed) {
    auto toggle = UiToggleButton::create(root.get(), "t");
    auto ret = keyPressOf(EvKeyCode::Return);
    toggle->processEvent(ret);
    EXPECT_TRUE(toggle->getState());
    EXPECT_FALSE(ret.isProcessed());

    auto button = UiPushButton::create(root.get(), "b");
    auto enter = keyPressOf(EvKeyCode::KP_Enter);
    button->processEvent(enter);
    EXPECT_TRUE(enter.isProcessed());
    EXPECT_FALSE(button->getActive());
}

TEST_F(DualStateLook, FontGoesToBothLabels) {
    auto toggle = UiToggleButton::create(root.get(), "t");
    LiString const handle = toggle->getLabel(0).getFontHandle();
    toggle->setFont(handle);
    EXPECT_EQ(toggle->getLabel(0).getFontHandle(), handle);
    EXPECT_EQ(toggle->getLabel(1).getFontHandle(), handle);
}

// The colour each widget draws its text in, seen through the OpenGL calls of one expose.
class DualStateTextColour : public UiTest::ButtonFixture {
protected:
    // The last colour set while drawing `w`, with frames that draw nothing.
    std::string drawnColour(UiWidget& w) {
        UiFrameRegistry::registerDefaultFrames();
        for (char const* slot : {"Default", "On", "Off"})
            w.setFrame(UiFrameRegistry::getInstance().create("None"), slot);
        w.setRect({0, 80, 0, 20}, false);
        w.markForUpdate();
        gl.clearLog();
        w.expose({0, 200, 0, 100}, {0, 0});
        std::string last;
        for (std::string const& call : gl.getLog())
            if (call.rfind("color3fv", 0) == 0)
                last = call;
        return last;
    }
    bool drawsColour(UiWidget& w, char const* name) {
        drawnColour(w);
        std::string const call = colourCall(registry(name));
        auto const& log = gl.getLog();
        return std::find(log.begin(), log.end(), call) != log.end();
    }
    std::string colourCall(CoRgbColor const& c) {
        SmGlRecorder probe;
        SmGlBackendGuard guard{probe};
        SmGl::color3fv(c.data());
        return probe.getLog().empty() ? "" : probe.getLog().back();
    }

    SmGlRecorder gl;
    SmGlBackendGuard guard{gl};
};

TEST_F(DualStateTextColour, PushedToggleUsesItsOwnDisabledColourOnlyWhenOn) {
    auto pushed = UiPushedToggle::create(root.get(), "p");
    pushed->setColor("DisabledForegroundColor", registry("Red"));
    pushed->setColor(UiWidget::InactiveForegroundColor, registry("Blue"));
    pushed->enable(false);
    EXPECT_EQ(drawnColour(*pushed), colourCall(registry("Blue")));
    pushed->setState(true, false);
    EXPECT_EQ(drawnColour(*pushed), colourCall(registry("Red")));
}

TEST_F(DualStateTextColour, LabelShowsTheOnColourOnlyWhenOnUnlockedAndEnabled) {
    auto label = UiLabel::create(root.get(), "l");
    label->setColor("OnColor", registry("Red"));
    label->setState(true, false);
    EXPECT_EQ(drawnColour(*label), colourCall(label->getForeground()));
    label->unlock();
    EXPECT_EQ(drawnColour(*label), colourCall(registry("Red")));
    label->enable(false);
    EXPECT_EQ(drawnColour(*label), colourCall(label->getInactiveForeground()));
}

TEST_F(DualStateTextColour, PushedToggleShadingByMode) {
    auto pushed = UiPushedToggle::create(root.get(), "p");
    EXPECT_TRUE(drawsColour(*pushed, "Grey40"));
    pushed->setState(true, false);
    EXPECT_TRUE(drawsColour(*pushed, "Grey145"));
    // Top shading alone fades into the present background.
    pushed->setShadedBackground(false);
    pushed->setTopShadedBackground(true);
    EXPECT_TRUE(drawsColour(*pushed, "Grey115"));
    EXPECT_FALSE(drawsColour(*pushed, "Grey145"));
    // Full shading wins over top shading.
    pushed->setShadedBackground(true);
    EXPECT_TRUE(drawsColour(*pushed, "Grey145"));
    EXPECT_FALSE(drawsColour(*pushed, "Grey115"));
}

} // namespace
} // namespace Zr
