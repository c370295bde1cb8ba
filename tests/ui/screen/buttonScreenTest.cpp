// Push buttons and toggle buttons on a real display (the virtual one under scripts/test.sh),
// compared with a reference image: a button out and pushed in, a toggle off and on. Skipped
// when no display opened.
#include "uiApplication.h"
#include "uiContainer.h"
#include "uiPushButton.h"
#include "uiToggleButton.h"
#include "uiTopLevel.h"

#include "screenReference.h"

#include "wsFontRegistry.h"
#include "wsScreenshot.h"
#include "wsSdl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

using namespace Zr;

namespace {

DtTimeIndex inMs(int ms) {
    return DtRefTimeFactory::now() + std::int64_t(ms) * 1000;
}

class ButtonScreen : public ::testing::Test {
protected:
    void SetUp() override {
        if (!WsSdl::isActive())
            GTEST_SKIP() << "No display: " << WsSdl::getLastError();
    }
    void TearDown() override {
        UiApplication::getInstance().clearCurrentWindow();
        if (_window)
            _window->getRootContainer()->removeChildren();
        _window = nullptr;
        pump(50);
    }

    UiTopLevel& open(int width, int height) {
        WsWindowStyle style =
            WsWindowStyleUtils::getNormalWindowStyle({100, 100 + width, 100, 100 + height});
        _window = UiTopLevel::create("button screen test", nullptr, style);
        _window->getRootContainer()->setColor(UiWidget::BackgroundColor,
                                              CoRgbColor(64 / 255.f, 64 / 255.f, 64 / 255.f));
        _window->show();
        pump(200);
        return *_window;
    }

    // Dispatches what arrives for `ms`, redrawing the windows after every batch.
    static void pump(int ms) {
        UiApplication& app = UiApplication::getInstance();
        DtTimeIndex const until = inMs(ms);
        do {
            while (OPtr<EvEvent> e = app.getNextEvent(inMs(10)))
                app.processEvent(*e);
            std::vector<UiWindow*> windows;
            for (auto const& [os, ui] : app.getWindowTable())
                windows.push_back(ui);
            for (UiWindow* ui : windows)
                ui->redraw();
        } while (DtRefTimeFactory::now() < until);
    }

    RCShdPtr<UiTopLevel> _window;
};

TEST_F(ButtonScreen, PushButtonsAndTogglesLookAsTheReference) {
    UiTopLevel& w = open(240, 100);
    UiContainer* root = w.getRootContainer().get();
    auto out = UiPushButton::create(root, "out");
    out->setRect({10, 110, 55, 85});
    out->getLabel().setFont(WsFontRegistry::Bold12Font);
    out->getLabel().setString("OK");
    auto pushed = UiPushButton::create(root, "pushed");
    pushed->setRect({130, 230, 55, 85});
    pushed->getLabel().setFont(WsFontRegistry::Bold12Font);
    pushed->getLabel().setString("Cancel");
    pushed->setActive(true);
    auto off = UiToggleButton::create(root, "off");
    off->setRect({10, 110, 15, 45});
    off->setFont(WsFontRegistry::Bold12Font);
    off->setLabels("Loop", "Looping");
    auto on = UiToggleButton::create(root, "on");
    on->setRect({130, 230, 15, 45});
    on->setFont(WsFontRegistry::Bold12Font);
    on->setLabels("Loop", "Looping");
    on->setState(true, false);
    pump(100);
    expectMatchesReference(w, w.readPixels(), "buttons");
}

} // namespace
