// Toolkit windows on a real display (the virtual one under scripts/test.sh): pixels read back
// after redraws, only the marks repainted, resize, expose, text where its metrics put it, an
// image partly off the lower-left corner, and frames, text, icons and buttons compared with
// reference images. Closing windows and a redraw without marks are tested without a display
// (applicationLoopTest, windowTest). Every test is skipped when no display opened.
#include "uiApplication.h"
#include "uiColorRegistry.h"
#include "uiContainer.h"
#include "uiFrame.h"
#include "uiIcon.h"
#include "uiPushButton.h"
#include "uiString.h"
#include "uiToggleButton.h"
#include "uiTopLevel.h"
#include "uiWidget.h"

#include "screenReference.h"

#include "gfxImageUtil.h"
#include "ixTile.h"
#include "smGl.h"
#include "wsDrawable.h"
#include "wsEvents.h"
#include "wsFont.h"
#include "wsFontRegistry.h"
#include "wsScreenshot.h"
#include "wsSdl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

using namespace Zr;

namespace {

DtTimeIndex inMs(int ms) {
    return DtRefTimeFactory::now() + std::int64_t(ms) * 1000;
}

std::uint32_t rgba(int r, int g, int b) {
    return std::uint32_t(r) << 24 | std::uint32_t(g) << 16 | std::uint32_t(b) << 8 | 0xffu;
}

using Pixels = std::vector<std::uint32_t>;
std::uint32_t const grey = rgba(64, 64, 64);

CoRgbColor colour(int r, int g, int b) {
    return CoRgbColor(r / 255.f, g / 255.f, b / 255.f);
}

// Counts the user-draw calls of one widget and runs an optional painting.
class DrawCounter : public CbHandler<EvEvent> {
public:
    explicit DrawCounter(UiWidget* w, std::function<void(GeRectangle<int> const&)> paint = {})
        : _widget(w), _paint(std::move(paint)) {
        _widget->addUserDrawCb(this);
    }
    ~DrawCounter() override { _widget->removeUserDrawCb(this); }
    void call(EvEvent&) override {
        ++count;
        if (_paint)
            _paint(_widget->getRect());
    }
    int count = 0;

private:
    UiWidget* _widget;
    std::function<void(GeRectangle<int> const&)> _paint;
};

class ScreenFixture : public ::testing::Test {
protected:
    void SetUp() override {
        if (!WsSdl::isActive())
            GTEST_SKIP() << "No display: " << WsSdl::getLastError();
    }
    void TearDown() override {
        _counters.clear();
        UiApplication& app = UiApplication::getInstance();
        app.clearCurrentWindow();
        for (auto& w : _windows)
            w->getRootContainer()->removeChildren();
        _windows.clear();
        // Whatever the closed windows left in the queue goes with them.
        pump(50);
    }

    // A mapped top level of `size`, grey root, drawn once and settled.
    UiTopLevel& open(int width = 200, int height = 150, bool main = false) {
        WsWindowStyle style =
            WsWindowStyleUtils::getNormalWindowStyle({100, 100 + width, 100, 100 + height});
        style.setMainWindow(main);
        RCShdPtr<UiTopLevel> w = UiTopLevel::create("screen test", nullptr, style);
        _windows.push_back(w);
        w->getRootContainer()->setColor(UiWidget::BackgroundColor, colour(64, 64, 64));
        w->show();
        pump(200);
        return *w;
    }

    RCShdPtr<UiWidget> box(UiTopLevel& w, GeRectangle<int> rect, CoRgbColor const& c) {
        RCShdPtr<UiWidget> b = UiWidget::create(w.getRootContainer().get(), "box");
        b->setRect(rect);
        b->setColor(UiWidget::BackgroundColor, c);
        return b;
    }

    DrawCounter& count(UiWidget* w, std::function<void(GeRectangle<int> const&)> paint = {}) {
        _counters.push_back(std::make_unique<DrawCounter>(w, std::move(paint)));
        return *_counters.back();
    }

    // What the loop does, by hand: dispatch what arrives for `ms`, redrawing each window
    // after every batch. Returns the number of redraws.
    int pump(int ms) {
        UiApplication& app = UiApplication::getInstance();
        DtTimeIndex const until = inMs(ms);
        int redraws = 0;
        do {
            while (OPtr<EvEvent> e = app.getNextEvent(inMs(10)))
                app.processEvent(*e);
            std::vector<UiWindow*> windows;
            for (auto const& [os, ui] : app.getWindowTable())
                windows.push_back(ui);
            for (UiWindow* ui : windows)
                redraws += ui->redraw() ? 1 : 0;
        } while (DtRefTimeFactory::now() < until);
        return redraws;
    }

    static std::uint32_t pixel(UiWindow& w, std::vector<std::uint8_t> const& px, int x, int y) {
        GeRectangle<int> g = w.getOSWindow()->getGeometry();
        return WsScreenshot::pixelAt(px, g.width(), g.height(), x, y);
    }
    // The pixels at `points` of what the window shows now.
    static Pixels pixels(UiWindow& w, std::vector<GePoint2<int>> const& points) {
        std::vector<std::uint8_t> const px = w.readPixels();
        Pixels out;
        for (GePoint2<int> const& p : points)
            out.push_back(pixel(w, px, p.x, p.y));
        return out;
    }

    std::vector<RCShdPtr<UiTopLevel>> _windows;
    std::vector<std::unique_ptr<DrawCounter>> _counters;
};

using ScreenPixels = ScreenFixture;
using ScreenMarks = ScreenFixture;
using ScreenEvents = ScreenFixture;
using ScreenText = ScreenFixture;

TEST_F(ScreenPixels, RedrawsShowWhatTheWidgetsHoldNow) {
    UiTopLevel& w = open();
    RCShdPtr<UiWidget> b = box(w, {20, 70, 30, 80}, colour(255, 0, 0));
    pump(100);
    EXPECT_EQ(w.readPixels().size(), 200u * 150u * 4u);
    // x2 and y2 are outside.
    EXPECT_EQ(pixels(w, {{20, 30}, {69, 79}, {70, 79}, {19, 30}, {199, 149}}),
              (Pixels{rgba(255, 0, 0), rgba(255, 0, 0), grey, grey, grey}));

    b->setColor(UiWidget::BackgroundColor, colour(0, 0, 255));
    b->markForUpdate();
    EXPECT_GE(pump(100), 1);
    EXPECT_EQ(pixels(w, {{40, 50}}), Pixels{rgba(0, 0, 255)});

    // Moved: the old place shows the root again, the new one the widget.
    b->setRect({120, 170, 30, 80});
    pump(100);
    EXPECT_EQ(pixels(w, {{40, 50}, {140, 50}}), (Pixels{grey, rgba(0, 0, 255)}));
}

TEST_F(ScreenPixels, ScreenshotWritesThePngOfTheWindow) {
    UiTopLevel& w = open(64, 48);
    RCShdPtr<UiWidget> b = box(w, {0, 16, 0, 8}, colour(0, 255, 0));
    pump(100);
    auto const path = std::filesystem::temp_directory_path() / "zr-screen-test.png";
    w.writeScreenshot(OsFilePath(path));
    int width = 0, height = 0;
    std::vector<std::uint8_t> png = WsScreenshot::readPng(OsFilePath(path), width, height);
    std::filesystem::remove(path);
    ASSERT_EQ(width, 64);
    ASSERT_EQ(height, 48);
    EXPECT_EQ(png, w.readPixels());
    EXPECT_EQ(pixels(w, {{0, 0}, {16, 0}, {15, 7}, {15, 8}}),
              (Pixels{rgba(0, 255, 0), grey, rgba(0, 255, 0), grey}));
    EXPECT_THROW(w.writeScreenshot(OsFilePath("/nonexistent-dir/x.png")),
                 WsScreenshot::ExWriteFailed);
}

TEST_F(ScreenPixels, ImagePartlyOffTheLowerLeftCornerKeepsItsPixelsInPlace) {
    UiTopLevel& w = open(100, 80);
    // Each tile pixel tells where it is: red = 10 x, green = 10 y.
    RCShdPtr<IxTile> tile = makeShared<IxTile>(20, 20, 4);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x) {
            std::uint8_t* p = tile->getWritablePixel(x, y);
            p[0] = std::uint8_t(10 * x);
            p[1] = std::uint8_t(10 * y);
            p[2] = 200;
            p[3] = 255;
        }
    RCShdPtr<UiWidget> b = box(w, {0, 50, 0, 50}, colour(0, 0, 0));
    count(b.get(), [&](GeRectangle<int> const&) {
        GfxImageUtil::draw(tile, {20, 20}, {-5, -7}, 1.f, false);
    });
    b->markForUpdate();
    pump(100);
    EXPECT_EQ(pixels(w, {{0, 0}, {14, 12}, {3, 9}, {15, 0}, {0, 13}}),
              (Pixels{rgba(50, 70, 200), rgba(190, 190, 200), rgba(80, 160, 200), rgba(0, 0, 0),
                      rgba(0, 0, 0)}));
}

TEST_F(ScreenMarks, OnlyTheMarkedWidgetIsRepainted) {
    UiTopLevel& w = open();
    RCShdPtr<UiWidget> a = box(w, {10, 60, 10, 60}, colour(255, 0, 0));
    RCShdPtr<UiWidget> b = box(w, {100, 150, 10, 60}, colour(0, 255, 0));
    DrawCounter& da = count(a.get());
    DrawCounter& db = count(b.get());
    pump(150);
    EXPECT_EQ(db.count, 1);

    // The next damage also brings the other buffer up to date: b, drawn into one buffer so
    // far, is painted once more; after that only what is marked.
    a->markForUpdate();
    EXPECT_GE(pump(100), 1);
    EXPECT_EQ(db.count, 2);

    da.count = db.count = 0;
    a->markForUpdate();
    int const swaps = w.getSwapCount();
    EXPECT_GE(pump(100), 1);
    EXPECT_GE(da.count, 1);
    EXPECT_EQ(db.count, 0);
    EXPECT_GE(w.getSwapCount(), swaps + 1);
    EXPECT_EQ(pixels(w, {{30, 30}, {120, 30}}), (Pixels{rgba(255, 0, 0), rgba(0, 255, 0)}));
}

TEST_F(ScreenEvents, ResizeFollowsTheWindowAndFillsTheRoot) {
    UiTopLevel& w = open(120, 90);
    w.setRect({100, 260, 100, 220});
    pump(300);
    EXPECT_EQ(w.getRect().width(), 160);
    EXPECT_EQ(w.getRect().height(), 120);
    EXPECT_EQ(w.getRootContainer()->getRect(), (GeRectangle<int>{0, 160, 0, 120}));
    EXPECT_EQ(w.readPixels().size(), 160u * 120u * 4u);
    EXPECT_EQ(pixels(w, {{159, 119}}), Pixels{grey});
}

TEST_F(ScreenEvents, ExposeRepaintsTheWindow) {
    UiTopLevel& w = open();
    RCShdPtr<UiWidget> a = box(w, {10, 60, 10, 60}, colour(255, 0, 0));
    DrawCounter& da = count(a.get());
    pump(150);
    da.count = 0;
    UiApplication::getInstance().postEvent(std::make_unique<WsExposeEvent>(
        w.getOSWindow()->getId(), GeRectangle<int>{0, 200, 0, 150}));
    EXPECT_GE(pump(100), 1);
    EXPECT_GE(da.count, 1);
}

TEST_F(ScreenText, TextIsDrawnWhereItsMetricsSay) {
    UiTopLevel& w = open(200, 80);
    RCShdPtr<WsFont> font = WsFontRegistry::getInstance().getFont(WsFontRegistry::Normal18Font);
    RCShdPtr<UiWidget> b = box(w, {0, 200, 0, 80}, colour(0, 0, 0));
    float const x = 30.f, y = 20.f;
    std::string const text = "HHH";
    count(b.get(), [&](GeRectangle<int> const&) {
        float const white[3] = {1.f, 1.f, 1.f};
        SmGl::color3fv(white);
        font->drawString(text, x, y);
    });
    b->markForUpdate();
    pump(100);
    std::vector<std::uint8_t> px = w.readPixels();
    // The box of the ink.
    int minX = 1000, maxX = -1, minY = 1000, maxY = -1;
    for (int py = 0; py < 80; ++py)
        for (int pxx = 0; pxx < 200; ++pxx)
            if ((pixel(w, px, pxx, py) >> 24) > 128) {
                minX = std::min(minX, pxx);
                maxX = std::max(maxX, pxx);
                minY = std::min(minY, py);
                maxY = std::max(maxY, py);
            }
    ASSERT_GE(maxX, 0) << "no text drawn";
    float const width = font->getStringWidth(text);
    // "H" stands on the baseline, reaches no higher than the ascent, and starts at the pen.
    EXPECT_NEAR(minY, y, 1);
    EXPECT_LE(maxY, y + font->getAscent());
    EXPECT_GE(maxY, y + font->getAscent() / 2);
    EXPECT_NEAR(minX, x, 3);
    EXPECT_LE(maxX, x + width);
    EXPECT_GE(maxX, x + width - 6);
}

// Glyphs uploaded while a window was the only one stay valid after it closed: every window's
// context shares textures with the window system's own, which outlives them all. The font has a
// size no other test uses, so its glyphs are first uploaded here.
TEST_F(ScreenText, TextStaysRightAfterTheWindowThatFirstDrewItClosed) {
    RCShdPtr<WsFont> font = WsFontRegistry::getInstance().getFontByName("DejaVu Sans:Bold:23");
    auto drawIn = [&](UiTopLevel& w) {
        RCShdPtr<UiWidget> b = box(w, {0, 200, 0, 80}, colour(0, 0, 0));
        count(b.get(), [&](GeRectangle<int> const&) {
            float const white[3] = {1.f, 1.f, 1.f};
            SmGl::color3fv(white);
            font->drawString("Shared", 20.f, 25.f);
        });
        b->markForUpdate();
        pump(100);
        return w.readPixels();
    };
    std::vector<std::uint8_t> const first = drawIn(open(200, 80));
    TearDown(); // every window closes
    std::vector<std::uint8_t> const second = drawIn(open(200, 80));

    ASSERT_EQ(first.size(), second.size());
    int ink = 0, differing = 0;
    for (std::size_t i = 0; i < first.size(); ++i) {
        ink += first[i] > 128 ? 1 : 0;
        differing += std::abs(int(first[i]) - int(second[i])) > 2 ? 1 : 0;
    }
    EXPECT_GT(ink, 100) << "no text drawn";
    EXPECT_EQ(differing, 0) << "the glyphs changed once their first window was gone";
}

} // namespace

namespace {

using ScreenStencil = ScreenFixture;

// In stencil mode 2 every background is a drawn rectangle, and the exit state turns the count
// of draws per pixel into the heat map's colours: 1 draw, then 2 where a widget lies on the root.
TEST_F(ScreenStencil, OverdrawShowsAsTheHeatMapColours) {
    UiTopLevel& w = open();
    if (WsDrawable::getPixelFormat().stencilBits < 4)
        GTEST_SKIP() << "The visual has too few stencil bits";
    RCShdPtr<UiWidget> b = box(w, {20, 70, 30, 80}, colour(255, 0, 0));
    w.setStencilMode(2);
    w.markForUpdate();
    std::vector<std::uint8_t> px = w.readPixels();
    // The maps hold 8-bit values shifted left by 8, which OpenGL scales back with rounding: a
    // channel may come out one below the table's value.
    auto near = [](std::uint32_t got, std::uint32_t want) {
        for (int shift = 0; shift < 32; shift += 8) {
            int g = static_cast<int>((got >> shift) & 0xFF),
                h = static_cast<int>((want >> shift) & 0xFF);
            if (g < h - 1 || g > h)
                return false;
        }
        return true;
    };
    EXPECT_PRED2(near, pixel(w, px, 100, 100), rgba(85, 0, 78));
    EXPECT_PRED2(near, pixel(w, px, 40, 50), rgba(96, 25, 137));
    w.setStencilMode(0);
    w.markForUpdate();
    EXPECT_EQ(pixels(w, {{40, 50}}), Pixels{rgba(255, 0, 0)});
}

} // namespace

// --- reference images -----------------------------------------------------------------------

namespace {

using ScreenReference = ScreenFixture;

// Every bevel, line and tab frame on a mid grey, each on a widget of its own.
TEST_F(ScreenReference, FramesLookAsTheReference) {
    UiTopLevel& w = open(300, 110);
    static char const* const frames[] = {
        "PushOut",     "PushIn",    "In",    "ToggleOut", "ToggleIn",
        "RadioOut",    "RadioIn",   "Line",  "Selected",  "ActiveTab",
        "InactiveTab", "ScrollVer", "Curve", "DoubleTop", "LineLBRTOggleIn"};
    std::vector<RCShdPtr<UiWidget>> widgets;
    int i = 0;
    for (char const* frame : frames) {
        int const x = 6 + (i % 5) * 58, y = 6 + (i / 5) * 35;
        RCShdPtr<UiWidget> b = box(w, {x, x + 52, y, y + 29}, colour(105, 105, 105));
        b->setFrame(UiFrameRegistry::getInstance().create(frame), UiWidget::DefaultFrame);
        widgets.push_back(b);
        ++i;
    }
    pump(100);
    expectMatchesReference(w, w.readPixels(), "frames");
}

// Text placed by UiString's alignment codes, and shipped icons placed by UiIcon, blended.
TEST_F(ScreenReference, AlignedTextAndIconsLookAsTheReference) {
    UiTopLevel& w = open(240, 120);
    RCShdPtr<UiWidget> panel = box(w, {10, 230, 10, 110}, colour(80, 80, 80));
    std::vector<UiString> strings;
    struct Placement {
        char const* text;
        int h, v;
    };
    static Placement const placements[] = {
        {"left top", 0, 3}, {"centre", 1, 1}, {"right bottom", 2, 4}};
    for (Placement const& p : placements) {
        UiString s(p.text, nullptr, 0);
        s.setFont(WsFontRegistry::Normal12Font);
        s.setMargins(4, 4);
        s.setAlignment(p.h, p.v);
        s.setRect({0, 220, 0, 100});
        strings.push_back(s);
    }
    std::vector<UiIcon> icons;
    static char const* const files[] = {"toggleOn.tif", "radioOff.tif", "anchor.tif"};
    int x = 0;
    for (char const* file : files) {
        UiIcon icon;
        icon.loadIcon(file);
        icon.setAlignment(0, 1);
        icon.setRect({8 + x, 48 + x, 62, 80});
        icons.push_back(icon);
        x += 40;
    }
    DrawCounter& counter = count(panel.get(), [&](GeRectangle<int> const& r) {
        float white[3] = {1.f, 1.f, 1.f};
        SmGl::color3fv(white);
        for (UiString& s : strings)
            s.draw(r.x1, r.y1);
        // Icons have transparent ground: blend them as the indicators do, and leave the
        // blending off again as the state cache knows it.
        SmGl::enable(Gl::BLEND);
        SmGl::blendFunc(Gl::SRC_ALPHA, Gl::ONE_MINUS_SRC_ALPHA);
        for (UiIcon& icon : icons)
            icon.draw(r.x1, r.y1);
        SmGl::disable(Gl::BLEND);
    });
    pump(100);
    std::vector<std::uint8_t> px = w.readPixels();
    EXPECT_GE(counter.count, 1);
    expectMatchesReference(w, px, "alignedTextAndIcons");
}

// Push buttons out and pushed in, toggle buttons off and on.
TEST_F(ScreenReference, PushButtonsAndTogglesLookAsTheReference) {
    UiTopLevel& w = open(240, 100);
    UiContainer* root = w.getRootContainer().get();
    for (bool active : {false, true}) {
        auto button = UiPushButton::create(root, active ? "pushed" : "out");
        button->setRect(active ? GeRectangle<int>{130, 230, 55, 85}
                               : GeRectangle<int>{10, 110, 55, 85});
        button->getLabel().setFont(WsFontRegistry::Bold12Font);
        button->getLabel().setString(active ? "Cancel" : "OK");
        button->setActive(active);
        auto toggle = UiToggleButton::create(root, active ? "on" : "off");
        toggle->setRect(active ? GeRectangle<int>{130, 230, 15, 45}
                               : GeRectangle<int>{10, 110, 15, 45});
        toggle->setFont(WsFontRegistry::Bold12Font);
        toggle->setLabels("Loop", "Looping");
        toggle->setState(active, false);
    }
    pump(100);
    expectMatchesReference(w, w.readPixels(), "buttons");
}

} // namespace
