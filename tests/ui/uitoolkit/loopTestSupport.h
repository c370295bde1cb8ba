// Helpers for the tests of the event loop and windows: a fixture that leaves the application and
// the queue clean, one that adds a shown top level, and event builders.
#pragma once

#include "uiApplication.h"
#include "uiArmStack.h"
#include "uiFocusKeyboard.h"
#include "uiFocusPointer.h"
#include "uiGrab.h"
#include "uiTopLevel.h"
#include "uiWidget.h"

#include "wsEventQ.h"
#include "wsEvents.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Zr::LoopTest {

inline OPtr<EvPointerButtonDownEvent> makeDown(WsWindowId id, GePoint2<int> at, unsigned button,
                                               unsigned heldButtons) {
    auto e = std::make_unique<EvPointerButtonDownEvent>();
    e->setWindowId(id);
    e->setWCoord(at);
    e->setTriggerButton(button);
    e->setPointerState(EvPointerState(heldButtons));
    return e;
}

inline OPtr<EvPointerButtonUpEvent> makeUp(WsWindowId id, GePoint2<int> at, unsigned button,
                                           unsigned heldButtons) {
    auto e = std::make_unique<EvPointerButtonUpEvent>();
    e->setWindowId(id);
    e->setWCoord(at);
    e->setTriggerButton(button);
    e->setPointerState(EvPointerState(heldButtons));
    return e;
}

inline OPtr<EvPointerMoveEvent> makeMove(WsWindowId id, GePoint2<int> at, float pressure = 1.0f,
                                         unsigned heldButtons = 0) {
    auto e = std::make_unique<EvPointerMoveEvent>();
    e->setWindowId(id);
    e->setWCoord(at);
    e->setPenPressure(pressure);
    e->setPointerState(EvPointerState(heldButtons));
    return e;
}

// Starts each test with an empty queue and leaves no window, focus or grab behind.
class LoopFixture : public ::testing::Test {
protected:
    void SetUp() override {
        WsEventQ::getInstance().clear();
        UiApplication::getInstance().setMoveCompression(true);
        UiApplication::getInstance().setAllowDoubleDownEvent(false);
    }
    void TearDown() override {
        UiApplication& app = UiApplication::getInstance();
        UiGrab::pointer().clear();
        UiGrab::keyboard().clear();
        UiFocusPointer::getInstance().updateFocus(nullptr);
        UiFocusPointer::getInstance().updatePointer(nullptr, false);
        UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
        app.clearCurrentWindow();
        app.setMoveCompression(true);
        app.setAllowDoubleDownEvent(false);
        WsEventQ::getInstance().clear();
        UiArmStack::clear();
    }
    // Dispatches `e` at once, as the loop would.
    static void send(OPtr<EvEvent> e) { UiApplication::getInstance().processEvent(*e); }
    static void post(OPtr<EvEvent> e) { UiApplication::getInstance().postEvent(std::move(e)); }
    // Runs the loop over what is posted, then returns.
    static void run() {
        UiApplication& app = UiApplication::getInstance();
        app.exitLoop();
        app.messageLoop();
    }
};

inline OPtr<EvKeyPressEvent> makeKey(WsWindowId id, int code) {
    auto e = std::make_unique<EvKeyPressEvent>();
    e->setWindowId(id);
    e->setTriggerKey(code);
    return e;
}

// A shown top level `top` (window id `id`) over a clean loop; its children go with the test.
class WindowFixture : public LoopFixture {
protected:
    void SetUp() override {
        LoopFixture::SetUp();
        top = UiTopLevel::create("test");
        top->show();
        id = top->getOSWindow()->getId();
    }
    void TearDown() override {
        top->getRootContainer()->removeChildren();
        top = nullptr;
        LoopFixture::TearDown();
    }
    UiContainer* root() const { return top->getRootContainer().get(); }

    RCShdPtr<UiTopLevel> top;
    WsWindowId id{};
};

} // namespace Zr::LoopTest
