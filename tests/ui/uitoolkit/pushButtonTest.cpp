// Push buttons: a click activates once, on the release and only on the button; the pushed look
// follows the pointer; Return and keypad Enter press the button; resources from a definition;
// the plug-in interface. Icon buttons (the icon from a definition, placed in the canvas by its
// alignment; setIcon and readImage; a pushed toggle with an icon), drag buttons (the handle
// follows the pointer from where it was taken, stays inside its parent, and reports only moves
// that change its place), buttons through the event loop and confirm buttons.
#include "buttonTestSupport.h"
#include "loopTestSupport.h"
#include "piPushButton.h"
#include "uiColorRegistry.h"
#include "uiConfirmButton.h"
#include "uiDragButton.h"
#include "uiPushButton.h"
#include "uiPushButtonIcon.h"
#include "uiPushedToggleIcon.h"
#include "uiToggleButton.h"
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

// Return and keypad Enter press the button and are consumed, also by a disabled button that
// doesn't fire; other keys pass through.
TEST_F(PushButtonTest, EnterKeysPressTheButtonAndOtherKeysPassThrough) {
    struct {
        int key;
        bool enabled;
        bool consumed;
        Log log;
    } const rows[] = {{EvKeyCode::Return, true, true, Clicked},
                      {EvKeyCode::KP_Enter, true, true, Clicked},
                      {EvKeyCode::Escape, true, false, {}},
                      {EvKeyCode::Tab, true, false, {}},
                      {12, true, false, {}},
                      {EvKeyCode::Return, false, true, {}},
                      {EvKeyCode::KP_Enter, false, true, {}}};
    for (auto const& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.key << (row.enabled ? " enabled" : " disabled"));
        log.clear();
        button->enable(row.enabled);
        auto press = keyPressOf(row.key);
        // A disabled widget drops every event: its key handler is called directly.
        if (row.enabled)
            button->processEvent(press);
        else
            button->keyPress(press);
        EXPECT_EQ(press.isProcessed(), row.consumed);
        EXPECT_EQ(log, row.log);
        EXPECT_FALSE(button->getActive());
        EXPECT_FALSE(holdsGrab(*button));
    }
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
    EXPECT_EQ(button->getBackground(), color("Blue4"));
    button->setActive(true);
    EXPECT_EQ(button->getCurrentBackground(), CoUtils::calcLuminance(color("Blue1"), 1.05f));
}

TEST(PushButtonResources, DefaultsAndADefinitionsResources) {
    auto root = UiTest::TestRoot::make();
    auto plain = UiPushButton::create(root.get(), "plain");
    EXPECT_EQ(plain->getBackground(), color("Grey65"));
    EXPECT_EQ(plain->getColor("PushedColor"), color("Grey100"));
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
    EXPECT_EQ(go->getColor("PushedColor"), color("Red"));
    go->setActive(true);
    EXPECT_EQ(go->getCurrentBackground(), color("Red"));
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

using IconButtons = UiTest::ButtonFixture;

TEST_F(IconButtons, DefinitionsIconIsLoadedAndCentredInTheCanvas) {
    RCShdPtr<UiWidget> made = UiWidgetFactory::createWidgetFromText(
        RCShdPtr<UiContainer>(root), R"(<PushButtonIcon><Widget Name="i">
          <Rectangle><Coord X="0" Y="0" W="60" H="40"/></Rectangle>
          <Icon><IconFile>toggleOn.tif</IconFile></Icon>
        </Widget></PushButtonIcon>)",
        "i.xml");
    auto button = dynamicCast<UiPushButtonIcon>(made);
    ASSERT_TRUE(button);
    UiIcon const& icon = button->getIcon();
    ASSERT_TRUE(icon.getImage());
    ASSERT_GT(icon.getWidth(), 0);
    GeRectangle<int> const canvas = button->getCanvas();
    EXPECT_EQ(icon.getX(), (canvas.width() - icon.getWidth()) / 2);
    EXPECT_EQ(icon.getY(), (canvas.height() - icon.getHeight()) / 2);

    // Moving the icon to the left edge with a margin.
    button->changeResource(
        LiString(R"(<IconAlign><Align H="Left" V="Center" MH="3"/></IconAlign>)"));
    EXPECT_EQ(button->getIcon().getX(), 3);

    // An icon button is still a button.
    int activations = 0;
    CbFunction<EvEvent> count([&](EvEvent&) { ++activations; });
    button->addActivateCb(&count);
    UiTest::clickOn(*button);
    EXPECT_EQ(activations, 1);
}

TEST_F(IconButtons, SetIconTakesANewIconAndIgnoresNull) {
    auto button = UiPushButtonIcon::create(root.get(), "i");
    button->setRect({0, 60, 0, 40}, false);
    EXPECT_FALSE(button->getIcon().getImage());
    button->setIcon(nullptr);
    UiIcon* before = &button->getIcon();
    EXPECT_EQ(&button->getIcon(), before);

    auto icon = std::make_unique<UiIcon>();
    icon->loadIcon("radioOn.tif");
    UiIcon* given = icon.get();
    button->clearMarks();
    button->setIcon(std::move(icon));
    EXPECT_EQ(&button->getIcon(), given);
    EXPECT_FALSE(button->getMarkedRects().empty());
    // Placed in this button's canvas, centred by default.
    EXPECT_EQ(given->getRect().width(), button->getCanvas().width());
}

TEST_F(IconButtons, UnreadableImageRaisesAndLeavesNoImage) {
    auto button = UiPushButtonIcon::create(root.get(), "i");
    button->readImage("toggleOn.tif");
    EXPECT_TRUE(button->getIcon().getImage());
    EXPECT_ANY_THROW(button->readImage("no such icon.tif"));
    EXPECT_FALSE(button->getIcon().getImage());
}

TEST_F(IconButtons, PushedToggleIconShowsItsImageAndToggles) {
    auto toggle = UiPushedToggleIcon::create(root.get(), "t");
    toggle->setRect({0, 40, 0, 40}, false);
    toggle->readImage("anchor.tif");
    ASSERT_TRUE(toggle->getIcon().getImage());
    toggle->clearMarks();
    toggle->setImage(RCShdPtr<WsManagedImage>());
    EXPECT_FALSE(toggle->getIcon().getImage());
    EXPECT_FALSE(toggle->getMarkedRects().empty());
    UiTest::clickOn(*toggle);
    EXPECT_TRUE(toggle->getState());
}

class DragButtonTest : public UiTest::ButtonFixture {
protected:
    void SetUp() override {
        ButtonFixture::SetUp();
        handle = UiDragButton::create(root.get(), "handle");
        handle->setRect({10, 40, 10, 30}, false);
        handle->addDragCb(&onDrag);
    }
    void TearDown() override {
        handle = nullptr;
        ButtonFixture::TearDown();
    }
    void moveTo(GePoint2<int> at) {
        EvPointerMoveEvent move;
        move.setWCoord(at);
        handle->processEvent(move);
    }
    GePoint2<int> origin() const { return {handle->getRect().x1, handle->getRect().y1}; }

    std::vector<GePoint2<int>> drags;
    CbFunction<EvEvent> onDrag{[this](EvEvent&) { drags.push_back(origin()); }};
    RCShdPtr<UiDragButton> handle;
};

// It is not keyboard-focusable.
TEST_F(DragButtonTest, FollowsThePointerFromWhereItWasTaken) {
    auto down = UiTest::makeDown(1, {15, 17});
    handle->processEvent(down);
    EXPECT_TRUE(holdsGrab(*handle));
    EXPECT_FALSE(handle->isKeyboardFocusable());
    moveTo({50, 60});
    EXPECT_EQ(origin(), GePoint2<int>(45, 53));
    EXPECT_EQ(handle->getRect().width(), 30);
    auto up = UiTest::makeUp(1, {50, 60});
    handle->processEvent(up);
    EXPECT_FALSE(holdsGrab(*handle));
    moveTo({80, 80});
    EXPECT_EQ(drags, std::vector<GePoint2<int>>{GePoint2<int>(45, 53)});
}

TEST_F(DragButtonTest, StaysInsideItsParentAndReportsNoMoveThatChangesNothing) {
    auto down = UiTest::makeDown(1, {15, 15});
    handle->processEvent(down);
    moveTo({500, 500});
    EXPECT_EQ(origin(), GePoint2<int>(170, 80));
    moveTo({600, 400});
    moveTo({-100, -100});
    EXPECT_EQ(origin(), GePoint2<int>(0, 0));
    moveTo({-50, 2});
    EXPECT_EQ(drags, (std::vector<GePoint2<int>>{{170, 80}, {0, 0}}));
    auto up = UiTest::makeUp(1);
    handle->processEvent(up);
}

// Clicks, a release off the widget, and a drag out and back in, with the pointer focus as the
// window keeps it.
class PushButtonLoop : public LoopTest::WindowFixture {
protected:
    // A press at (30, 30) inside the widget, moves with the button held, and the release at the
    // last of them.
    void pressDragRelease(std::vector<GePoint2<int>> const& moves) {
        post(LoopTest::makeMove(id, {30, 30}));
        post(LoopTest::makeDown(id, {30, 30}, 1, 1));
        for (GePoint2<int> const& p : moves)
            post(LoopTest::makeMove(id, p, 1.0f, 1));
        post(LoopTest::makeUp(id, moves.empty() ? GePoint2<int>{35, 32} : moves.back(), 1, 0));
        run();
    }
};

TEST_F(PushButtonLoop, OnlyAReleaseOnTheButtonActivatesIt) {
    auto button = UiPushButton::create(root(), "ok");
    button->setRect({20, 90, 20, 50});
    int activations = 0;
    CbFunction<EvEvent> count([&](EvEvent&) { ++activations; });
    button->addActivateCb(&count);
    pressDragRelease({});
    pressDragRelease({{300, 300}});
    EXPECT_EQ(activations, 1);
    EXPECT_FALSE(button->getActive());
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    EXPECT_TRUE(UiArmStack::empty());
}

TEST_F(PushButtonLoop, ToggleDraggedOutKeepsItsStateAndBackInFlips) {
    auto toggle = UiToggleButton::create(root(), "t");
    toggle->setRect({20, 90, 20, 50});
    int reports = 0;
    CbFunction<EvEvent> count([&](EvEvent&) { ++reports; });
    toggle->addStateCb(&count);
    pressDragRelease({{300, 300}});
    EXPECT_FALSE(toggle->getState());
    EXPECT_EQ(reports, 0);
    pressDragRelease({{300, 300}, {40, 40}});
    EXPECT_TRUE(toggle->getState());
    EXPECT_EQ(reports, 1);
}

// Confirm buttons: the answers of Return, Escape and pointer moves, with and without a cancel,
// and what the prompt's wait does with other events.
class ConfirmButtonTest : public LoopTest::WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        prompt = UiConfirmButton::create(root(), "prompt");
        prompt->setRect({20, 120, 20, 50});
        prompt->getLabel().setString("Delete?");
        prompt->hide();
    }
    void TearDown() override {
        prompt = nullptr;
        WindowFixture::TearDown();
    }
    void key(int code) { post(LoopTest::makeKey(id, code)); }
    void move() { post(LoopTest::makeMove(id, {300, 300})); }

    RCShdPtr<UiConfirmButton> prompt;
};

TEST_F(ConfirmButtonTest, ReturnSaysYesAndHidesThePrompt) {
    key(EvKeyCode::Tab);
    key(EvKeyCode::Return);
    EXPECT_TRUE(prompt->askConfirm(true));
    EXPECT_FALSE(prompt->isDisplayed());
}

TEST_F(ConfirmButtonTest, EscapeSaysNoOnlyWhenANoIsAllowed) {
    key(EvKeyCode::Escape);
    EXPECT_FALSE(prompt->askConfirm(true));
    key(EvKeyCode::Escape);
    key(EvKeyCode::Return);
    EXPECT_TRUE(prompt->askConfirm(false));
}

TEST_F(ConfirmButtonTest, MoveSaysYesWithThePointerFocusOnThePromptElseNo) {
    UiFocusPointer::getInstance().updateFocus(prompt.get());
    move();
    EXPECT_TRUE(prompt->askConfirm(true));
    // The move did not reach the widgets: the focus is still on the prompt.
    EXPECT_EQ(UiFocusPointer::getInstance().getFocus(), prompt.get());

    UiFocusPointer::getInstance().updateFocus(nullptr);
    move();
    EXPECT_FALSE(prompt->askConfirm(true));
    // Without a cancel, the move off the prompt is dropped and the wait goes on.
    move();
    key(EvKeyCode::Return);
    EXPECT_TRUE(prompt->askConfirm(false));
}

} // namespace
} // namespace Zr
