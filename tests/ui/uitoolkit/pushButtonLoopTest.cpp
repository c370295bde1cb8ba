// Push buttons and toggles through a top level and the event loop: clicks, a release off the
// widget, and a drag out and back in, with the pointer focus as the window keeps it.
#include "loopTestSupport.h"

#include "uiApplication.h"
#include "uiPushButton.h"
#include "uiToggleButton.h"
#include "uiTopLevel.h"

#include <gtest/gtest.h>

namespace Zr {
namespace {

using LoopTest::makeDown;
using LoopTest::makeMove;
using LoopTest::makeUp;

class PushButtonLoop : public LoopTest::LoopFixture {
protected:
    void SetUp() override {
        LoopFixture::SetUp();
        top = UiTopLevel::create("buttons");
        top->show();
        id = top->getOSWindow()->getId();
    }
    void TearDown() override {
        top->getRootContainer()->removeChildren();
        top = nullptr;
        LoopFixture::TearDown();
    }
    void run() {
        UiApplication& app = UiApplication::getInstance();
        app.exitLoop();
        app.messageLoop();
    }
    void post(OPtr<EvEvent> e) { UiApplication::getInstance().postEvent(std::move(e)); }

    RCShdPtr<UiTopLevel> top;
    WsWindowId id{};
};

TEST_F(PushButtonLoop, OnlyAReleaseOnTheButtonActivatesIt) {
    auto button = UiPushButton::create(top->getRootContainer().get(), "ok");
    button->setRect({20, 90, 20, 50});
    int activations = 0;
    CbFunction<EvEvent> count([&](EvEvent&) { ++activations; });
    button->addActivateCb(&count);

    post(makeMove(id, {30, 30}));
    post(makeDown(id, {30, 30}, 1, 1));
    post(makeUp(id, {35, 32}, 1, 0));
    post(makeDown(id, {30, 30}, 1, 1));
    post(makeMove(id, {300, 300}, 1.0f, 1));
    post(makeUp(id, {300, 300}, 1, 0));
    run();
    EXPECT_EQ(activations, 1);
    EXPECT_FALSE(button->getActive());
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
}

TEST_F(PushButtonLoop, ToggleDraggedOutKeepsItsStateAndBackInFlips) {
    auto toggle = UiToggleButton::create(top->getRootContainer().get(), "t");
    toggle->setRect({20, 90, 20, 50});
    int reports = 0;
    CbFunction<EvEvent> count([&](EvEvent&) { ++reports; });
    toggle->addStateCb(&count);

    post(makeMove(id, {30, 30}));
    post(makeDown(id, {30, 30}, 1, 1));
    post(makeMove(id, {300, 300}, 1.0f, 1));
    post(makeUp(id, {300, 300}, 1, 0));
    run();
    EXPECT_FALSE(toggle->getState());
    EXPECT_EQ(reports, 0);

    post(makeMove(id, {30, 30}));
    post(makeDown(id, {30, 30}, 1, 1));
    post(makeMove(id, {300, 300}, 1.0f, 1));
    post(makeMove(id, {40, 40}, 1.0f, 1));
    post(makeUp(id, {40, 40}, 1, 0));
    run();
    EXPECT_TRUE(toggle->getState());
    EXPECT_EQ(reports, 1);
}

} // namespace
} // namespace Zr
