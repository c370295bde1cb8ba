// Icon widgets as drawn: a labelled icon scales its image up only when the image is smaller
// than its canvas, and the push-button icon sits one pixel below the pushed toggle's.
#include "buttonTestSupport.h"

#include "uiFrame.h"
#include "uiLabeledIcon.h"
#include "uiPushButtonIcon.h"
#include "uiPushedToggleIcon.h"

#include "smGlRecorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace Zr {
namespace {

class IconDrawing : public UiTest::ButtonFixture {
protected:
    void SetUp() override {
        UiFrameRegistry::registerDefaultFrames();
        ButtonFixture::SetUp();
    }
    // The calls of one expose of `w` with frames that draw nothing.
    std::vector<std::string> drawCalls(UiWidget& w, GeRectangle<int> const& rect) {
        for (char const* slot : {"Default", "On", "Off", "Pushed"})
            w.setFrame(UiFrameRegistry::getInstance().create("None"), slot);
        w.setRect(rect, false);
        w.markForUpdate();
        gl.clearLog();
        w.expose({0, 400, 0, 400}, {0, 0});
        return gl.getLog();
    }
    static std::string firstCall(std::vector<std::string> const& log, std::string const& name) {
        auto it = std::find_if(log.begin(), log.end(),
                               [&](std::string const& call) { return call.rfind(name, 0) == 0; });
        return it == log.end() ? std::string() : *it;
    }

    SmGlRecorder gl;
    SmGlBackendGuard guard{gl};
};

TEST_F(IconDrawing, ZoomToFitScalesOnlyAnImageSmallerThanItsCanvas) {
    auto logo = UiLabeledIcon::create(root.get(), "logo");
    logo->readImage("anchor.tif");
    RCShdPtr<WsManagedImage> image = logo->getIcon().getImage();
    ASSERT_TRUE(image);
    int const w = image->getWidth(), h = image->getHeight();
    logo->setZoomToFit(true);
    auto log = drawCalls(*logo, {0, 2 * w, 0, h});
    EXPECT_NE(std::find(log.begin(), log.end(), "pixelZoom(2, 2)"), log.end());
    log = drawCalls(*logo, {0, w, 0, h});
    EXPECT_EQ(std::find(log.begin(), log.end(), "pixelZoom(2, 2)"), log.end());
    EXPECT_NE(firstCall(log, "drawPixels"), "");
    // Without the zoom the small image is drawn as it is.
    logo->setZoomToFit(false);
    log = drawCalls(*logo, {0, 2 * w, 0, h});
    EXPECT_EQ(std::find(log.begin(), log.end(), "pixelZoom(2, 2)"), log.end());
}

TEST_F(IconDrawing, PushButtonIconSitsOnePixelBelowThePushedToggleIcon) {
    auto button = UiPushButtonIcon::create(root.get(), "b");
    button->readImage("anchor.tif");
    auto toggle = UiPushedToggleIcon::create(root.get(), "t");
    toggle->readImage("anchor.tif");
    std::string const buttonAt = firstCall(drawCalls(*button, {0, 60, 0, 60}), "rasterPos");
    std::string const toggleAt = firstCall(drawCalls(*toggle, {0, 60, 0, 60}), "rasterPos");
    auto at = [](UiWidget const& w, UiIcon const& icon, int dy) {
        GeRectangle<int> const canvas = w.getCanvas();
        return "rasterPos2f(" + std::to_string(canvas.x1 + icon.getX()) + ", " +
               std::to_string(canvas.y1 + icon.getY() + dy) + ")";
    };
    EXPECT_EQ(toggleAt, at(*toggle, toggle->getIcon(), 0));
    EXPECT_EQ(buttonAt, at(*button, button->getIcon(), -1));
}

} // namespace
} // namespace Zr
