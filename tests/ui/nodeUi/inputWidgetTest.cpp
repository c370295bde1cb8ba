// Input widgets bound to a node's inputs: what a drag, a typed value, a toggle, a reset or a
// right click leaves on the input and on the undo stack, undo and redo bringing the widget back,
// locked inputs, the underline states and the equal-value rule.
#include "foundation/framework/inputValueTestGraph.h"
#include "ui/uitoolkit/buttonTestSupport.h"

#include "evKeyCode.h"
#include "uiInputDualState.h"
#include "uiInputTextField.h"
#include "uiInputValueEditor.h"
#include "uiToggleButton.h"

#include <cmath>
#include <functional>
#include <limits>

namespace Zr {
namespace {

using test::InputTestGraph;

class InputWidget : public UiTest::ButtonFixture {
public:
    void SetUp() override {
        ButtonFixture::SetUp();
        editor = UiValueEditor::create(root.get(), "editor");
        editor->setRect({14, 84, 14, 35}, false);
        editor->setIncrement(1.0);
    }
    void TearDown() override {
        UiGrab::keyboard().clear();
        editor = nullptr;
        ButtonFixture::TearDown();
    }
    void bind(char const* name, bool undoable = true) {
        UiInputValueEditor::setInput(*editor, g.input(name), g.timePath, undoable);
    }
    void press(int x, unsigned modifiers = 0, unsigned button = 1) {
        UiFocusPointer::getInstance().updatePointer(editor.get(), true);
        auto down = UiTest::makeDown(button, {x, 20});
        down.setKeyboardState(EvKeyboardState(modifiers));
        editor->processEvent(down);
    }
    void release(int x, unsigned modifiers = 0, unsigned button = 1) {
        auto up = UiTest::makeUp(button, {x, 20});
        up.setKeyboardState(EvKeyboardState(modifiers));
        editor->processEvent(up);
    }
    // Presses at 20 and moves right a pixel at a time, `steps` times, then releases.
    void drag(int steps, std::function<void()> const& during = {}) {
        press(20);
        for (int x = 21; x <= 20 + steps; ++x) {
            EvPointerMoveEvent move;
            move.setWCoord({x, 20});
            editor->processEvent(move);
        }
        if (during)
            during();
        release(20 + steps);
    }
    void typeValue(std::string const& text) {
        press(20);
        release(20);
        for (char c : text) {
            EvCharEvent e(static_cast<char32_t>(c));
            UiFocusKeyboard::getInstance().processEvent(e);
        }
        EvKeyPressEvent enter;
        enter.setTriggerKey(EvKeyCode::Return);
        UiFocusKeyboard::getInstance().processEvent(enter);
        UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
    }
    std::string undoLabel() const { return g.stack()->getUndoLabel(); }
    InputDataCommon* data() const {
        if (auto* d = UiInputValueEditor::getData(*editor))
            return d;
        return UiInputValueEditor::getIntData(*editor);
    }

    InputTestGraph g;
    RCShdPtr<UiValueEditor> editor;
};

// Each user edit leaves the input's new value and exactly one entry with its label; the
// observers, off during a drag, are on again after every edit.
TEST_F(InputWidget, EachEditIsOneUndoEntry) {
    struct Row {
        char const* what;
        char const* input;
        bool undoable;
        std::function<void(InputWidget&)> edit;
        double start; // the input's value before the edit, when not its default
        double value;
        char const* label;
        int entries;
    };
    std::vector<Row> const rows = {
        {"drag of 30 moves", "radius", true,
         [](InputWidget& t) { t.drag(30, [&t] { EXPECT_FALSE(t.data()->isObserving()); }); }, -1,
         28.0, "Set Radius", 1},
        {"reset during a drag", "radius", true,
         [](InputWidget& t) { t.drag(30, [&t] { t.editor->resetValue(); }); }, 50, 2.0,
         "Reset Radius", 1},
        {"calculator", "radius", true,
         [](InputWidget& t) { t.editor->getCalculatable()->setValue(40); }, -1, 40.0, "Set Radius",
         1},
        {"typed value", "radius", true, [](InputWidget& t) { t.typeValue("12.5"); }, -1, 12.5,
         "Set Radius", 1},
        {"Control-click reset", "radius", true,
         [](InputWidget& t) {
             t.press(20, EvKeyboardState::Control);
             t.release(20, EvKeyboardState::Control);
         },
         50, 2.0, "Reset Radius", 1},
        {"drag of an int input", "count", true, [](InputWidget& t) { t.drag(8); }, -1, 5.0,
         "Set count", 1},
        {"not undoable", "radius", false, [](InputWidget& t) { t.drag(10); }, -1, 8.0, "", 0},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.what);
        InputWidget::TearDown();
        InputWidget::SetUp();
        g = InputTestGraph();
        if (row.start >= 0)
            g.input(row.input)->setStaticValue(row.start);
        bind(row.input, row.undoable);
        double const before = g.input(row.input)->getStaticValue();
        row.edit(*this);
        EXPECT_EQ(g.input(row.input)->getStaticValue(), row.value);
        EXPECT_EQ(g.stack()->getNbUndo(), row.entries);
        EXPECT_EQ(undoLabel(), row.label);
        EXPECT_TRUE(data()->isObserving());
        if (row.entries == 0)
            continue;
        // Undo and redo: the widget follows the input both ways.
        ASSERT_TRUE(g.stack()->undo());
        EXPECT_EQ(editor->getValue(), before);
        ASSERT_TRUE(g.stack()->redo());
        EXPECT_EQ(editor->getValue(), row.value);
    }
}

// Inputs the user can't set lock the editor: a drag or a plain click changes nothing and logs
// nothing.
TEST_F(InputWidget, LockedInputsRefuseEdits) {
    struct Row {
        char const* what;
        std::function<void(InputWidget&)> prepare;
    };
    std::vector<Row> const rows = {
        {"read-only binding",
         [](InputWidget& t) {
             UiInputValueEditor::setInputRO(*t.editor, t.g.input("radius"), t.g.timePath);
         }},
        {"unknown (null) input",
         [](InputWidget& t) { UiInputValueEditor::setInput(*t.editor, nullptr, t.g.timePath); }},
        {"expression",
         [](InputWidget& t) {
             t.g.input("radius")->setExpression("3");
             t.bind("radius");
         }},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.what);
        InputWidget::TearDown();
        InputWidget::SetUp();
        g = InputTestGraph();
        row.prepare(*this);
        double const before = g.input("radius")->evaluate(0.0);
        EXPECT_TRUE(editor->isLocked());
        drag(20);
        press(20);
        release(20);
        editor->setUiValue(60);
        EXPECT_EQ(g.input("radius")->evaluate(0.0), before);
        EXPECT_EQ(g.stack()->getNbUndo(), 0);
    }
    // The expression, underlined, yields to a Control-click: the input is reset and editable.
    EXPECT_EQ(data()->getUnderline(), InputDataCommon::UnderlineExpression);
    press(20, EvKeyboardState::Control);
    release(20, EvKeyboardState::Control);
    EXPECT_FALSE(editor->isLocked());
    EXPECT_FALSE(g.input("radius")->hasExpression());
    EXPECT_EQ(editor->getValue(), 2.0);
    EXPECT_EQ(undoLabel(), "Reset Radius");
}

// A right click reaches the menu hook only: no value, no entry, no grab left behind.
TEST_F(InputWidget, RightClickChangesNothing) {
    bind("radius");
    auto toggle = UiToggleButton::create(root.get(), "toggle");
    toggle->addClientData(RCShdPtr<RCObject>(
        new InputDualStateData(toggle.get(), g.input("flag"), g.input("flag"), g.timePath, true)));
    press(20, 0, 4);
    release(20, 0, 4);
    UiTest::pressOn(*toggle, 4);
    UiTest::releaseOn(*toggle, 4);
    EXPECT_EQ(g.input("radius")->getStaticValue(), 2.0);
    EXPECT_EQ(g.input("flag")->getStaticValue(), 0.0);
    EXPECT_EQ(g.stack()->getNbUndo(), 0);
    EXPECT_FALSE(holdsGrab(*editor));
    EXPECT_FALSE(holdsGrab(*toggle));
    // A left click toggles, as one entry.
    UiTest::clickOn(*toggle);
    EXPECT_EQ(g.input("flag")->getStaticValue(), 1.0);
    EXPECT_EQ(undoLabel(), "Set flag");
}

// A text field writes its text on Enter as one entry, and follows undo.
TEST_F(InputWidget, TextFieldWritesOnEnter) {
    auto field = UiTextField::create(root.get(), "field");
    field->addClientData(RCShdPtr<RCObject>(
        new InputTextFieldData(field.get(), g.input("mode"), g.input("mode"), g.timePath, true)));
    // Return starts the edit with all selected, the text replaces it, Return commits.
    EvKeyPressEvent start = UiTest::keyPressOf(EvKeyCode::Return);
    field->processEvent(start);
    for (char c : std::string("Cubic")) {
        EvCharEvent e(static_cast<char32_t>(c));
        field->processEvent(e);
    }
    EvKeyPressEvent enter = UiTest::keyPressOf(EvKeyCode::Return);
    field->processEvent(enter);
    EXPECT_EQ(g.input("mode")->getStringValue(), "Cubic");
    EXPECT_EQ(undoLabel(), "Set mode");
    g.stack()->undo();
    EXPECT_EQ(field->getString().str(), "Linear");
}

// A value read back from the input reaches the widget only when it differs beyond the tolerance.
TEST(InputDataTolerance, EqualValuesAreNotWrittenBack) {
    double const inf = std::numeric_limits<double>::infinity();
    struct Row {
        double shown, value;
        bool same;
    } const rows[] = {
        {0.1 + 0.2, 0.3, true}, {1.0, 1.0001, false}, {inf, inf, true},
        {1e308, inf, false},    {-inf, inf, false},   {0.0, 1e-300, false},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(std::to_string(row.shown) + " " + std::to_string(row.value));
        EXPECT_EQ(InputDataCommon::isSameValue(row.shown, row.value), row.same);
    }
}

} // namespace
} // namespace Zr
