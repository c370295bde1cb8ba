// Two-state widgets: a press previews the new state and the release reports it; drags out and
// back; refused changes from a press and from code; the flip-on-release mode; context and
// locked presses; keys; labels; resources from a definition; the plug-in interface.
#include "buttonTestSupport.h"

#include "piDualState.h"
#include "uiColorRegistry.h"
#include "uiPushedToggle.h"
#include "uiToggleButton.h"
#include "uiWidgetEvent.h"
#include "uiWidgetFactory.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Zr {
namespace {

using UiTest::clickOn;
using UiTest::keyPressOf;
using UiTest::pointerTo;
using UiTest::pressOn;
using UiTest::releaseOn;

using Log = std::vector<std::string>;

CoRgbColor registry(char const* name) {
    return UiColorRegistry::getInstance().getColor(name);
}

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
    try {
        toggle->setLabel(2, "x");
        FAIL() << "no assertion";
    } catch (ExAssertionFailed const& e) {
        EXPECT_EQ(e.getReason(), "id == 0 || id == 1");
    }
    EXPECT_EQ(toggle->getLabel(0).getString().str(), "Off");
}

TEST(DualStateResources, ToggleDefaultsAndADefinitionsState) {
    auto root = UiTest::TestRoot::make();
    auto plain = UiToggleButton::create(root.get(), "plain");
    EXPECT_FALSE(plain->getState());
    EXPECT_FALSE(plain->isRadioFrame());
    EXPECT_EQ(plain->getBackground(), registry("Grey65"));
    EXPECT_EQ(plain->getColor("OnColor"), registry("Grey100"));
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
    EXPECT_EQ(t->getColor("OnColor"), registry("Red"));
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
    EXPECT_EQ(p->getBackground(), registry("Grey65"));
    // The state colours take effect with the next change of state.
    p->setState(true, true);
    EXPECT_EQ(p->getForeground(), registry("Red"));
    EXPECT_EQ(p->getCurrentBackground(), registry("Grey100"));
    EXPECT_EQ(p->getCurrentLabel(), 1);
    p->setState(false, true);
    EXPECT_EQ(p->getForeground(), registry("Blue"));
    EXPECT_EQ(p->getCurrentBackground(), registry("Grey65"));
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

} // namespace
} // namespace Zr
