// The standard frames as the registry hands them out: every frame's name, canvas and offsets,
// the colours each keeps from registration time, and decorating real frames.
#include "uiColorRegistry.h"
#include "uiFrame.h"
#include "uiFrameBevel.h"
#include "uiFrameLine.h"
#include "uiResourceEx.h"

#include <gtest/gtest.h>

using namespace Zr;

namespace {

// One row per frame: its name, the width and height it must exceed (-1: none), the insets
// (left, right, bottom, top) and its yOffset.
struct FrameRow {
    char const* name;
    int minWidth, minHeight;
    int left, right, bottom, top;
    int yOffset;
};

FrameRow const frameTable[] = {
    {"None", -1, -1, 0, 0, 0, 0, 0},
    {"In", 2, 3, 1, 1, 2, 1, 0},
    {"PushIn", 2, 4, 1, 1, 2, 2, 0},
    {"PushOut", 2, 4, 1, 1, 2, 2, 0},
    {"Selected", 2, 2, 1, 1, 1, 1, 0},
    {"ToggleIn", 9, 4, 1, 8, 2, 2, 1},
    {"ToggleOut", 9, 4, 1, 8, 2, 2, 1},
    {"RadioIn", 9, 4, 1, 8, 2, 2, 1},
    {"RadioOut", 9, 4, 1, 8, 2, 2, 1},
    {"ScrollHor", 2, 2, 1, 1, 1, 1, 0},
    {"ScrollHorI", 2, 1, 1, 1, 1, 0, 0},
    {"ScrollVer", 2, 2, 1, 1, 1, 1, 0},
    {"ScrollVerI", 1, 2, 0, 1, 1, 1, 0},
    {"Line", 2, 2, 1, 1, 1, 1, 0},
    {"LineToggleIn", 9, 2, 1, 8, 1, 1, 0},
    {"LineToggleOut", 9, 2, 1, 8, 1, 1, 0},
    {"LineTop", -1, 1, 0, 0, 0, 1, 0},
    {"LineBottom", -1, 1, 0, 0, 1, 0, 0},
    {"LineLeftBottomRight", 2, 1, 1, 1, 1, 0, 0},
    {"LineLeftTopRight", 2, 1, 1, 1, 0, 1, 0},
    {"LineLBRTOggleIn", -1, -1, 0, 7, 0, 0, 1},
    {"LineLBRTOggleOut", -1, -1, 0, 7, 0, 0, 1},
    {"ActiveTab", 2, 1, 1, 1, 0, 2, 0},
    {"InactiveTab", 2, 1, 1, 1, 0, 2, 0},
    {"LineTopCurve", 2, 3, 1, 1, 1, 2, 0},
    {"LineTopCurveI", 2, 2, 1, 1, 1, 1, 0},
    {"LineLeftRight", -1, -1, 1, 1, 0, 0, 0},
    {"Curve", 2, 2, 1, 1, 1, 1, 0},
    {"CurveI", -1, -1, 0, 0, 0, 0, 0},
    {"DoubleTop", 2, 2, 0, 0, 0, 2, 0},
    {"DoubleBottom", 2, 2, 0, 0, 2, 0, 0},
};

class FrameCanvas : public ::testing::Test {
protected:
    void SetUp() override { UiFrameRegistry::registerDefaultFrames(); }
    static RCShdPtr<UiFrame> frame(LiString const& name) {
        return UiFrameRegistry::getInstance().create(name);
    }
};

} // namespace

TEST_F(FrameCanvas, EveryFrameInsetsAboveItsMinimumAndNotAtIt) {
    for (FrameRow const& row : frameTable) {
        SCOPED_TRACE(row.name);
        ASSERT_TRUE(UiFrameRegistry::getInstance().isRegisteredType(row.name));
        RCShdPtr<UiFrame> f = frame(row.name);
        EXPECT_EQ(f->getType(), LiString(row.name));
        EXPECT_EQ(f->getXOffset(), 0);
        EXPECT_EQ(f->getYOffset(), row.yOffset);
        EXPECT_TRUE(f->decorate(frame("Line")).isNull());

        // Just above both minimums, away from the origin.
        int const w = std::max(row.minWidth, 0) + 1 + 20;
        int const h = std::max(row.minHeight, 0) + 1 + 10;
        GeRectangle<int> const above{5, 5 + w, 7, 7 + h};
        EXPECT_EQ(f->getCanvas(above),
                  (GeRectangle<int>{above.x1 + row.left, above.x2 - row.right,
                                    above.y1 + row.bottom, above.y2 - row.top}));
        GeRectangle<int> const barelyAbove{5, 5 + std::max(row.minWidth, 0) + 1, 7,
                                           7 + std::max(row.minHeight, 0) + 1};
        EXPECT_EQ(f->getCanvas(barelyAbove).width(),
                  std::max(barelyAbove.width() - row.left - row.right, 0));

        // At a minimum in either direction the content covers the frame.
        if (row.minWidth >= 0) {
            GeRectangle<int> const narrow{5, 5 + row.minWidth, 7, 7 + h};
            EXPECT_EQ(f->getCanvas(narrow), narrow);
        }
        if (row.minHeight >= 0) {
            GeRectangle<int> const flat{5, 5 + w, 7, 7 + row.minHeight};
            EXPECT_EQ(f->getCanvas(flat), flat);
        }
        // Never a negative canvas, even from an empty rectangle.
        for (GeRectangle<int> const& tiny :
             {GeRectangle<int>{3, 3, 4, 4}, GeRectangle<int>{3, 4, 4, 5}}) {
            GeRectangle<int> const c = f->getCanvas(tiny);
            EXPECT_GE(c.width(), 0);
            EXPECT_GE(c.height(), 0);
        }
    }
}

TEST_F(FrameCanvas, ToggleInAtNineAndTenPixels) {
    RCShdPtr<UiFrame> toggle = frame("ToggleIn");
    EXPECT_EQ(toggle->getCanvas({10, 19, 0, 20}), (GeRectangle<int>{10, 19, 0, 20}));
    EXPECT_EQ(toggle->getCanvas({10, 20, 0, 20}), (GeRectangle<int>{11, 12, 2, 18}));
    // The strip-only frame takes its strip however narrow the rectangle.
    EXPECT_EQ(frame("LineLBRTOggleIn")->getCanvas({10, 20, 0, 5}),
              (GeRectangle<int>{10, 13, 0, 5}));
    EXPECT_EQ(frame("LineLBRTOggleIn")->getCanvas({10, 14, 0, 5}),
              (GeRectangle<int>{10, 10, 0, 5}));
}

TEST_F(FrameCanvas, NamesAreCaseSensitive) {
    EXPECT_NO_THROW(frame("None"));
    try {
        frame("none");
        FAIL() << "no exception";
    } catch (UiResourceEx::UiInvalidFrameEx const& e) {
        EXPECT_EQ(e.getReason(), "Error, invalid frame name none");
    }
    EXPECT_THROW(frame("LineLBRToggleIn"), UiResourceEx::UiInvalidFrameEx);
}

TEST_F(FrameCanvas, BorderDecoratorWrapsAStandardFrame) {
    auto border = makeShared<UiFrameBorderDecorator>();
    RCShdPtr<UiFrame> toggle = frame("ToggleOut");
    EXPECT_EQ(border->decorate(toggle), RCShdPtr<UiFrame>(border));
    EXPECT_EQ(border->getInner(), toggle);
    EXPECT_EQ(border->getYOffset(), 1);
    // Decorating again replaces the wrapped frame.
    border->decorate(frame("Line"));
    EXPECT_EQ(border->getInner(), frame("Line"));
    EXPECT_EQ(border->getYOffset(), 0);
    EXPECT_TRUE(frame("PushOut")->decorate(border).isNull());
}

TEST(FrameColors, FramesKeepTheColoursOfTheirRegistration) {
    UiColorRegistry& colors = UiColorRegistry::getInstance();
    CoRgbColor const on = colors.getColor("ToggleActive");
    CoRgbColor const radio = colors.getColor("RadioInactive");
    UiFrameRegistry::registerDefaultFrames();
    RCShdPtr<UiFrame> before = UiFrameRegistry::getInstance().create("ToggleIn");

    colors.registerColor("ToggleActive", 0, 255, 0);
    colors.registerColor("RadioInactive", 0, 0, 255);
    auto const* toggle = dynamic_cast<UiFrameStripBevel*>(before.get());
    ASSERT_NE(toggle, nullptr);
    EXPECT_EQ(toggle->getStripColor(), on);
    EXPECT_EQ(toggle->getStrip(), 7);

    // Registering again reads the registry anew, into new instances.
    UiFrameRegistry::registerDefaultFrames();
    UiFrameRegistry& frames = UiFrameRegistry::getInstance();
    EXPECT_NE(frames.create("ToggleIn"), before);
    EXPECT_EQ(dynamic_cast<UiFrameStripBevel*>(frames.create("ToggleIn").get())->getStripColor(),
              CoRgbColor(0.f, 1.f, 0.f));
    EXPECT_EQ(dynamic_cast<UiFrameStripBevel*>(frames.create("RadioOut").get())->getStripColor(),
              CoRgbColor(0.f, 0.f, 1.f));
    EXPECT_EQ(
        dynamic_cast<UiFrameNoneToggle*>(frames.create("LineLBRTOggleIn").get())->getStripColor(),
        CoRgbColor(0.f, 1.f, 0.f));
    EXPECT_EQ(
        dynamic_cast<UiFrameLineToggle*>(frames.create("LineToggleIn").get())->getStripColor(),
        CoRgbColor(0.f, 1.f, 0.f));

    colors.registerColor("ToggleActive", static_cast<int>(on.r * 255.f + 0.5f),
                         static_cast<int>(on.g * 255.f + 0.5f),
                         static_cast<int>(on.b * 255.f + 0.5f));
    colors.registerColor("RadioInactive", static_cast<int>(radio.r * 255.f + 0.5f),
                         static_cast<int>(radio.g * 255.f + 0.5f),
                         static_cast<int>(radio.b * 255.f + 0.5f));
    UiFrameRegistry::registerDefaultFrames();
    EXPECT_EQ(dynamic_cast<UiFrameStripBevel*>(frames.create("ToggleIn").get())->getStripColor(),
              on);
}
