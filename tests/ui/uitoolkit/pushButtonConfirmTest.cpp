// Confirm buttons: the answers of Return, Escape and pointer moves, with and without a
// cancel, and what the prompt's wait does with other events.
#include "loopTestSupport.h"

#include "uiApplication.h"
#include "uiConfirmButton.h"
#include "uiTopLevel.h"

#include <gtest/gtest.h>

namespace Zr {
namespace {

using LoopTest::makeMove;

class ConfirmButtonTest : public LoopTest::LoopFixture {
protected:
    void SetUp() override {
        LoopFixture::SetUp();
        top = UiTopLevel::create("confirm");
        top->show();
        id = top->getOSWindow()->getId();
        prompt = UiConfirmButton::create(top->getRootContainer().get(), "prompt");
        prompt->setRect({20, 120, 20, 50});
        prompt->getLabel().setString("Delete?");
        prompt->hide();
    }
    void TearDown() override {
        prompt = nullptr;
        top->getRootContainer()->removeChildren();
        top = nullptr;
        LoopFixture::TearDown();
    }
    void key(int code) {
        auto e = std::make_unique<EvKeyPressEvent>();
        e->setWindowId(id);
        e->setTriggerKey(code);
        UiApplication::getInstance().postEvent(std::move(e));
    }
    void move() { UiApplication::getInstance().postEvent(makeMove(id, {300, 300})); }

    RCShdPtr<UiTopLevel> top;
    RCShdPtr<UiConfirmButton> prompt;
    WsWindowId id{};
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
