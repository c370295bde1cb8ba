// Helpers for the tests of the event loop and windows: a push-button-like widget, a fixture
// that leaves the application and the queue clean, and event builders.
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

// Behaves as a push button does: the press takes the pointer grab, the release gives it back
// and activates if the pointer is still on the widget.
class ClickWidget : public UiWidget {
public:
    static RCShdPtr<ClickWidget> make(UiContainer* parent, LiString const& name,
                                      GeRectangle<int> const& rect) {
        RCShdPtr<ClickWidget> w(new ClickWidget(parent, name));
        w->resInit(nullptr);
        w->postInit();
        w->setRect(rect, false);
        return w;
    }

protected:
    ClickWidget(UiContainer* parent, LiString const& name)
        : UiWidget(parent, name),
          _onArm([this](EvEvent&) { UiGrab::pointer().grab(getEventHandler()); }),
          _onDisarm([this](EvEvent& e) {
              UiGrab::pointer().release(getEventHandler());
              auto& up = static_cast<EvPointerButtonUpEvent&>(e);
              if (isInside(up.getCoord()))
                  activate(e);
          }) {
        addArmCb(&_onArm);
        addDisarmCb(&_onDisarm);
    }

private:
    CbFunction<EvEvent> _onArm;
    CbFunction<EvEvent> _onDisarm;
};

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
};

} // namespace Zr::LoopTest
