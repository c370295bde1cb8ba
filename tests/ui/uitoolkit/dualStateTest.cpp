// Two-state widgets: a press previews the new state and the release reports it; drags out and
// back; refused changes from a press and from code; the flip-on-release mode; context and
// locked presses; keys; labels; resources from a definition; the plug-in interface. The look of
// two-state widgets and push buttons: the frames each look installs, the colours that wait for
// the next change of state, which label a text change redraws, and the colour each widget draws
// its text in.
#include "buttonTestSupport.h"
#include "piDualState.h"
#include "smGlRecorder.h"
#include "support/exceptionReason.h"
#include "uiCalculatable.h"
#include "uiColorRegistry.h"
#include "uiConfirmButton.h"
#include "uiDragButton.h"
#include "uiFrame.h"
#include "uiLabel.h"
#include "uiLabeledIcon.h"
#include "uiPushButton.h"
#include "uiPushedToggle.h"
#include "uiToggleButton.h"
#include "uiWidgetEvent.h"
#include "uiWidgetFactory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace Zr {
namespace {

using UiTest::color;

using UiTest::clickOn;
using UiTest::keyPressOf;
using UiTest::pointerTo;
using UiTest::pressOn;
using UiTest::releaseOn;

using Log = std::vector<std::string>;

class DualStateToggle : public UiTest::ButtonFixture {
protected:
    void SetUp() override {
        ButtonFixture::SetUp();
        toggle = UiToggleButton::create(root.get(), "t");
        toggle->setRect({10, 90, 10, 40}, false);
        toggle->addChangeRequestCb(&onRequest);
        toggle->addStateCb(&onState);
    }
    void TearDown() override {
        toggle = nullptr;
        ButtonFixture::TearDown();
    }
    static std::string stateOf(EvEvent& e) {
        auto* changed = dynamic_cast<UiStateChanged*>(&e);
        return changed ? (changed->getState() ? "on" : "off") : "?";
    }

    Log log;
    int rejections = 0; // how many times each request calls rejectChangeRequest
    CbFunction<EvEvent> onRequest{[this](EvEvent& e) {
        log.push_back("request " + stateOf(e));
        for (int i = 0; i < rejections; ++i)
            toggle->rejectChangeRequest();
    }};
    CbFunction<EvEvent> onState{[this](EvEvent& e) { log.push_back("state " + stateOf(e)); }};
    RCShdPtr<UiToggleButton> toggle;
};

TEST_F(DualStateToggle, PressPreviewsTheNewStateAndTheReleaseReportsIt) {
    pressOn(*toggle);
    EXPECT_TRUE(toggle->getState());
    EXPECT_TRUE(holdsGrab(*toggle));
    EXPECT_TRUE(log.empty());
    releaseOn(*toggle);
    EXPECT_EQ(log, (Log{"request on", "state on"}));
    EXPECT_TRUE(toggle->getState());
    EXPECT_EQ(toggle->getCurrentLabel(), 1);
    EXPECT_EQ(toggle->getCurrentBackground(), toggle->getColor("OnColor"));
    EXPECT_FALSE(holdsGrab(*toggle));
    clickOn(*toggle);
    EXPECT_EQ(log, (Log{"request on", "state on", "request off", "state off"}));
    EXPECT_FALSE(toggle->getState());
    EXPECT_EQ(toggle->getCurrentLabel(), 0);
    EXPECT_EQ(toggle->getCurrentBackground(), toggle->getBackground());
}

TEST_F(DualStateToggle, DraggingOutAndReleasingKeepsTheStateSilently) {
    pressOn(*toggle);
    pointerTo(nullptr, *toggle);
    EXPECT_FALSE(toggle->getState());
    releaseOn(*toggle);
    EXPECT_FALSE(toggle->getState());
    EXPECT_TRUE(log.empty());
}

TEST_F(DualStateToggle, DraggingBackInBeforeTheReleaseFlips) {
    pressOn(*toggle);
    pointerTo(nullptr, *toggle);
    pointerTo(toggle.get(), *toggle);
    EXPECT_TRUE(toggle->getState());
    releaseOn(*toggle);
    EXPECT_TRUE(toggle->getState());
    EXPECT_EQ(log, (Log{"request on", "state on"}));
}

TEST_F(DualStateToggle, RefusalDuringAPressRestoresTheStateFromBeforeIt) {
    rejections = 1;
    clickOn(*toggle);
    EXPECT_FALSE(toggle->getState());
    EXPECT_EQ(log, Log{"request on"});
    // The look follows the restored state.
    EXPECT_EQ(toggle->getCurrentLabel(), 0);
    EXPECT_EQ(toggle->getCurrentBackground(), toggle->getBackground());
}

TEST_F(DualStateToggle, RefusalOfAChangeFromCodeKeepsTheNewStateWithoutCallbacks) {
    rejections = 1;
    toggle->setState(true, true);
    EXPECT_TRUE(toggle->getState());
    EXPECT_EQ(log, Log{"request on"});
    EXPECT_EQ(toggle->getCurrentLabel(), 1);
}

TEST_F(DualStateToggle, RefusingTwiceCancelsTheRefusal) {
    rejections = 2;
    clickOn(*toggle);
    EXPECT_TRUE(toggle->getState());
    EXPECT_EQ(log, (Log{"request on", "state on"}));
}

TEST_F(DualStateToggle, SetStateWithoutNotifyRunsOnlyTheRequest) {
    toggle->setState(true, false);
    EXPECT_TRUE(toggle->getState());
    EXPECT_EQ(log, Log{"request on"});
    toggle->removeChangeRequestCb(&onRequest);
    toggle->removeStateCb(&onState);
    toggle->setState(false, true);
    EXPECT_EQ(log, Log{"request on"});
}

TEST_F(DualStateToggle, FlipOnReleaseModeFlipsSilentlyOnAReleaseOutside) {
    toggle->setStateChangedOnArm(false);
    pressOn(*toggle);
    EXPECT_FALSE(toggle->getState());
    pointerTo(nullptr, *toggle);
    releaseOn(*toggle);
    EXPECT_TRUE(toggle->getState());
    EXPECT_TRUE(log.empty());
    clickOn(*toggle);
    EXPECT_FALSE(toggle->getState());
    EXPECT_EQ(log, (Log{"request off", "state off"}));
}

TEST_F(DualStateToggle, ContextPressAndLockedPressesChangeNothing) {
    pressOn(*toggle, 4);
    EXPECT_FALSE(toggle->getState());
    EXPECT_FALSE(holdsGrab(*toggle));
    releaseOn(*toggle, 4);
    toggle->lock(true);
    clickOn(*toggle);
    EvDefaultEvent activation;
    toggle->activate(activation);
    EXPECT_FALSE(toggle->getState());
    EXPECT_TRUE(log.empty());
}

// A value for the context handlers; only its identity matters.
struct NoValue : UiCalculatable {
    void setValue(double) override {}
    double getValue() const override { return 0; }
    RCShdPtr<Expression const> getExpression() const override { return {}; }
    bool supportsExpressions() const override { return false; }
    GeRectangle<int> getScreenRectangle() const override { return {}; }
    RCShdPtr<UiLabelHandler const> getLabelHandler() const override { return {}; }
};
using ContextHandler = CbFunction<RCShdPtr<UiCalculatable> const>;

TEST_F(DualStateToggle, ContextPressCallsTheContextHandlersEvenLockedAndOnlyWithAValue) {
    RCShdPtr<UiCalculatable> const value(new NoValue);
    ContextHandler onContext([&](auto const& c) { log.push_back(c == value ? "context" : "?"); });
    RCShdPtr<UiDualState> pushed = UiPushedToggle::create(root.get(), "p");
    RCShdPtr<UiDualState> label = UiLabel::create(root.get(), "l");
    for (UiDualState* w : {pushed.get(), label.get(), static_cast<UiDualState*>(toggle.get())})
        w->addContextMenuCb(&onContext); // a label takes no context menu
    struct Row {
        UiDualState* widget;
        unsigned button;
        bool locked, withValue;
        Log expected;
    } const rows[] = {
        {toggle.get(), 1, true, true, {}},
        {toggle.get(), 4, false, true, {"context"}},
        {toggle.get(), 4, true, true, {"context"}},
        {toggle.get(), 4, false, false, {}},
        {pushed.get(), 4, true, true, {"context"}},
        {label.get(), 4, false, true, {}},
        {toggle.get(), 1, false, true, {"request on", "state on"}},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(&row - rows);
        row.widget->lock(row.locked);
        row.widget->setCalculatable(row.withValue ? value : RCShdPtr<UiCalculatable>());
        log.clear();
        pressOn(*row.widget, row.button);
        releaseOn(*row.widget, row.button);
        EXPECT_EQ(log, row.expected);
    }
    toggle->setCalculatable(value);
    toggle->removeContextMenuCb(&onContext);
    pressOn(*toggle, 4);
    releaseOn(*toggle, 4);
    EXPECT_EQ(log, (Log{"request on", "state on"})); // the last row's, and nothing from the press
}

TEST_F(DualStateToggle, ActivationFromCodeFlipsAndReports) {
    EvDefaultEvent activation;
    toggle->activate(activation);
    EXPECT_TRUE(toggle->getState());
    toggle->activate(activation);
    EXPECT_EQ(log, (Log{"request on", "state on", "request off", "state off"}));
}

TEST_F(DualStateToggle, EnterKeysFlipAndOtherKeysDoNot) {
    auto ret = keyPressOf(EvKeyCode::Return);
    toggle->processEvent(ret);
    EXPECT_TRUE(toggle->getState());
    EXPECT_FALSE(ret.isProcessed()); // unlike a push button, a toggle leaves Return to others
    auto enter = keyPressOf(EvKeyCode::KP_Enter);
    toggle->processEvent(enter);
    EXPECT_FALSE(toggle->getState());
    auto escape = keyPressOf(EvKeyCode::Escape);
    toggle->processEvent(escape);
    EXPECT_FALSE(toggle->getState());
    EXPECT_EQ(log, (Log{"request on", "state on", "request off", "state off"}));
    EXPECT_FALSE(holdsGrab(*toggle));
}

TEST_F(DualStateToggle, LabelsByIdAndTheBadIdAssertion) {
    toggle->setLabels("Off", "On");
    EXPECT_EQ(toggle->getLabel(0).getString().str(), "Off");
    EXPECT_EQ(toggle->getLabel(1).getString().str(), "On");
    EXPECT_EQ(&toggle->getLabel(2), &toggle->getLabel(0));
    EXPECT_EQ(TestSupport::reasonOf<ExAssertionFailed>([&] { toggle->setLabel(2, "x"); }),
              "id == 0 || id == 1");
    EXPECT_EQ(toggle->getLabel(0).getString().str(), "Off");
}

TEST(DualStateResources, ToggleDefaultsAndADefinitionsState) {
    auto root = UiTest::TestRoot::make();
    auto plain = UiToggleButton::create(root.get(), "plain");
    EXPECT_FALSE(plain->getState());
    EXPECT_FALSE(plain->isRadioFrame());
    EXPECT_EQ(plain->getBackground(), color("Grey65"));
    EXPECT_EQ(plain->getColor("OnColor"), color("Grey100"));
    EXPECT_EQ(plain->getLabel(0).getAlignmentH(), 0);
    EXPECT_EQ(plain->getLabel(1).getMarginH(), 5);

    RCShdPtr<UiWidget> made = UiWidgetFactory::createWidgetFromText(
        RCShdPtr<UiContainer>(root), R"(<ToggleButton><Widget Name="t">
          <State><Int>1</Int></State>
          <RadioFrame><Int>1</Int></RadioFrame>
          <OnColor><Color>Red</Color></OnColor>
          <LabelString><Text>Loop</Text></LabelString>
        </Widget></ToggleButton>)",
        "t.xml");
    auto t = dynamicCast<UiToggleButton>(made);
    ASSERT_TRUE(t);
    EXPECT_TRUE(t->getState());
    EXPECT_TRUE(t->isRadioFrame());
    EXPECT_EQ(t->getColor("OnColor"), color("Red"));
    EXPECT_EQ(t->getLabel(0).getString().str(), "Loop");
    EXPECT_EQ(t->getLabel(1).getString().str(), "Loop");

    // A State of two values, or of the wrong kind, is ignored.
    t->changeResource(LiString("<State><Int>0</Int><Int>0</Int></State>"));
    EXPECT_TRUE(t->getState());
    t->changeResource(LiString("<State><Text>0</Text></State>"));
    EXPECT_TRUE(t->getState());
    t->changeResource(LiString("<State><Int>0</Int></State>"));
    EXPECT_FALSE(t->getState());
    root->removeChildren();
}

TEST(DualStateResources, PushedToggleTakesItsForegroundFromTheState) {
    auto root = UiTest::TestRoot::make();
    RCShdPtr<UiWidget> made = UiWidgetFactory::createWidgetFromText(
        RCShdPtr<UiContainer>(root), R"(<PushedToggle><Widget Name="p">
          <OnForegroundColor><Color>Red</Color></OnForegroundColor>
          <OffForegroundColor><Color>Blue</Color></OffForegroundColor>
        </Widget></PushedToggle>)",
        "p.xml");
    auto p = dynamicCast<UiPushedToggle>(made);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->getBackground(), color("Grey65"));
    // The state colours take effect with the next change of state.
    p->setState(true, true);
    EXPECT_EQ(p->getForeground(), color("Red"));
    EXPECT_EQ(p->getCurrentBackground(), color("Grey100"));
    EXPECT_EQ(p->getCurrentLabel(), 1);
    p->setState(false, true);
    EXPECT_EQ(p->getForeground(), color("Blue"));
    EXPECT_EQ(p->getCurrentBackground(), color("Grey65"));
    root->removeChildren();
}

TEST(DualStateInterface, StateGoesBothWays) {
    auto root = UiTest::TestRoot::make();
    auto t = UiToggleButton::create(root.get(), "t");
    int reports = 0;
    CbFunction<EvEvent> count([&](EvEvent&) { ++reports; });
    t->addStateCb(&count);
    RCShdPtr<PiWidget> iface = t->retrieveInterface();
    auto* dual = dynamic_cast<PiDualState*>(iface.get());
    ASSERT_NE(dual, nullptr);
    dual->setState(true, false);
    EXPECT_TRUE(t->getState());
    EXPECT_TRUE(dual->getState());
    dual->setState(false, true);
    EXPECT_FALSE(dual->getState());
    EXPECT_EQ(reports, 1);
    EXPECT_EQ(UiWidget::fromInterface(iface).get(), t.get());
    iface = nullptr;
    root->removeChildren();
}

TEST(DualStateFactories, TypeNamesAreRegistered) {
    for (char const* type : {"Label", "TransparentLabel", "PushButton", "ToggleButton",
                             "PushedToggle", "PushButtonIcon", "PushedToggleIcon"})
        EXPECT_TRUE(UiWidgetFactory::isRegistered(type)) << type;
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
    EXPECT_EQ(pushed->getColor("DisabledForegroundColor"), color("InactiveForeground"));
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
    EXPECT_EQ(made->getForeground(), color("Blue"));
    EXPECT_EQ(made->getCurrentBackground(), color("Red"));

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
    toggle->setColor("OnColor", color("Red"));
    EXPECT_EQ(toggle->getCurrentBackground(), before);
    EXPECT_FALSE(toggle->getMarkedRects().empty());
    toggle->setState(false, false);
    toggle->setState(true, false);
    EXPECT_EQ(toggle->getCurrentBackground(), color("Red"));
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
        std::string const call = colourCall(color(name));
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
    pushed->setColor("DisabledForegroundColor", color("Red"));
    pushed->setColor(UiWidget::InactiveForegroundColor, color("Blue"));
    pushed->enable(false);
    EXPECT_EQ(drawnColour(*pushed), colourCall(color("Blue")));
    pushed->setState(true, false);
    EXPECT_EQ(drawnColour(*pushed), colourCall(color("Red")));
}

TEST_F(DualStateTextColour, LabelShowsTheOnColourOnlyWhenOnUnlockedAndEnabled) {
    auto label = UiLabel::create(root.get(), "l");
    label->setColor("OnColor", color("Red"));
    label->setState(true, false);
    EXPECT_EQ(drawnColour(*label), colourCall(label->getForeground()));
    label->unlock();
    EXPECT_EQ(drawnColour(*label), colourCall(color("Red")));
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
