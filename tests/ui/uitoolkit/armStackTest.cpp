// Arming: how presses and releases pair up on the arm stack across widgets, the assertions that
// guard it, what unmapping, disabling and destruction do to it, and the UiEvents trace lines.
#include "support/exceptionReason.h"
#include "uiTestSupport.h"

#include "uiFocusKeyboard.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <cctype>
#include <optional>

namespace Zr {
namespace {

using TestSupport::reasonOf;
using UiTest::LoggingWidget;
using UiTest::makeDown;
using UiTest::makeUp;
using UiTest::TestRoot;
using Log = std::vector<std::string>;

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
    Log armLog() const {
        Log out;
        for (auto const& s : log)
            if (s.ends_with(" arm") || s.ends_with(" disarm"))
                out.push_back(s);
        return out;
    }
    // The stack bottom first, as "<widget><button>" ("-0" for a blocker), blank-separated.
    std::string stack() const {
        std::string out;
        for (auto const& e : UiArmStack::getEntries())
            out += (out.empty() ? "" : " ") + (e._widget ? e._widget->getName().str() : "-") +
                   std::to_string(e._triggerButton);
        return out;
    }

    std::vector<std::string> log;
    RCShdPtr<TestRoot> root;
    RCShdPtr<LoggingWidget> a, b;
};

// A step is "<widget> <operation>": down<N>/up<N> arm or disarm with button N, send-down<N> and
// send-up<N> go through processEvent; "= <stack>", "armed" and "focus" check the state so far.
struct ArmScript {
    char const* name;
    std::vector<std::string> steps;
    Log armLog;
    std::string stack;
};

ArmScript const armScripts[] = {
    {"PressAndReleasePairUpOnOneWidget",
     {"a down1", "a armed", "a focus", "= a1", "a up1", "a !armed"},
     {"a arm", "a disarm"},
     ""},
    {"PressOnAnotherWidgetDisarmsTheTopFirst",
     {"a down1", "b down4"},
     {"a arm", "a disarm", "b arm"},
     "b4"},
    {"PressOnAWidgetOnTheStackDisarmsDownToItAndPushesItAgain",
     {"a down1", "b duplicate", "= a1 b1", "a down4"},
     {"a arm", "b disarm", "a disarm", "a arm"},
     "a4"},
    {"NullTopIsPoppedSilentlyAtTheNextPress",
     {"a down1", "a push", "a !armed", "= a1 -0", "b down2"},
     {"a arm", "b arm"},
     "a1 b2"},
    {"ReleaseToAWidgetNotOnTheStackIsIgnored", {"a down1", "b up1"}, {"a arm"}, "a1"},
    {"ReleaseToAWidgetBelowTheTopDisarmsEverythingDownToIt",
     {"a down1", "b duplicate", "a up1"},
     {"a arm", "b disarm", "a disarm"},
     ""},
    {"TransferHandsThePressOverWithoutADisarm",
     {"a down2", "b transfer", "= b2", "b focus", "b up2"},
     {"a arm", "b disarm"},
     ""},
    {"DuplicateArmLeavesTheFirstHolderArmedBelow",
     {"a down1", "b duplicate", "b up1", "a armed"},
     {"a arm", "b disarm"},
     "a1"},
    {"UnmappingDisarms", {"a down1", "a hide"}, {"a arm", "a disarm"}, ""},
    {"DisabledWidgetKeepsItsEntryUntilTheNextPress",
     {"a down1", "a disable", "a send-up1", "a armed", "b send-down1"},
     {"a arm", "a disarm", "b arm"},
     "b1"},
};

void PrintTo(ArmScript const& script, std::ostream* os) {
    *os << script.name;
}

class ArmScripts : public ArmStackTest, public ::testing::WithParamInterface<ArmScript> {};

TEST_P(ArmScripts, PairUpAsStated) {
    ArmScript const& script = GetParam();
    for (std::string const& step : script.steps) {
        SCOPED_TRACE(step);
        std::string const op = step.substr(2);
        if (step[0] == '=') {
            EXPECT_EQ(stack(), op);
            continue;
        }
        LoggingWidget& w = step[0] == 'a' ? *a : *b;
        unsigned const button = std::isdigit(step.back()) ? unsigned(step.back() - '0') : 0;
        if (op.starts_with("down")) {
            auto e = makeDown(button);
            w.arm(e);
        } else if (op.starts_with("up")) {
            auto e = makeUp(button);
            w.disarm(e);
        } else if (op.starts_with("send-down")) {
            auto e = makeDown(button);
            w.processEvent(e);
        } else if (op.starts_with("send-up")) {
            auto e = makeUp(button);
            w.processEvent(e);
        } else if (op == "duplicate") {
            w.veryDangerousDuplicateArm();
        } else if (op == "push") {
            w.pushArm();
        } else if (op == "transfer") {
            w.transferArm();
        } else if (op == "hide") {
            w.hide();
        } else if (op == "disable") {
            w.enable(false);
        } else if (op == "armed" || op == "!armed") {
            EXPECT_EQ(w.isArmed(), op == "armed");
        } else if (op == "focus") {
            EXPECT_EQ(UiFocusKeyboard::getInstance().getFocus(), &w);
        } else {
            FAIL() << "unknown step";
        }
    }
    EXPECT_EQ(armLog(), script.armLog);
    EXPECT_EQ(stack(), script.stack);
}

INSTANTIATE_TEST_SUITE_P(Scripts, ArmScripts, ::testing::ValuesIn(armScripts),
                         [](auto const& info) { return std::string(info.param.name); });

TEST_F(ArmStackTest, OperationsAssertTheirPreconditions) {
    using Ex = ExAssertionFailed;
    EXPECT_EQ(reasonOf<Ex>([&] { a->pushArm(); }), "isArmed()");
    EXPECT_EQ(reasonOf<Ex>([&] { a->transferArm(); }), "!ArmStack::empty()");
    EXPECT_EQ(reasonOf<Ex>([&] { a->veryDangerousDuplicateArm(); }), "!ArmStack::empty()");
    EXPECT_EQ(reasonOf<Ex>([&] { UiArmStack::checkEmpty(); }), "no exception");
    auto down = makeDown(1);
    a->arm(down);
    EXPECT_EQ(reasonOf<Ex>([&] { a->transferArm(); }),
              "!ArmStack::disarm( this, EvPointerButtonUpEvent() )");
    EXPECT_EQ(reasonOf<Ex>([&] { a->veryDangerousDuplicateArm(); }),
              "!ArmStack::disarm( this, EvPointerButtonUpEvent() )");
    EXPECT_EQ(reasonOf<Ex>([&] { UiArmStack::checkEmpty(); }), "ArmStack::empty()");
    auto up = makeUp(4);
    EXPECT_EQ(reasonOf<Ex>([&] { a->disarm(up); }),
              "armedWidgets.back()._triggerButton == triggerButton");
    EXPECT_EQ(stack(), "a1");
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

// --- trace ---------------------------------------------------------------------------------

// What `f` writes to the console, with the UiEvents trace on or off.
template <class F>
std::string captured(bool traceOn, F&& f) {
    std::optional<UiTest::EventTraceScope> trace;
    if (traceOn)
        trace.emplace();
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    f();
    std::string out = ::testing::internal::GetCapturedStdout();
    return out + ::testing::internal::GetCapturedStderr();
}

TEST_F(ArmStackTest, TraceLinesNameWidgetButtonsPositionsAndModifiers) {
    auto ok = LoggingWidget::make(root.get(), "okButton", {120, 160, 0, 30}, &log);
    EvPointerButtonDownEvent down;
    down.setOrigin({100, 200});
    down.setWCoord({110, 205});
    down.setTriggerButton(1);
    EXPECT_EQ(captured(false, [&] { ok->arm(down); }).find("Arm \""), std::string::npos);
    auto ignored = makeUp(4);
    EXPECT_EQ(captured(true, [&] { b->disarm(ignored); }).find("Disarm"), std::string::npos);
    UiArmStack::clear();
    EXPECT_THAT(captured(true, [&] { ok->arm(down); }),
                ::testing::HasSubstr("[UiEvents       ] Arm \"okButton\", [left button] at (10, "
                                     "5), window (110, 205)\n"));
    down.setTriggerButton(4);
    down.setKeyboardState(EvKeyboardState(EvKeyboardState::Shift | EvKeyboardState::Control));
    EXPECT_THAT(captured(true, [&] { ok->arm(down); }),
                ::testing::HasSubstr("Arm \"okButton\", [right button] at (10, 5), window (110, "
                                     "205), Modifiers: shft ctrl\n"));
    EvPointerButtonUpEvent up(down);
    up.setKeyboardState(EvKeyboardState(EvKeyboardState::Alt));
    up.setDoubleClick(true);
    EXPECT_THAT(captured(true, [&] { ok->disarm(up); }),
                ::testing::HasSubstr("Disarm \"okButton\", [right button, double-click] at (10, "
                                     "5), window (110, 205), Modifier: alt\n"));

    EvDefaultEvent activation;
    EXPECT_THAT(captured(true, [&] { ok->activate(activation); }),
                ::testing::HasSubstr("[UiEvents       ] Activate \"okButton\""));
    EXPECT_TRUE(activation.isProcessed());
    EXPECT_EQ(log.back(), "okButton activate");
    EvCharEvent c(U'x');
    EXPECT_THAT(captured(true, [&] { ok->inputChar(c); }),
                ::testing::HasSubstr("Char entry in \"okButton\": x"));
}

} // namespace
} // namespace Zr
