// XInputWindowFixture: a top level on the X display, found on the screen, driven with real
// pointer and key input (XTest) through SDL and the toolkit's loop, with the loop run by hand.
// The tests of the screen binary that press, drag and type derive from it. Skipped without a
// display or without XTest.
#pragma once

#include "xinputDriver.h"

#include "uiApplication.h"
#include "uiContainer.h"
#include "uiFocusKeyboard.h"
#include "uiGrab.h"
#include "uiTopLevel.h"
#include "uiTransporter.h"

#include "wsScreenshot.h"
#include "wsSdl.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace Zr::XInputTest {

class XInputWindowFixture : public ::testing::Test {
protected:
    // The window's place and size on the screen (y down), and its title.
    virtual GeRectangle<int> windowRect() const { return {100, 420, 100, 320}; }
    virtual char const* windowTitle() const { return "xinput test"; }

    void SetUp() override {
        if (!WsSdl::isActive())
            GTEST_SKIP() << "No display: " << WsSdl::getLastError();
        if (!_x.isUsable())
            GTEST_SKIP() << "No XTest: " << _x.getProblem();
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle(windowRect());
        style.setMainWindow(false);
        _top = UiTopLevel::create(windowTitle(), nullptr, style);
        _top->show();
        pumpFor(200);
        locateWindow();
    }
    void TearDown() override {
        if (!_top)
            return;
        if (RCShdPtr<UiTransporter> t = UiApplication::getInstance().getCurrentTransporter())
            t->cancel();
        UiGrab::pointer().clear();
        UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
        UiApplication::getInstance().clearCurrentWindow();
        _top->getRootContainer()->removeChildren();
        _top = nullptr;
        pumpFor(50);
    }

    // Where window point (0, 0) lies on the screen: the pointer is warped to a known window
    // point and the server asked where it went. The window under it gets the keyboard.
    void locateWindow() {
        _top->getOSWindow()->warpPointer(WarpX, WarpY);
        _x.sync();
        pumpFor(50);
        int rx = 0, ry = 0;
        unsigned long window = 0;
        ASSERT_TRUE(_x.queryPointer(rx, ry, window));
        _originX = rx - WarpX;
        _originTop = ry + WarpY; // screen y of window y 0, which is the bottom row
        if (window)
            _x.focus(window);
        pumpFor(50);
    }

    // Window coordinates (y up) to the screen's (y down), then the server's answer and a
    // redraw.
    void moveTo(int x, int y) {
        _x.moveTo(_originX + x, _originTop - y);
        _x.sync();
        pumpFor(40);
    }
    void button(bool down) {
        _x.button(1, down);
        _x.sync();
        pumpFor(40);
    }
    void key(char const* name) {
        _x.key(name, true);
        _x.key(name, false);
        _x.sync();
    }

    // The loop by hand: dispatch what arrives and redraw, for `ms`.
    void pumpFor(int ms) {
        pumpUntil([] { return false; }, ms);
    }
    // The same until `done` holds; returns whether it did before `ms` ran out.
    bool pumpUntil(std::function<bool()> const& done, int ms) {
        UiApplication& app = UiApplication::getInstance();
        DtTimeIndex const until = inMs(ms);
        do {
            while (OPtr<EvEvent> e = app.getNextEvent(inMs(5)))
                app.processEvent(*e);
            std::vector<UiWindow*> windows;
            for (auto const& [os, ui] : app.getWindowTable())
                windows.push_back(ui);
            for (UiWindow* ui : windows)
                ui->redraw();
            if (done())
                return true;
        } while (DtRefTimeFactory::now() < until);
        return done();
    }

    // The fixture window's pixel at window point (x, y), y up, as RGBA.
    std::uint32_t pixel(int x, int y) {
        GeRectangle<int> const g = _top->getOSWindow()->getGeometry();
        return WsScreenshot::pixelAt(_top->readPixels(), g.width(), g.height(), x, y);
    }

    static DtTimeIndex inMs(int ms) { return DtRefTimeFactory::now() + std::int64_t(ms) * 1000; }

    static constexpr int WarpX = 5, WarpY = 5;
    XInputDriver _x;
    RCShdPtr<UiTopLevel> _top;
    int _originX = 0;
    int _originTop = 0;
};

} // namespace Zr::XInputTest
