// A value editor under real pointer and key input (XTest) through SDL and the toolkit's loop:
// a sideways drag changes the number and its position bar on screen, and a click opens the text
// field, where typed digits and Return commit, and a Shift-click opens the simple calculator.
// Skipped without a display or XTest.
#include "xinputWindowFixture.h"

#include "uiSimpleCalculator.h"
#include "uiValueEditor.h"

#include <gtest/gtest.h>

using namespace Zr;

namespace {

class ValueEditorScreen : public XInputTest::XInputWindowFixture {
protected:
    GeRectangle<int> windowRect() const override { return {100, 420, 100, 220}; }
    char const* windowTitle() const override { return "value editor test"; }
};

TEST_F(ValueEditorScreen, DragAndTypeChangeTheNumberOnScreen) {
    UiContainer* root = _top->getRootContainer().get();
    auto editor = UiValueEditor::create(root, "level");
    editor->setRect({20, 160, 60, 81});
    editor->setRange(0.0, 100.0, false);
    editor->setIncrement(1.0);
    editor->setIndicatorState(UiValueEditor::IndicatorOn);
    pumpFor(100);
    GeRectangle<int> const canvas = editor->getCanvas();
    std::uint32_t const background = pixel(canvas.x2 - 2, canvas.y1 + 1);

    // Four pixels of slop, then each pixel one step.
    moveTo(40, 70);
    button(true);
    moveTo(44, 70);
    moveTo(80, 71);
    button(false);
    EXPECT_DOUBLE_EQ(editor->getValue(), 36.0);
    EXPECT_EQ(editor->getLabel().getString().str(), "36");
    EXPECT_FALSE(editor->isEditFieldMode());
    // The bar along the lower edge ends at 36 % of the canvas, darker than the field.
    int const end = editor->getScrollX();
    EXPECT_EQ(end, canvas.x1 + (canvas.width() - 1) * 36 / 100);
    EXPECT_NE(pixel(end - 2, canvas.y1 + 1), background);
    EXPECT_EQ(pixel(end + 3, canvas.y1 + 1), background);

    // A click without motion opens the field over the editor; Return commits what was typed.
    button(true);
    button(false);
    ASSERT_TRUE(editor->isEditFieldMode());
    for (char const* k : {"1", "2", "period", "5", "Return"})
        key(k);
    EXPECT_TRUE(pumpUntil([&] { return !editor->isEditFieldMode(); }, 1000));
    EXPECT_DOUBLE_EQ(editor->getValue(), 12.5);

    // Shift-click opens the toolkit's calculator, which takes an expression of the value.
    UiApplication::getInstance().setCalculator(
        makeShared<UiSimpleCalculator>(_top->getRootContainer()));
    _x.key("Shift_L", true);
    button(true);
    button(false);
    _x.key("Shift_L", false);
    for (char const* k : {"x", "minus", "2"})
        key(k);
    key("Return");
    pumpFor(100);
    EXPECT_DOUBLE_EQ(editor->getValue(), 10.5);
    UiApplication::getInstance().setCalculator(nullptr);
}

} // namespace
