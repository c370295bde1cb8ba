// Push buttons: a click activates once, on the release and only on the button; the pushed look
// follows the pointer; Return and keypad Enter press the button; resources from a definition;
// the plug-in interface.
#include "buttonTestSupport.h"

#include "piPushButton.h"
#include "uiColorRegistry.h"
#include "uiPushButton.h"
#include "uiWidgetFactory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace Zr {
namespace {

using UiTest::clickOn;
using UiTest::keyPressOf;
using UiTest::pointerTo;
using UiTest::pressOn;
using UiTest::releaseOn;

CoRgbColor registry(char const* name) {
    return UiColorRegistry::getInstance().getColor(name);
}

class PushButtonTest : public UiTest::ButtonFixture {
protected:
    void SetUp() override {
        ButtonFixture::SetUp();
        button = UiPushButton::create(root.get(), "ok");
        button->setRect({10, 90, 10, 40}, false);
        button->addArmCb(&onArm);
        button->addDisarmCb(&onDisarm);
        button->addActivateCb(&onActivate);
    }
    void TearDown() override {
        button = nullptr;
        ButtonFixture::TearDown();
    }

    std::vector<std::string> log;
    CbFunction<EvEvent> onArm{[this](EvEvent&) { log.push_back("arm"); }};
    CbFunction<EvEvent> onDisarm{[this](EvEvent&) {
        log.push_back(std::string("disarm ") + (button->getActive() ? "pushed" : "out"));
    }};
    CbFunction<EvEvent> onActivate{[this](EvEvent&) {
        log.push_back(std::string("activate ") + (button->getActive() ? "pushed" : "out"));
    }};
    std::vector<std::string> ownerLog;
    RCShdPtr<UiPushButton> button;
};

using Log = std::vector<std::string>;
// The button's own release handler, registered first, activates it: the activate callbacks run
// before disarm callbacks added later, with the look already back to normal.
Log const Clicked{"arm", "activate out", "disarm out"};

TEST_F(PushButtonTest, ClickActivatesOnceAfterTheReleaseAndLetsTheGrabGo) {
    pressOn(*button);
    EXPECT_TRUE(button->getActive());
    EXPECT_TRUE(holdsGrab(*button));
    EXPECT_EQ(log, Log{"arm"});
    releaseOn(*button);
    // The look is back to normal before the action runs.
    EXPECT_EQ(log, Clicked);
    EXPECT_FALSE(button->getActive());
    EXPECT_FALSE(holdsGrab(*button));
    clickOn(*button);
    EXPECT_EQ(std::count(log.begin(), log.end(), "activate out"), 2);
}

TEST_F(PushButtonTest, ReleaseOffTheButtonDoesNotActivate) {
    pressOn(*button);
    pointerTo(nullptr, *button);
    EXPECT_FALSE(button->getActive());
    releaseOn(*button);
    EXPECT_EQ(log, (Log{"arm", "disarm out"}));
    EXPECT_FALSE(holdsGrab(*button));
}

TEST_F(PushButtonTest, PushedLookFollowsThePointerOffAndBackOn) {
    pressOn(*button);
    CoRgbColor const pushed = button->getColor("PushedColor");
    EXPECT_EQ(button->getCurrentBackground(), pushed);
    pointerTo(nullptr, *button);
    EXPECT_FALSE(button->getActive());
    EXPECT_EQ(button->getCurrentBackground(), button->getBackground());
    pointerTo(button.get(), *button);
    EXPECT_TRUE(button->getActive());
    releaseOn(*button);
    EXPECT_EQ(log, Clicked);
}

TEST_F(PushButtonTest, MovesWithoutAPressChangeNothing) {
    pointerTo(button.get(), *button);
    pointerTo(nullptr, *button);
    EXPECT_FALSE(button->getActive());
    EXPECT_TRUE(log.empty());
}

TEST_F(PushButtonTest, ReturnAndKeypadEnterPressTheButtonAndAreConsumed) {
    for (int key : {int(EvKeyCode::Return), int(EvKeyCode::KP_Enter)}) {
        log.clear();
        auto press = keyPressOf(key);
        button->processEvent(press);
        EXPECT_TRUE(press.isProcessed()) << key;
        EXPECT_EQ(log, Clicked) << key;
        EXPECT_FALSE(button->getActive());
        EXPECT_FALSE(holdsGrab(*button));
    }
}

TEST_F(PushButtonTest, OtherKeysPassThrough) {
    for (int key : {int(EvKeyCode::Escape), int(EvKeyCode::Tab), 12}) {
        auto press = keyPressOf(key);
        button->processEvent(press);
        EXPECT_FALSE(press.isProcessed()) << key;
    }
    EXPECT_TRUE(log.empty());
}

TEST_F(PushButtonTest, DisabledButtonSwallowsTheKeyWithoutFiring) {
    button->enable(false);
    auto press = keyPressOf(EvKeyCode::Return);
    button->keyPress(press);
    EXPECT_TRUE(press.isProcessed());
    EXPECT_TRUE(log.empty());
}

TEST_F(PushButtonTest, ActivateButtonHandsTheGrabToTheModalOwner) {
    auto owner = UiTest::LoggingWidget::make(root.get(), "owner", {100, 150, 0, 50}, &ownerLog);
    UiPushButton::activateButton(*button, owner->getEventHandler());
    EXPECT_EQ(log, Clicked);
    EXPECT_EQ(UiGrab::pointer().getCurrent(), owner->getEventHandler());

    log.clear();
    UiGrab::pointer().clear();
    button->enable(false);
    UiPushButton::activateButton(*button, owner->getEventHandler());
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
}

TEST_F(PushButtonTest, BlueButtonIsShadedOnBlue) {
    button->setShadedBackground(false);
    button->setBlueButton();
    EXPECT_TRUE(button->isBlueButton());
    EXPECT_TRUE(button->isShadedBackground());
    EXPECT_EQ(button->getBackground(), registry("Blue4"));
    button->setActive(true);
    EXPECT_EQ(button->getCurrentBackground(), CoUtils::calcLuminance(registry("Blue1"), 1.05f));
}

TEST(PushButtonResources, DefaultsAndADefinitionsResources) {
    auto root = UiTest::TestRoot::make();
    auto plain = UiPushButton::create(root.get(), "plain");
    EXPECT_EQ(plain->getBackground(), registry("Grey65"));
    EXPECT_EQ(plain->getColor("PushedColor"), registry("Grey100"));
    EXPECT_EQ(plain->getLabel().getString().str(), "");
    EXPECT_EQ(plain->getLabel().getAlignmentH(), 1);
    EXPECT_EQ(plain->getLabel().getMarginH(), 5);
    EXPECT_EQ(plain->getLabel().getMarginV(), 1);

    RCShdPtr<UiWidget> made = UiWidgetFactory::createWidgetFromText(
        RCShdPtr<UiContainer>(root), R"(<PushButton><Widget Name="go">
          <LabelString><Text>Go</Text></LabelString>
          <LabelAlign><Align H="Left" V="Bottom" MH="3" MV="2"/></LabelAlign>
          <PushedColor><Color>Red</Color></PushedColor>
        </Widget></PushButton>)",
        "go.xml");
    auto go = dynamicCast<UiPushButton>(made);
    ASSERT_TRUE(go);
    EXPECT_EQ(go->getName(), LiString("go"));
    EXPECT_EQ(go->getLabel().getString().str(), "Go");
    EXPECT_EQ(go->getLabel().getAlignmentH(), 0);
    EXPECT_EQ(go->getLabel().getMarginH(), 3);
    EXPECT_EQ(go->getColor("PushedColor"), registry("Red"));
    go->setActive(true);
    EXPECT_EQ(go->getCurrentBackground(), registry("Red"));
    root->removeChildren();
}

TEST(PushButtonInterface, TextGoesBothWaysAndPressesReachTheActivateCallback) {
    auto root = UiTest::TestRoot::make();
    auto button = UiPushButton::create(root.get(), "b");
    RCShdPtr<PiWidget> iface = button->retrieveInterface();
    auto* push = dynamic_cast<PiPushButton*>(iface.get());
    ASSERT_NE(push, nullptr);
    push->setText("Apply");
    EXPECT_EQ(button->getLabel().getString().str(), "Apply");
    EXPECT_EQ(push->getText(), "Apply");
    EXPECT_TRUE(iface->isSame(button->retrieveInterface()));
    EXPECT_EQ(UiWidget::fromInterface(iface).get(), button.get());

    int activations = 0;
    CbFunction<EvEvent> count([&](EvEvent&) { ++activations; });
    push->addCallback(PiWidget::Activate, &count);
    auto key = UiTest::keyPressOf(EvKeyCode::Return);
    button->processEvent(key);
    EXPECT_EQ(activations, 1);
    push->removeCallback(PiWidget::Activate, &count);
    iface = nullptr;
    UiFocusPointer::getInstance().updateFocus(nullptr);
    UiFocusPointer::getInstance().updatePointer(nullptr, false);
    UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
    root->removeChildren();
}

} // namespace
} // namespace Zr
