// What the standard frames draw, vertex by vertex: the cut corners and bevels, the sunken
// field, the outlines, the colour strip with its gradients and shade model, the scroll grip,
// the tabs, the highlight factor; and that every frame stays within its rectangle.
#include "frameRaster.h"
#include "smContext.h"
#include "smGlRecorder.h"
#include "uiFrame.h"
#include "uiFrameBevel.h"
#include "uiFrameLine.h"
#include "uiFrameTab.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

using namespace Zr;

namespace {

// Colours far apart, so each is recognised by name in the trace.
UiFrameColors testColors() {
    UiFrameColors c;
    c.dark = {0.f, 0.f, 0.f};
    c.mid = {0.25f, 0.25f, 0.25f};
    c.light = {1.f, 1.f, 1.f};
    c.shadow = {0.375f, 0.375f, 0.375f};
    c.toggleOff = {0.5f, 0.25f, 0.125f};
    c.toggleOn = {0.75f, 0.5f, 0.25f};
    c.radioOff = {0.5f, 0.5f, 0.125f};
    c.radioOn = {0.75f, 0.75f, 0.125f};
    return c;
}

CoRgbColor const grey{0.5f, 0.5f, 0.5f};
CoRgbColor const corner{0.125f, 0.25f, 0.5f};

// Records a frame's drawing as one line per begin/end pair: the primitive, then for each
// colour its name and the vertices "x,y" drawn in it. Rectangles and shade-model changes get
// lines of their own.
class FrameTrace : public SmGlRecorder {
public:
    FrameTrace() {
        UiFrameColors const c = testColors();
        _names = {{"dark", c.dark},
                  {"light", c.light},
                  {"shadow", c.shadow},
                  {"corner", corner},
                  {"hl", CoRgbColor(0.895f, 0.895f, 0.895f)},
                  {"off", c.toggleOff},
                  {"on", c.toggleOn}};
    }
    void name(std::string const& n, CoRgbColor const& c) { _names.emplace_back(n, c); }

    void begin(unsigned mode) override {
        SmGlRecorder::begin(mode);
        static std::map<unsigned, std::string> const modes{
            {Gl::POINTS, "POINTS"}, {Gl::LINES, "LINES"}, {Gl::QUADS, "QUADS"}};
        _open = modes.count(mode) ? modes.at(mode) : "mode" + std::to_string(mode);
    }
    void end() override {
        SmGlRecorder::end();
        lines.push_back(_open);
        _open.clear();
    }
    void color3fv(float const* c) override {
        SmGlRecorder::color3fv(c);
        _color = nameOf({c[0], c[1], c[2]});
        if (!_open.empty())
            _open += " " + _color + ":";
    }
    void vertex2i(int x, int y) override {
        SmGlRecorder::vertex2i(x, y);
        _open += " " + std::to_string(x) + "," + std::to_string(y);
        vertices.push_back({x, y});
    }
    void recti(int x1, int y1, int x2, int y2) override {
        SmGlRecorder::recti(x1, y1, x2, y2);
        std::ostringstream os;
        os << "RECT " << _color << ": " << x1 << "," << y1 << " " << x2 << "," << y2;
        lines.push_back(os.str());
    }
    void shadeModel(unsigned mode) override {
        SmGlRecorder::shadeModel(mode);
        lines.push_back(mode == Gl::SMOOTH ? "SMOOTH" : "FLAT");
    }

    std::vector<std::string> lines;
    std::vector<GePoint2<int>> vertices;

private:
    std::string nameOf(CoRgbColor const& c) const {
        for (auto const& [n, known] : _names)
            if (std::abs(known.r - c.r) < 1e-5f && std::abs(known.g - c.g) < 1e-5f &&
                std::abs(known.b - c.b) < 1e-5f)
                return n;
        std::ostringstream os;
        os << "(" << c.r << " " << c.g << " " << c.b << ")";
        return os.str();
    }
    std::vector<std::pair<std::string, CoRgbColor>> _names;
    std::string _open;
    std::string _color;
};

// Draws `frame` on `rect` over `background` and returns the trace's lines.
std::vector<std::string> trace(UiFrame& frame, GeRectangle<int> const& rect,
                               CoRgbColor const& background = grey) {
    FrameTrace recorder;
    SmGlBackendGuard guard(recorder);
    frame.draw(rect, background, corner);
    return recorder.lines;
}

using Lines = std::vector<std::string>;

// The corner points of {0, 10, 0, 20}: four corners, then two neighbours of each.
std::string const cornersOf10x20 =
    "POINTS corner: 0,0 9,0 9,19 0,19 1,0 0,1 8,0 9,1 8,19 9,18 1,19 0,18";

} // namespace

TEST(FrameDrawBevel, PushOutIsCornersLinesThenPoints) {
    UiFramePushOut frame(testColors());
    EXPECT_EQ(trace(frame, {0, 10, 0, 20}),
              (Lines{cornersOf10x20,
                     "LINES dark: 2,19 8,19 0,3 0,18 9,3 9,18 dark: 2,1 8,1 hl: 2,18 8,18 "
                     "shadow: 2,0 8,0",
                     "POINTS shadow: 1,18 8,18 1,2 8,2 hl: 1,17 8,17 dark: 1,1 0,2 8,1 9,2"}));
}

TEST(FrameDrawBevel, PushInExchangesHighlightAndShadow) {
    UiFramePushIn frame(testColors());
    EXPECT_EQ(trace(frame, {0, 10, 0, 20}),
              (Lines{cornersOf10x20,
                     "LINES dark: 2,19 8,19 0,3 0,18 9,3 9,18 dark: 2,1 8,1 shadow: 2,18 8,18 "
                     "hl: 2,0 8,0",
                     "POINTS hl: 1,18 8,18 1,2 8,2 shadow: 1,17 8,17 dark: 1,1 0,2 8,1 9,2"}));
}

TEST(FrameDrawBevel, InHasNoInnerTopLine) {
    UiFrameIn frame(testColors());
    EXPECT_EQ(trace(frame, {10, 20, 30, 50}),
              (Lines{"POINTS corner: 10,30 19,30 19,49 10,49 11,30 10,31 18,30 19,31 18,49 "
                     "19,48 11,49 10,48",
                     "LINES dark: 12,49 18,49 10,33 10,48 19,33 19,48 dark: 12,31 18,31 "
                     "shadow: 12,30 18,30",
                     "POINTS dark: 11,48 18,48 11,32 18,32 shadow: 11,31 10,32 18,31 19,32"}));
}

TEST(FrameDrawBevel, HighlightFactorDependsOnANeutralBackground) {
    UiFramePushOut frame(testColors());
    // A grey background brightens by 1.79, clamped to 1.
    CoRgbColor const neutral(0.2f, 0.2f, 0.2f);
    CoRgbColor const tinted(80.f / 255.f, 80.f / 255.f, 81.f / 255.f);
    auto innerTopColor = [&](CoRgbColor const& background) {
        FrameTrace recorder;
        recorder.name("factor1.79", CoUtils::calcLuminance(background, 1.79f));
        recorder.name("factor1.4", CoUtils::calcLuminance(background, 1.4f));
        SmGlBackendGuard guard(recorder);
        frame.draw({0, 10, 0, 20}, background, corner);
        std::string const& bevel = recorder.lines.at(1);
        return bevel.substr(bevel.find("2,1 8,1 ") + 8, 10);
    };
    EXPECT_EQ(innerTopColor(neutral), "factor1.79");
    EXPECT_EQ(innerTopColor(tinted), "factor1.4:");
    EXPECT_EQ(UiFramePaint::highlight({0.8f, 0.8f, 0.8f}), CoRgbColor(1.f, 1.f, 1.f));
}

TEST(FrameDrawStrip, ToggleDrawsTheStripWithGradientsThenTheBevel) {
    SmContext* context = SmContext::getCurrentContext();
    unsigned const before = context->getShadeModel();
    context->setShadeModel(Gl::FLAT);

    UiFrameToggleOut frame(testColors());
    CoRgbColor const off = testColors().toggleOff;
    FrameTrace recorder;
    recorder.name("dim", CoUtils::calcLuminance(off, 0.7f));
    recorder.name("bright", CoUtils::calcLuminance(off, 1.3f));
    {
        SmGlBackendGuard guard(recorder);
        frame.draw({0, 40, 0, 20}, grey, corner);
    }
    ASSERT_EQ(recorder.lines.size(), 7u);
    // Eight columns at the right (the strip and the bevel's right edge), a quarter of the
    // height (5) of gradient at either end, smooth only while the quads are drawn.
    EXPECT_EQ(recorder.lines[0], "RECT off: 32,0 40,20");
    EXPECT_EQ(recorder.lines[1], "SMOOTH");
    EXPECT_EQ(recorder.lines[2],
              "QUADS bright: 32,20 40,20 off: 40,15 32,15 off: 32,5 40,5 dim: 40,0 32,0");
    EXPECT_EQ(recorder.lines[3], "FLAT");
    EXPECT_EQ(recorder.lines[4],
              "POINTS corner: 0,0 39,0 39,19 0,19 1,0 0,1 38,0 39,1 38,19 39,18 1,19 0,18");
    EXPECT_EQ(context->getShadeModel(), Gl::FLAT);
    context->setShadeModel(before);
}

TEST(FrameDrawStrip, StripOnlyAndLineToggle) {
    SmContext* context = SmContext::getCurrentContext();
    unsigned const before = context->getShadeModel();
    context->setShadeModel(Gl::SMOOTH);

    UiFrameNoneToggleIn strip(testColors());
    Lines lines = trace(strip, {0, 20, 0, 8});
    // Already smooth: nothing to switch or put back.
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "RECT on: 12,0 20,8");
    EXPECT_EQ(lines[1].substr(0, 24), "QUADS (0.975 0.65 0.325)");

    UiFrameLineToggle lineToggle(testColors(), false);
    EXPECT_EQ(lineToggle.getType(), LiString("LineToggleOut"));
    EXPECT_EQ(UiFrameLineToggle(testColors(), true).getType(), LiString("LineToggleIn"));
    lineToggle.setBorderColor(testColors().light);
    lines = trace(lineToggle, {0, 20, 0, 8});
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], "RECT off: 12,0 20,8");
    EXPECT_EQ(lines[2], "LINES light: 0,0 0,8 19,0 19,8 0,7 20,7 0,0 20,0");
    context->setShadeModel(before);
}

TEST(FrameDrawLine, OutlinesAndEdges) {
    UiFrameColors const colors = testColors();
    UiFrameLine line(colors);
    // The border colour starts as the shared dark and follows setBorderColor.
    EXPECT_EQ(trace(line, {0, 10, 0, 20}),
              (Lines{"LINES dark: 0,0 0,20 9,0 9,20 0,19 10,19 0,0 10,0"}));
    line.setBorderColor(colors.light);
    EXPECT_EQ(trace(line, {0, 10, 0, 20}),
              (Lines{"LINES light: 0,0 0,20 9,0 9,20 0,19 10,19 0,0 10,0"}));

    UiFrameSelected selected(colors);
    selected.setBorderColor(colors.shadow);
    EXPECT_EQ(trace(selected, {0, 10, 0, 20}),
              (Lines{"LINES light: 0,0 0,20 9,0 9,20 0,19 10,19 0,0 10,0"}));
    UiFrameLineLeftRight leftRight(colors);
    leftRight.setBorderColor(colors.light);
    EXPECT_EQ(trace(leftRight, {0, 10, 0, 20}), (Lines{"LINES dark: 0,0 0,20 9,0 9,20"}));
    UiFrameLineTop top(colors);
    EXPECT_EQ(trace(top, {0, 10, 0, 20}), (Lines{"LINES dark: 0,19 10,19"}));
    UiFrameLineLeftBottomRight lbr(colors);
    EXPECT_EQ(trace(lbr, {0, 10, 0, 20}), (Lines{"LINES dark: 0,0 0,20 9,0 9,20 0,0 10,0"}));
    UiFrameDoubleTop doubleTop(colors);
    EXPECT_EQ(trace(doubleTop, {0, 10, 0, 20}),
              (Lines{"LINES dark: 0,18 10,18 shadow: 0,19 10,19"}));
    UiFrameDoubleBottom doubleBottom(colors);
    EXPECT_EQ(trace(doubleBottom, {0, 10, 0, 20}),
              (Lines{"LINES dark: 0,1 10,1 shadow: 0,0 10,0"}));
}

TEST(FrameDrawScroll, GripAtTheMiddleOnlyWhereItFits) {
    UiFrameScrollVer vertical(testColors());
    Lines lines = trace(vertical, {0, 12, 0, 40});
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[3], "LINES hl: 2,26 9,26 2,22 9,22 2,18 9,18 2,14 9,14 dark: 2,27 9,27 2,23 "
                        "9,23 2,19 9,19 2,15 9,15");
    UiFrameScrollHor horizontal(testColors());
    lines = trace(horizontal, {0, 40, 0, 12});
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[3], "LINES hl: 26,2 26,9 22,2 22,9 18,2 18,9 14,2 14,9 dark: 27,2 27,9 23,2 "
                        "23,9 19,2 19,9 15,2 15,9");
    // Nineteen rows hold the grip inside the bevel; eighteen do not.
    EXPECT_EQ(trace(vertical, {0, 12, 0, 19}).size(), 4u);
    EXPECT_EQ(trace(vertical, {0, 12, 0, 18}).size(), 3u);
    // The inverted form is sunken: shadow inside the top edge.
    UiFrameScrollVerI inverted(testColors());
    EXPECT_NE(trace(inverted, {0, 12, 0, 40})[1].find("shadow: 2,38 10,38"), std::string::npos);
}

TEST(FrameDrawTab, InactiveTabAddsTheBottomLine) {
    UiFrameLineActiveTab active(testColors());
    UiFrameLineInactiveTab inactive(testColors());
    Lines const lines = trace(active, {0, 10, 0, 20});
    EXPECT_EQ(lines, (Lines{"POINTS corner: 9,19 0,19 8,19 9,18 1,19 0,18",
                            "LINES dark: 2,19 8,19 0,0 0,18 9,0 9,18 shadow: 2,18 8,18",
                            "POINTS dark: 1,18 8,18"}));
    Lines closed = lines;
    closed[1] += " dark: 0,0 10,0";
    EXPECT_EQ(trace(inactive, {0, 10, 0, 20}), closed);
}

TEST(FrameDrawAll, EveryFrameStaysInsideItsRectangleAndBalancesItsCalls) {
    UiFrameRegistry::registerDefaultFrames();
    char const* const names[] = {"None",
                                 "In",
                                 "PushIn",
                                 "PushOut",
                                 "Selected",
                                 "ToggleIn",
                                 "ToggleOut",
                                 "RadioIn",
                                 "RadioOut",
                                 "ScrollHor",
                                 "ScrollHorI",
                                 "ScrollVer",
                                 "ScrollVerI",
                                 "Line",
                                 "LineToggleIn",
                                 "LineToggleOut",
                                 "LineTop",
                                 "LineBottom",
                                 "LineLeftBottomRight",
                                 "LineLeftTopRight",
                                 "LineLBRTOggleIn",
                                 "LineLBRTOggleOut",
                                 "ActiveTab",
                                 "InactiveTab",
                                 "LineTopCurve",
                                 "LineTopCurveI",
                                 "LineLeftRight",
                                 "Curve",
                                 "CurveI",
                                 "DoubleTop",
                                 "DoubleBottom"};
    SmContext* context = SmContext::getCurrentContext();
    unsigned const before = context->getShadeModel();
    GeRectangle<int> const r{10, 50, 20, 60};
    for (char const* name : names) {
        SCOPED_TRACE(name);
        for (unsigned shade : {Gl::FLAT, Gl::SMOOTH}) {
            context->setShadeModel(shade);
            FrameTrace recorder;
            {
                SmGlBackendGuard guard(recorder);
                UiFrameRegistry::getInstance().create(name)->draw(r, grey, corner);
            }
            EXPECT_EQ(recorder.getCount("begin"), recorder.getCount("end"));
            EXPECT_LE(recorder.getCount("begin"), 4);
            EXPECT_EQ(context->getShadeModel(), shade);
            for (GePoint2<int> const& v : recorder.vertices) {
                EXPECT_TRUE(v.x >= r.x1 && v.x <= r.x2 && v.y >= r.y1 && v.y <= r.y2)
                    << v.x << "," << v.y;
            }
            for (SmGlPaintedRect const& painted : recorder.getPaintedRects())
                EXPECT_TRUE(r.contains(painted.rect));
        }
    }
    context->setShadeModel(before);
}

namespace {

// Paints `frame` on `rect` into a raster of the given size and returns its picture: c the
// corner colour, # dark, s shadow, + the highlight of the grey background, o the toggle-off
// colour, f a border colour.
std::vector<std::string> picture(UiFrame& frame, GeRectangle<int> const& rect, int width,
                                 int height) {
    UiTest::FrameRaster raster(width, height);
    {
        SmGlBackendGuard guard(raster);
        frame.draw(rect, grey, corner);
    }
    UiFrameColors const c = testColors();
    return raster.picture({{'c', corner},
                           {'#', c.dark},
                           {'s', c.shadow},
                           {'+', UiFramePaint::highlight(grey)},
                           {'o', c.toggleOff},
                           {'f', CoRgbColor(0.f, 1.f, 0.f)}});
}

} // namespace

TEST(FrameDrawPixels, PushOutIsAChamferedRaisedButton) {
    UiFramePushOut frame(testColors());
    EXPECT_EQ(picture(frame, {0, 10, 0, 8}, 10, 8), (Lines{
                                                        "cc######cc",
                                                        "cs++++++sc",
                                                        "#+......+#",
                                                        "#........#",
                                                        "#........#",
                                                        "#s......s#",
                                                        "c########c",
                                                        "ccsssssscc",
                                                    }));
}

TEST(FrameDrawPixels, CurveAndTabsCutTheirCorners) {
    UiFrameCurve curve(testColors());
    EXPECT_EQ(picture(curve, {1, 9, 1, 7}, 10, 8), (Lines{
                                                       "..........",
                                                       ".cc####cc.",
                                                       ".c#....#c.",
                                                       ".#......#.",
                                                       ".#......#.",
                                                       ".cs....sc.",
                                                       ".ccsssscc.",
                                                       "..........",
                                                   }));
    UiFrameLineActiveTab active(testColors());
    Lines tab{
        "cc####cc", "c#ssss#c", "#......#", "#......#", "#......#",
    };
    EXPECT_EQ(picture(active, {0, 8, 0, 5}, 8, 5), tab);
    UiFrameLineInactiveTab inactive(testColors());
    tab.back() = "########";
    EXPECT_EQ(picture(inactive, {0, 8, 0, 5}, 8, 5), tab);
}

TEST(FrameDrawPixels, StripBrightensUpwardsAndDimsDownwards) {
    SmContext* context = SmContext::getCurrentContext();
    unsigned const before = context->getShadeModel();
    context->setShadeModel(Gl::FLAT);
    UiFrameToggleOut frame(testColors());
    UiTest::FrameRaster raster(20, 40);
    {
        SmGlBackendGuard guard(raster);
        frame.draw({0, 20, 0, 40}, grey, corner);
    }
    CoRgbColor const off = testColors().toggleOff;
    EXPECT_EQ(*raster.at(14, 20), off);
    EXPECT_GT(raster.at(14, 36)->r, off.r);
    EXPECT_LT(raster.at(14, 3)->r, off.r);
    // The strip ends at the canvas's right edge: column 11 is untouched, 12 is strip.
    EXPECT_FALSE(raster.at(11, 20).has_value());
    EXPECT_TRUE(raster.at(12, 20).has_value());
    context->setShadeModel(before);
}
