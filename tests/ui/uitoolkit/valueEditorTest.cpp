// Value editors: number formatting, the drag with its steps and callbacks, click-to-type with
// commit and cancel, the reset and calculator clicks, the stepping hotkeys, the position bar and
// resources from tables, bad ones included.
#include "buttonTestSupport.h"
#include "liStringUtil.h"
#include "uiApplication.h"
#include "uiHotkeyRegistry.h"
#include "uiSimpleCalculator.h"
#include "uiTextField.h"
#include "uiValueEditor.h"
#include "uiWidgetEvent.h"
#include "uiWidgetFactory.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <list>

namespace Zr {
namespace {

using Log = std::vector<std::string>;
using K = EvKeyCode;
constexpr unsigned Shift = EvKeyboardState::Shift, Ctrl = EvKeyboardState::Control,
                   Alt = EvKeyboardState::Alt;

// Records each popup as "mode <n> <value>", or "mode <n> null".
class RecordingCalculator : public UiCalculator {
public:
    void popup(UiCalculatable* c, PopupMode mode) override {
        log.push_back("mode " + std::to_string(mode) +
                      (c ? " " + std::to_string(int(c->getValue())) : " null"));
    }
    Log log;
};

// A calculatable that has an expression.
class WithExpression : public UiCalculatable {
public:
    void setValue(double) override {}
    double getValue() const override { return 7.0; }
    RCShdPtr<Expression const> getExpression() const override { return new Expression("1+6"); }
    bool supportsExpressions() const override { return true; }
    GeRectangle<int> getScreenRectangle() const override { return {}; }
    RCShdPtr<UiLabelHandler const> getLabelHandler() const override { return nullptr; }
};

class ValueEditor : public UiTest::ButtonFixture {
protected:
    void SetUp() override {
        ButtonFixture::SetUp();
        editor = UiValueEditor::create(root.get(), "gain");
        editor->setRect({14, 84, 14, 35}, false);
        editor->setRange(-100.0, 100.0, false);
        editor->setIncrement(0.5);
        // The editor outlives its callbacks; the fixture's pointer may not.
        auto add = [this, e = editor.get()](char const* name) {
            return &handlers.emplace_back([this, e, name](EvEvent& event) {
                auto* changed = dynamic_cast<UiValueChanged*>(&event);
                log.push_back(changed ? std::string(name) + " " + e->getLabel().getString().str()
                                      : std::string(name));
            });
        };
        editor->addPreEditCb(add("pre"));
        editor->addPostEditCb(add("post"));
        editor->addValueChangedCb(add("changed"));
        editor->addActivateCb(add("activate"));
        editor->addKbdFocusInCb(add("focusIn"));
        editor->addKbdFocusOutCb(add("focusOut"));
        calculator = new RecordingCalculator;
        UiApplication::getInstance().setCalculator(calculator);
    }
    void TearDown() override {
        UiApplication::getInstance().setCalculator(nullptr);
        UiGrab::keyboard().clear();
        editor = nullptr;
        ButtonFixture::TearDown();
    }
    void press(int x, unsigned modifiers = 0, unsigned button = 1) {
        UiFocusPointer::getInstance().updatePointer(editor.get(), true);
        auto down = UiTest::makeDown(button, {x, 20});
        down.setKeyboardState(EvKeyboardState(modifiers));
        editor->processEvent(down);
    }
    void moveTo(int x, unsigned modifiers = 0) {
        EvPointerMoveEvent move;
        move.setWCoord({x, 20});
        move.setKeyboardState(EvKeyboardState(modifiers));
        editor->processEvent(move);
    }
    void release(int x, unsigned modifiers = 0, unsigned button = 1) {
        auto up = UiTest::makeUp(button, {x, 20});
        up.setKeyboardState(EvKeyboardState(modifiers));
        editor->processEvent(up);
    }
    UiTextField* field() const {
        return dynamic_cast<UiTextField*>(root->findWidget(LiString("gainEditField")).get());
    }
    // A key as the loop delivers it: the hotkeys first, then the keyboard focus.
    template <class E = EvKeyPressEvent>
    void key(int code, unsigned modifiers = 0) {
        E e;
        e.setTriggerKey(code);
        e.setKeyboardState(EvKeyboardState(modifiers));
        UiHotkeyRegistry::getInstance().processEvent(e);
        if (!e.isProcessed())
            UiFocusKeyboard::getInstance().processEvent(e);
    }
    void type(std::string const& text) {
        for (char c : text) {
            EvCharEvent e(static_cast<char32_t>(c));
            UiFocusKeyboard::getInstance().processEvent(e);
        }
    }

    std::list<CbFunction<EvEvent>> handlers;
    RCShdPtr<UiValueEditor> editor;
    RCShdPtr<RecordingCalculator> calculator;
    Log log;
};

TEST(ValueEditorFormat, NumbersFitInSevenCharacters) {
    struct Row {
        double value;
        char const *format, *expected;
    } const rows[] = {
        {12345678.0, "%.7g", "1.235e7"},
        {-999999.5, "%.7g", "-999999"},
        {-1000000.0, "%.7g", "-1.00e6"},
        {0.00005, "%.7g", "5.00e-5"},
        {0.0, "%.7g", "0"},
        {0.0001, "%.7g", "0.0001"},
        {3.14159, "%.2f", "3.14"},
        {42.0, "%.0f", "42"},
        {1.5e300, "%.3f", "1.5e300"},
        {-2.5e-7, "%.7g", "-2.5e-7"},
        {7.0, "%s", "7"},
        {0.5, "%f %f", "0.5"},
    };
    for (Row const& r : rows) {
        SCOPED_TRACE(std::to_string(r.value) + " " + r.format);
        EXPECT_EQ(UiValueEditor::formatString(r.value, r.format, "%.7s"), r.expected);
    }
    EXPECT_EQ(UiValueEditor::formatString(2.0, "%.1f", "%s dB"), "2.0 dB");
    // Between the exponent thresholds the text is printf's, whichever way it is printed.
    for (char const* format : {"%.7g", "%g", "%.3f", "%f", "%.0f", "%+.2f", "%8.3f"}) {
        for (int i = 0; i < 200; ++i) {
            double const value = (i % 2 ? -1.0 : 1.0) * std::ldexp(1.0 + i * 0.37, i % 22 - 12);
            char expected[30];
            std::snprintf(expected, sizeof expected, format, value);
            SCOPED_TRACE(std::string(format) + " " + expected);
            ASSERT_EQ(UiValueEditor::formatString(value, format, "%.29s"), expected);
        }
    }
    EXPECT_EQ(UiValueEditor::filterExponent("1.500000e+007"), "1.500000e7");
    EXPECT_EQ(UiValueEditor::filterExponent("2.5e-005"), "2.5e-5");
    EXPECT_EQ(UiValueEditor::filterExponent("3e+000"), "3e");
}

TEST_F(ValueEditor, DragStepsFromThePresentValueWithModifierFactors) {
    struct Row {
        std::vector<int> xs;
        unsigned modifiers;
        double value;
        Log log;
    } rows[] = {
        // Pre-edit comes at the fourth pixel, and the drag counts from there.
        {{12, 14, 20, 30}, 0, 8.0, {"pre", "changed 3", "changed 8", "post"}},
        {{14, 16}, Ctrl, 10.0, {"pre", "changed 10", "post"}},
        {{14, 15}, Alt, 0.05, {"pre", "changed 0.05", "post"}},
        {{14, 500}, Ctrl | Shift, 100.0, {"pre", "changed 100", "post"}},
        {{6, 4}, 0, -1.0, {"pre", "changed -1", "post"}},
    };
    editor->setFormat("%.7g");
    for (Row& r : rows) {
        SCOPED_TRACE(::testing::PrintToString(r.xs));
        editor->setValue(0.0, false);
        log.clear();
        press(10, r.modifiers);
        for (int x : r.xs)
            moveTo(x, r.modifiers);
        release(r.xs.back(), r.modifiers);
        EXPECT_DOUBLE_EQ(editor->getValue(), r.value);
        EXPECT_FALSE(editor->isEditFieldMode());
        log.erase(std::remove(log.begin(), log.end(), "focusIn"), log.end());
        r.log.push_back("activate");
        EXPECT_EQ(log, r.log);
    }
}

// Typed text that is no number commits as 0; an overflow takes the limit of a clamped range and
// leaves an unclamped one where it was; a drag of step 0 changes nothing.
TEST_F(ValueEditor, TypedOverflowAndEmptyTextAndStepZeroKeepTheValueSound) {
    struct Row {
        bool clamped;
        char const* typed;
        double value;
    } const rows[] = {
        {true, "1e400", 100.0}, {true, "-1e400", -100.0}, {true, "", 0.0},   {true, "e", 0.0},
        {true, "150", 100.0},   {false, "1e400", 5.0},    {false, "150", 150.0},
    };
    for (Row const& r : rows) {
        SCOPED_TRACE(std::string(r.typed) + (r.clamped ? " clamped" : " unclamped"));
        editor->setValueClamped(r.clamped);
        editor->setValue(5.0, false);
        press(20);
        release(20);
        ASSERT_TRUE(editor->isEditFieldMode());
        field()->setString("", 0, false, false);
        type(r.typed);
        key(K::Return);
        EXPECT_DOUBLE_EQ(editor->getValue(), r.value);
    }
    editor->setValueClamped(true);
    editor->setIncrement(0.0);
    editor->setValue(5.0, false);
    log.clear();
    press(10);
    for (int x : {14, 30, 60})
        moveTo(x);
    release(60);
    EXPECT_DOUBLE_EQ(editor->getValue(), 5.0);
    EXPECT_EQ(std::count(log.begin(), log.end(), "changed 5"), 0);
}

TEST_F(ValueEditor, ClickOpensTheFieldWhichCommitsOrCancels) {
    struct Row {
        char const* typed;
        int endKey;
        double value;
        Log log;
    } const rows[] = {
        {"12.5", K::Return, 12.5, {"changed 12.5", "post", "focusOut", "focusIn", "activate"}},
        {"2e1", K::Return, 20.0, {"changed 20", "post", "focusOut", "focusIn", "activate"}},
        {"1e9", K::Return, 100.0, {"changed 100", "post", "focusOut", "focusIn", "activate"}},
        {"7", K::Escape, 0.0, {"post", "focusOut", "focusIn"}},
        {"-", K::Return, 0.0, {"post", "focusOut", "focusIn", "activate"}},
    };
    editor->setFormat("%.7g");
    for (Row const& r : rows) {
        SCOPED_TRACE(r.typed);
        editor->setValue(0.0, false);
        UiFocusKeyboard::getInstance().setFocus(editor.get());
        log.clear();
        press(20);
        release(20);
        // The field takes the editor's place; the clients hear of no focus change.
        EXPECT_EQ(log, (Log{"pre", "activate"}));
        ASSERT_TRUE(editor->isEditFieldMode());
        ASSERT_NE(field(), nullptr);
        EXPECT_FALSE(editor->isDisplayed());
        EXPECT_EQ(field()->getRect(), editor->getRect());
        EXPECT_EQ(field()->getString().str(), "0");
        EXPECT_TRUE(field()->isAllHighlighted());
        log.clear();
        type(r.typed);
        key(r.endKey);
        EXPECT_FALSE(editor->isEditFieldMode());
        EXPECT_TRUE(editor->isDisplayed());
        EXPECT_EQ(field(), nullptr);
        EXPECT_DOUBLE_EQ(editor->getValue(), r.value);
        EXPECT_EQ(log, r.log);
    }
    // An editor outside the Tab order leaves no focus behind in its field.
    editor->setKeyboardFocusable(false);
    press(20);
    release(20);
    type("5");
    log.clear();
    key(K::Return);
    EXPECT_EQ(UiFocusKeyboard::getInstance().getFocus(), nullptr);
    EXPECT_EQ(log, (Log{"changed 5", "post", "focusOut", "activate"}));
    editor->setKeyboardFocusable(true);
    // Focus leaving in the middle of an edit commits what was typed.
    auto other = UiTest::LoggingWidget::make(root.get(), "other", {100, 150, 14, 35}, &log);
    press(20);
    release(20);
    type("33");
    log.clear();
    UiFocusKeyboard::getInstance().setFocus(other.get());
    EXPECT_DOUBLE_EQ(editor->getValue(), 33.0);
    EXPECT_EQ(log, (Log{"post", "changed 33", "activate", "focusOut", "other kbdFocusIn"}));
}

TEST_F(ValueEditor, MinusStandsOnlyFirstOrAfterAnExponent) {
    press(20);
    release(20);
    struct Row {
        char const *before, *typed, *after;
    } const rows[] = {{"", "-5", "-5"}, {"5", "-", "5"}, {"1e", "-3", "1e-3"}, {"12", "x-", "12"}};
    for (Row const& r : rows) {
        SCOPED_TRACE(std::string(r.before) + " + " + r.typed);
        field()->setString(r.before);
        for (char c : std::string(r.typed)) {
            if (c == '-')
                key(K::Minus);
            type(std::string(1, c));
        }
        EXPECT_EQ(field()->getString().str(), r.after);
    }
}

TEST_F(ValueEditor, ModifiedAndContextClicksReachTheCalculatorTheResetOrTheMenu) {
    editor->setDefaultValue(5.0);
    CbFunction<RCShdPtr<UiCalculatable> const> menu(
        [&](RCShdPtr<UiCalculatable> const&) { calculator->log.push_back("menu"); });
    struct Row {
        unsigned button, modifiers;
        RCShdPtr<UiCalculatable> calculatable;
        Log calls;
        double value;
    } const rows[] = {
        {1, Shift, nullptr, {"mode 0 3"}, 3.0},
        {1, Shift | Alt, nullptr, {"mode 0 3"}, 3.0},
        {1, Shift | Alt, new WithExpression, {"mode 1 7"}, 3.0},
        {1, Ctrl, nullptr, {}, 5.0},
        {4, 0, nullptr, {}, 3.0}, // no menu client: a right click does nothing at all
        {4, 0, nullptr, {"menu"}, 3.0},
    };
    for (Row const& r : rows) {
        SCOPED_TRACE(std::to_string(r.button) + " " + std::to_string(r.modifiers));
        if (r.calculatable)
            editor->setCalculatable(r.calculatable);
        if (!r.calls.empty() && r.calls[0] == "menu")
            editor->addContextMenuCb(&menu);
        editor->setValue(3.0, false);
        calculator->log.clear();
        press(20, r.modifiers, r.button);
        EXPECT_EQ(holdsGrab(*editor), r.button == 1);
        release(20, r.modifiers, r.button);
        EXPECT_EQ(calculator->log, r.calls);
        EXPECT_FALSE(editor->isEditFieldMode());
        EXPECT_DOUBLE_EQ(editor->getValue(), r.value);
    }
    editor->removeContextMenuCb(&menu);
    // A null calculatable reaches the calculator as it is.
    editor->setCalculatable(nullptr);
    calculator->log.clear();
    press(20, Shift);
    release(20, Shift);
    EXPECT_EQ(calculator->log, Log{"mode 0 null"});
    // A client's reset replaces the built-in one.
    CbFunction<CbEmptyType> mine([this] { log.push_back("mine"); });
    editor->setResetValueCb(&mine);
    log.clear();
    press(20, Ctrl);
    release(20, Ctrl);
    EXPECT_DOUBLE_EQ(editor->getValue(), 3.0);
    EXPECT_EQ(log, Log{"mine"});
}

TEST_F(ValueEditor, HeldHotkeysStepFasterTheLongerTheyAreHeld) {
    struct Row {
        double min, max, increment;
        int presses;
        double value;
    } const rows[] = {
        {-1e6, 1e6, 0.5, 30, 30.0},  // thirty steps of 1
        {-1e6, 1e6, 0.5, 31, 35.0},  // then steps of 5
        {-1e6, 1e6, 0.5, 61, 205.0}, // after thirty more, steps of 25
        {0.0, 1.0, 0.01, 1, 0.01},   // a short range steps by the increment
    };
    for (Row const& r : rows) {
        SCOPED_TRACE(r.presses);
        editor->setRange(r.min, r.max, false);
        editor->setIncrement(r.increment);
        editor->setValue(0.0, false);
        press(20);
        release(20);
        for (int i = 0; i < r.presses; ++i)
            key(K::Up);
        EXPECT_DOUBLE_EQ(editor->getValue(), r.value);
        EXPECT_EQ(field()->getString().str(), LiStringUtil::convertNb(r.value));
        log.clear();
        key<EvKeyReleaseEvent>(K::Up);
        EXPECT_EQ(log, Log{"activate"});
        // The release starts the count afresh: the next press steps by 1 again (or the increment).
        key(K::Down);
        EXPECT_DOUBLE_EQ(editor->getValue(), r.value - (r.max > 1.0 ? 1.0 : r.increment));
        key<EvKeyReleaseEvent>(K::Down);
        key(K::Escape);
    }
}

TEST_F(ValueEditor, AutomaticBarShowsForSmallMaxima) {
    struct Row {
        UiValueEditor::IndicatorState state;
        double max;
        int height;
    } const rows[] = {
        {UiValueEditor::IndicatorAutomatic, 100.0, 4},
        {UiValueEditor::IndicatorAutomatic, 9999.0, -1},
        {UiValueEditor::IndicatorOn, 1e6, 4},
    };
    for (Row const& r : rows) {
        SCOPED_TRACE(r.max);
        editor->setIndicatorState(UiValueEditor::IndicatorOff);
        editor->setRange(-r.max, r.max, false);
        editor->setIndicatorState(r.state);
        editor->setValue(0.0, false);
        EXPECT_EQ(editor->getScrollHeight(), r.height);
        GeRectangle<int> const canvas = editor->getCanvas();
        EXPECT_EQ(editor->getScrollX(), canvas.x1 + (canvas.width() - 1) / 2);
    }
}

TEST_F(ValueEditor, ResourcesFromATableAndBadOnesReportedAlone) {
    auto db = dynamicCast<UiValueEditor>(UiWidgetFactory::createWidgetFromText(
        root,
        "<ValueEditor><Widget Name=\"db\"><FormatString><Text>%.2f</Text></FormatString>"
        "<LabelString><Text>%s dB</Text></LabelString>"
        "<Limits><MinMax Min=\"-60\" Max=\"12\" Step=\"0.1\"/></Limits>"
        "<DefaultValue><Double>-6</Double></DefaultValue>"
        "<Indicator><Int>1</Int></Indicator></Widget></ValueEditor>",
        "db.xml"));
    ASSERT_TRUE(db);
    db->setValue(3.256, false);
    EXPECT_EQ(db->getLabel().getString().str(), "3.26 dB");
    EXPECT_DOUBLE_EQ(db->getIncrement(), 0.1);
    EXPECT_DOUBLE_EQ(db->getDefaultValue(), -6.0);
    EXPECT_EQ(db->getIndicatorState(), UiValueEditor::IndicatorOn);

    // Each bad resource is reported and skipped; the good ones beside it apply.
    UiTest::Reports reports;
    db->changeResource(LiString("<FormatString><Text>%s</Text></FormatString>"
                                "<LabelString><Int>3</Int></LabelString>"
                                "<DefaultValue><Double>1</Double><Double>2</Double></DefaultValue>"
                                "<Indicator><Int>0</Int></Indicator>"));
    db->setFormat("%d");
    EXPECT_EQ(reports.ids(), Log(4, "MSG_RESOURCE_RES_ERROR"));
    EXPECT_NE(reports.log().find("Error in resource 'FormatString' for widget 'db': expected one "
                                 "text with one number conversion (%f, %e, %g), got \"%s\""),
              std::string::npos);
    EXPECT_EQ(db->getFormat(), "%.2f");
    EXPECT_EQ(db->getString(), "%s dB");
    EXPECT_DOUBLE_EQ(db->getDefaultValue(), -6.0);
    EXPECT_EQ(db->getIndicatorState(), UiValueEditor::IndicatorOff);
}

TEST(SimpleCalculator, EvaluatesArithmeticWithXAsTheValue) {
    struct Row {
        char const* text;
        bool ok;
        double result;
        char const* error;
    } const rows[] = {
        {"1 + 2 * 3", true, 7.0, ""},
        {"x / 4", true, 2.5, ""},
        {"1 +", false, 0.0, "Unexpected end of expression at position 4"},
        {"gain * 2", false, 0.0, "Unknown name \"gain\"; x is the value"},
        {"1 / 0", false, 0.0, "The result is not a finite number"},
    };
    for (Row const& r : rows) {
        SCOPED_TRACE(r.text);
        double result = 0.0;
        std::string error;
        EXPECT_EQ(UiSimpleCalculator::evaluate(r.text, 10.0, result, error), r.ok);
        EXPECT_EQ(error, r.error);
        EXPECT_DOUBLE_EQ(r.ok ? result : 0.0, r.result);
    }
}

} // namespace
} // namespace Zr
