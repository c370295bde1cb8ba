// Arming: how presses and releases pair up on the arm stack across widgets, the assertions that
// guard it, what unmapping, disabling and destruction do to it, and the UiEvents trace lines.
#include "uiTestSupport.h"

#include "uiFocusKeyboard.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Zr {
namespace {

using UiTest::LoggingWidget;
using UiTest::makeDown;
using UiTest::makeUp;
using UiTest::TestRoot;

class ArmStackTest : public ::testing::Test {
protected:
    void SetUp() override {
        UiArmStack::clear();
        root = TestRoot::make();
        a = LoggingWidget::make(root.get(), "a", {0, 50, 0, 50}, &log);
        b = LoggingWidget::make(root.get(), "b", {60, 110, 0, 50}, &log);
        log.clear();
    }
    void TearDown() override {
        UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
        UiArmStack::clear();
        root->removeChildren();
    }
    // Only the arm and disarm entries: focus notices are not the subject here.
    std::vector<std::string> armLog() const {
        std::vector<std::string> out;
        std::copy_if(log.begin(), log.end(), std::back_inserter(out), [](std::string const& s) {
            return s.ends_with(" arm") || s.ends_with(" disarm");
        });
        return out;
    }
    std::vector<std::pair<UiWidget*, unsigned>> stack() const {
        std::vector<std::pair<UiWidget*, unsigned>> out;
        for (auto const& e : UiArmStack::getEntries())
            out.emplace_back(e._widget, e._triggerButton);
        return out;
    }

    std::vector<std::string> log;
    RCShdPtr<TestRoot> root;
    RCShdPtr<LoggingWidget> a, b;
};

using Stack = std::vector<std::pair<UiWidget*, unsigned>>;
using Log = std::vector<std::string>;

TEST_F(ArmStackTest, PressAndReleasePairUpOnOneWidget) {
    auto down = makeDown(1);
    a->arm(down);
    EXPECT_TRUE(a->isArmed());
    EXPECT_EQ(stack(), (Stack{{a.get(), 1u}}));
    EXPECT_EQ(UiFocusKeyboard::getInstance().getFocus(), a.get());
    auto up = makeUp(1);
    a->disarm(up);
    EXPECT_FALSE(a->isArmed());
    EXPECT_TRUE(UiArmStack::empty());
    EXPECT_EQ(armLog(), (Log{"a arm", "a disarm"}));
}

TEST_F(ArmStackTest, PressOnAnotherWidgetDisarmsTheTopFirst) {
    auto down = makeDown(1);
    a->arm(down);
    auto right = makeDown(4);
    b->arm(right);
    EXPECT_EQ(armLog(), (Log{"a arm", "a disarm", "b arm"}));
    EXPECT_EQ(stack(), (Stack{{b.get(), 4u}}));
}

TEST_F(ArmStackTest, PressOnAWidgetAlreadyOnTheStackDisarmsDownToItAndPushesItAgain) {
    auto down = makeDown(1);
    a->arm(down);
    b->veryDangerousDuplicateArm();
    ASSERT_EQ(stack(), (Stack{{a.get(), 1u}, {b.get(), 1u}}));
    log.clear();
    auto right = makeDown(4);
    a->arm(right);
    EXPECT_EQ(armLog(), (Log{"b disarm", "a disarm", "a arm"}));
    EXPECT_EQ(stack(), (Stack{{a.get(), 4u}}));
}

TEST_F(ArmStackTest, NullTopIsPoppedSilentlyAtTheNextPress) {
    auto down = makeDown(1);
    a->arm(down);
    a->pushArm();
    EXPECT_FALSE(a->isArmed());
    EXPECT_EQ(stack(), (Stack{{a.get(), 1u}, {nullptr, 0u}}));
    log.clear();
    auto other = makeDown(2);
    b->arm(other);
    // The blocker went without a disarm of a, which stays below.
    EXPECT_EQ(armLog(), (Log{"b arm"}));
    EXPECT_EQ(stack(), (Stack{{a.get(), 1u}, {b.get(), 2u}}));
}

TEST_F(ArmStackTest, ReleaseToAWidgetNotOnTheStackIsIgnored) {
    auto down = makeDown(1);
    a->arm(down);
    auto up = makeUp(1);
    b->disarm(up);
    EXPECT_EQ(armLog(), (Log{"a arm"}));
    EXPECT_EQ(stack(), (Stack{{a.get(), 1u}}));
}

TEST_F(ArmStackTest, ReleaseToAWidgetBelowTheTopDisarmsEverythingDownToIt) {
    auto down = makeDown(1);
    a->arm(down);
    b->veryDangerousDuplicateArm();
    log.clear();
    auto up = makeUp(1);
    a->disarm(up);
    EXPECT_EQ(armLog(), (Log{"b disarm", "a disarm"}));
    EXPECT_TRUE(UiArmStack::empty());
}

TEST_F(ArmStackTest, ReleaseOfAnotherButtonFailsTheTriggerAssertion) {
    auto down = makeDown(1);
    a->arm(down);
    auto up = makeUp(4);
    try {
        a->disarm(up);
        FAIL() << "no assertion";
    } catch (ExAssertionFailed const& e) {
        EXPECT_EQ(e.getReason(), "armedWidgets.back()._triggerButton == triggerButton");
    }
    EXPECT_EQ(stack(), (Stack{{a.get(), 1u}}));
}

TEST_F(ArmStackTest, ArmOperationsAssertTheirPreconditions) {
    auto reasonOf = [](auto&& f) {
        try {
            f();
        } catch (ExAssertionFailed const& e) {
            return e.getReason();
        }
        return std::string("no assertion");
    };
    EXPECT_EQ(reasonOf([&] { a->pushArm(); }), "isArmed()");
    EXPECT_EQ(reasonOf([&] { a->transferArm(); }), "!ArmStack::empty()");
    EXPECT_EQ(reasonOf([&] { a->veryDangerousDuplicateArm(); }), "!ArmStack::empty()");
    auto down = makeDown(1);
    a->arm(down);
    EXPECT_EQ(reasonOf([&] { a->transferArm(); }),
              "!ArmStack::disarm( this, EvPointerButtonUpEvent() )");
    EXPECT_EQ(reasonOf([&] { a->veryDangerousDuplicateArm(); }),
              "!ArmStack::disarm( this, EvPointerButtonUpEvent() )");
}

TEST_F(ArmStackTest, TransferHandsThePressOverWithoutADisarm) {
    auto down = makeDown(2);
    a->arm(down);
    b->transferArm();
    EXPECT_EQ(stack(), (Stack{{b.get(), 2u}}));
    EXPECT_EQ(UiFocusKeyboard::getInstance().getFocus(), b.get());
    auto up = makeUp(2);
    b->disarm(up);
    EXPECT_EQ(armLog(), (Log{"a arm", "b disarm"}));
}

TEST_F(ArmStackTest, DuplicateArmLeavesTheFirstHolderArmedBelow) {
    auto down = makeDown(1);
    a->arm(down);
    b->veryDangerousDuplicateArm();
    auto up = makeUp(1);
    b->disarm(up);
    EXPECT_EQ(stack(), (Stack{{a.get(), 1u}}));
    EXPECT_TRUE(a->isArmed());
}

TEST_F(ArmStackTest, UnmappingDisarms) {
    auto down = makeDown(1);
    a->arm(down);
    a->hide();
    EXPECT_EQ(armLog(), (Log{"a arm", "a disarm"}));
    EXPECT_TRUE(UiArmStack::empty());
}

TEST_F(ArmStackTest, DisabledWidgetKeepsItsEntryUntilTheNextPress) {
    auto down = makeDown(1);
    a->arm(down);
    a->enable(false);
    auto up = makeUp(1);
    a->processEvent(up);
    EXPECT_TRUE(a->isArmed());
    auto next = makeDown(1);
    b->processEvent(next);
    EXPECT_EQ(armLog(), (Log{"a arm", "a disarm", "b arm"}));
}

TEST_F(ArmStackTest, DestroyedWidgetLeavesNoEntryAndDisarmsThoseAboveIt) {
    // Without a parent nothing else holds the widget: releasing it destroys it. The handlers
    // live outside it, since a subclass's own members are gone before the base's destructor.
    auto loose = UiWidget::create(nullptr, "loose");
    CbFunction<EvEvent> onDisarm([&](EvEvent&) { log.push_back("loose disarm"); });
    CbFunction<EvEvent> onDestroy([&](EvEvent&) { log.push_back("loose destroy"); });
    loose->addDisarmCb(&onDisarm);
    loose->addDestroyCb(&onDestroy);
    auto down = makeDown(1);
    loose->arm(down);
    b->veryDangerousDuplicateArm();
    log.clear();
    UiWidget* dying = loose.get();
    loose = nullptr;
    EXPECT_EQ(log, (Log{"b disarm", "loose disarm", "loose destroy"}));
    EXPECT_FALSE(UiArmStack::contains(dying));
    EXPECT_TRUE(UiArmStack::empty());
    EXPECT_NE(UiFocusKeyboard::getInstance().getFocus(), dying);
}

TEST_F(ArmStackTest, ExitCheckAssertsAnEmptyStack) {
    EXPECT_NO_THROW(UiArmStack::checkEmpty());
    auto down = makeDown(1);
    a->arm(down);
    try {
        UiArmStack::checkEmpty();
        FAIL() << "no assertion";
    } catch (ExAssertionFailed const& e) {
        EXPECT_EQ(e.getReason(), "ArmStack::empty()");
    }
}

// --- trace ---------------------------------------------------------------------------------

class ArmTrace : public ArmStackTest {
protected:
    template <class F>
    std::string captured(F&& f) {
        UiTest::EventTraceScope trace;
        ::testing::internal::CaptureStdout();
        ::testing::internal::CaptureStderr();
        f();
        std::string out = ::testing::internal::GetCapturedStdout();
        return out + ::testing::internal::GetCapturedStderr();
    }
    RCShdPtr<LoggingWidget> ok;
    void SetUp() override {
        ArmStackTest::SetUp();
        ok = LoggingWidget::make(root.get(), "okButton", {120, 160, 0, 30}, &log);
    }
};

EvPointerButtonDownEvent downAt(unsigned button, unsigned modifiers) {
    EvPointerButtonDownEvent down;
    down.setOrigin({100, 200});
    down.setWCoord({110, 205});
    down.setTriggerButton(button);
    down.setKeyboardState(EvKeyboardState(modifiers));
    return down;
}

TEST_F(ArmTrace, ArmLineNamesWidgetButtonAndBothPositions) {
    auto down = downAt(1, 0);
    std::string out = captured([&] { ok->arm(down); });
    EXPECT_NE(out.find("[UiEvents       ] Arm \"okButton\", [left button] at (10, 5), window "
                       "(110, 205)"),
              std::string::npos)
        << out;
}

TEST_F(ArmTrace, ModifiersAreListedAfterThePositions) {
    auto down = downAt(4, EvKeyboardState::Shift | EvKeyboardState::Control);
    std::string out = captured([&] { ok->arm(down); });
    EXPECT_NE(out.find("Arm \"okButton\", [right button] at (10, 5), window (110, 205), "
                       "Modifiers: shft ctrl\n"),
              std::string::npos)
        << out;

    EvPointerButtonUpEvent up(down);
    up.setKeyboardState(EvKeyboardState(EvKeyboardState::Alt));
    up.setDoubleClick(true);
    out = captured([&] { ok->disarm(up); });
    EXPECT_NE(out.find("Disarm \"okButton\", [right button, double-click] at (10, 5), window "
                       "(110, 205), Modifier: alt\n"),
              std::string::npos)
        << out;
}

TEST_F(ArmTrace, ActivateAndCharacterLines) {
    EvDefaultEvent activation;
    std::string out = captured([&] { ok->activate(activation); });
    EXPECT_NE(out.find("[UiEvents       ] Activate \"okButton\""), std::string::npos) << out;
    EXPECT_TRUE(activation.isProcessed());
    EXPECT_EQ(log.back(), "okButton activate");

    EvCharEvent c(U'x');
    out = captured([&] { ok->inputChar(c); });
    EXPECT_NE(out.find("Char entry in \"okButton\": x"), std::string::npos) << out;
}

TEST_F(ArmTrace, NothingIsWrittenWithTheTraceOff) {
    auto down = downAt(1, 0);
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    ok->arm(down);
    std::string out = ::testing::internal::GetCapturedStdout();
    out += ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(out.find("Arm \""), std::string::npos) << out;
}

TEST_F(ArmTrace, IgnoredReleaseWritesNothing) {
    auto up = makeUp(1);
    std::string out = captured([&] { ok->disarm(up); });
    EXPECT_EQ(out.find("Disarm"), std::string::npos) << out;
}

} // namespace
} // namespace Zr
