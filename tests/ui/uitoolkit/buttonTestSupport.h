// Helpers for the button and label tests: pointer presses and moves as the window would deliver
// them (the pointer focus set first), key presses, and a fixture that leaves focus, grabs and
// arming as it found them.
#pragma once

#include "uiTestSupport.h"

#include "uiFocusKeyboard.h"
#include "uiFocusPointer.h"
#include "uiGrab.h"

#include "evKeyCode.h"

#include <gtest/gtest.h>

namespace Zr::UiTest {

// Moves the pointer onto `widget` (null: off every widget) during a press, as a window does
// while `target` holds the grab, and sends the move to `target`.
inline void pointerTo(UiWidget* widget, UiWidget& target) {
    UiFocusPointer::getInstance().updatePointer(widget, true);
    EvPointerMoveEvent move;
    target.processEvent(move);
}

// The pointer onto `w`, then the press, as a window delivers it.
inline void pressOn(UiWidget& w, unsigned button = 1) {
    UiFocusPointer::getInstance().updatePointer(&w, true);
    UiFocusPointer::getInstance().updateFocus(&w);
    auto down = makeDown(button);
    w.processEvent(down);
}

inline void releaseOn(UiWidget& w, unsigned button = 1) {
    auto up = makeUp(button);
    w.processEvent(up);
}

inline void clickOn(UiWidget& w) {
    pressOn(w);
    releaseOn(w);
}

class ButtonFixture : public ::testing::Test {
protected:
    void SetUp() override {
        UiArmStack::clear();
        root = TestRoot::make();
    }
    void TearDown() override {
        UiFocusPointer::getInstance().updateFocus(nullptr);
        UiFocusPointer::getInstance().updatePointer(nullptr, false);
        UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
        UiGrab::pointer().clear();
        UiArmStack::clear();
        root->removeChildren();
        root = nullptr;
    }
    bool holdsGrab(UiWidget const& w) const {
        return UiGrab::pointer().getCurrent() == w.getEventHandler();
    }

    RCShdPtr<TestRoot> root;
};

} // namespace Zr::UiTest
