// Frames: the registry's shared instances and its error for unknown names; the decorators
// (forwarding to the wrapped frame, the border decorator's canvas and outline); every standard
// frame's name, canvas and offsets and the colours it keeps from registration time; and what
// the frames draw, vertex by vertex and pixel by pixel (cut corners and bevels, the sunken field,
// the outlines, the colour strip with its gradients and shade model, the scroll grip, the tabs,
// the highlight factor), each staying within its rectangle.
#include "frameRaster.h"
#include "smContext.h"
#include "smGlRecorder.h"
#include "support/exceptionReason.h"
#include "uiColorRegistry.h"
#include "uiFrame.h"
#include "uiFrameBevel.h"
#include "uiFrameLine.h"
#include "uiFrameTab.h"
#include "uiResourceEx.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

using namespace Zr;

namespace {

// A frame that takes two pixels on the left and says so in its offsets.
class LeftFrame : public UiFrame {
public:
    LeftFrame() { _xOffset = 3; }
    void draw(GeRectangle<int> const&, CoRgbColor const&, CoRgbColor const&) override { ++draws; }
    GeRectangle<int> getCanvas(GeRectangle<int> const& r) const override {
        return {r.x1 + 2, r.x2, r.y1, r.y2};
    }
    LiString getType() const override { return "Left"; }
    int draws = 0;
};

class PlainDecorator : public UiFrameDecorator {
public:
    LiString getType() const override { return "Plain"; }
};

} // namespace

TEST(FrameRegistry, DefaultFramesAreSharedInstances) {
    UiFrameRegistry::registerDefaultFrames();
    UiFrameRegistry& registry = UiFrameRegistry::getInstance();
    EXPECT_EQ(registry.create("None"), registry.create("None"));
    EXPECT_EQ(registry.create("BorderDecorator")->getType(), LiString("BorderDecorator"));
}

TEST(FrameRegistry, RegisteringAgainReplacesTheInstance) {
    UiFrameRegistry& registry = UiFrameRegistry::getInstance();
    auto first = makeShared<LeftFrame>();
    auto second = makeShared<LeftFrame>();
    registry.registerType(first);
    registry.registerType(second);
    EXPECT_EQ(registry.create("Left"), RCShdPtr<UiFrame>(second));
}

TEST(FrameDecorator, ForwardsToTheWrappedFrame) {
    auto inner = makeShared<LeftFrame>();
    auto decorator = makeShared<PlainDecorator>();
    RCShdPtr<UiFrame> result = decorator->decorate(inner);
    EXPECT_EQ(result, RCShdPtr<UiFrame>(decorator));
    EXPECT_EQ(decorator->getCanvas({0, 10, 0, 10}), (GeRectangle<int>{2, 10, 0, 10}));
    EXPECT_EQ(decorator->getXOffset(), 3);
    EXPECT_EQ(decorator->getYOffset(), 0);
    decorator->draw({0, 10, 0, 10}, {}, {});
    EXPECT_EQ(inner->draws, 1);
}

TEST(FrameDecorator, CanvasWithoutAnInnerFrameFailsAnAssertion) {
    auto decorator = makeShared<PlainDecorator>();
    EXPECT_EQ(TestSupport::reasonOf<ExAssertionFailed>([&] {
                  decorator->getCanvas({0, 10, 0, 10});
              }),
              "!_inner.isNull()");
}

TEST(FrameBorderDecorator, InsetsByOneOnlyWhenOverTwoBothWays) {
    auto border = makeShared<UiFrameBorderDecorator>();
    EXPECT_EQ(border->getCanvas({0, 10, 0, 5}), (GeRectangle<int>{1, 9, 1, 4}));
    EXPECT_EQ(border->getCanvas({0, 2, 0, 5}), (GeRectangle<int>{0, 2, 0, 5}));
    EXPECT_EQ(border->getCanvas({0, 10, 0, 2}), (GeRectangle<int>{0, 10, 0, 2}));
    // The inner frame does not shrink it further.
    border->decorate(makeShared<LeftFrame>());
    EXPECT_EQ(border->getCanvas({0, 10, 0, 5}), (GeRectangle<int>{1, 9, 1, 4}));
}

TEST(FrameBorderDecorator, DrawsTheInnerFrameThenACutCornerLoop) {
    SmGlRecorder recorder;
    SmGl::setBackend(&recorder);
    auto inner = makeShared<LeftFrame>();
    auto border = makeShared<UiFrameBorderDecorator>();
    border->decorate(inner);
    CoRgbColor const red(1.f, 0.f, 0.f);
    border->setBorderColor(red);
    border->draw({10, 30, 20, 40}, {}, {});
    SmGl::setBackend(nullptr);

    EXPECT_EQ(inner->draws, 1);
    EXPECT_EQ(recorder.getCount("begin"), 1);
    EXPECT_EQ(recorder.getCount("end"), 1);
    EXPECT_EQ(recorder.getColor().r, 1.f);
    EXPECT_EQ(recorder.getColor().g, 0.f);
    std::vector<std::string> vertices;
    for (auto const& entry : recorder.getLog())
        if (entry.rfind("vertex2i", 0) == 0)
            vertices.push_back(entry);
    EXPECT_EQ(vertices,
              (std::vector<std::string>{"vertex2i(13, 21)", "vertex2i(27, 21)", "vertex2i(29, 23)",
                                        "vertex2i(29, 37)", "vertex2i(27, 39)", "vertex2i(12, 39)",
                                        "vertex2i(10, 37)", "vertex2i(10, 23)"}));
}

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

TEST_F(FrameCanvas, UnknownNamesAndOtherCasesAreRefusedNamingThem) {
    EXPECT_EQ(TestSupport::reasonOf<UiResourceEx::UiInvalidFrameEx>([&] { frame("none"); }),
              "Error, invalid frame name none");
    EXPECT_FALSE(UiFrameRegistry::getInstance().isRegisteredType("none"));
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

    auto byte = [](float v) { return static_cast<int>(v * 255.f + 0.5f); };
    colors.registerColor("ToggleActive", byte(on.r), byte(on.g), byte(on.b));
    colors.registerColor("RadioInactive", byte(radio.r), byte(radio.g), byte(radio.b));
    UiFrameRegistry::registerDefaultFrames();
    EXPECT_EQ(dynamic_cast<UiFrameStripBevel*>(frames.create("ToggleIn").get())->getStripColor(),
              on);
}

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

// Sets the current context's shade model for the scope and puts the old one back.
struct ShadeScope {
    explicit ShadeScope(unsigned mode) { context->setShadeModel(mode); }
    ~ShadeScope() { context->setShadeModel(before); }
    SmContext* context = SmContext::getCurrentContext();
    unsigned before = context->getShadeModel();
};

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
    ShadeScope flat(Gl::FLAT);

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
    EXPECT_EQ(
        Lines(recorder.lines.begin(), recorder.lines.begin() + 5),
        (Lines{"RECT off: 32,0 40,20", "SMOOTH",
               "QUADS bright: 32,20 40,20 off: 40,15 32,15 off: 32,5 40,5 dim: 40,0 32,0", "FLAT",
               "POINTS corner: 0,0 39,0 39,19 0,19 1,0 0,1 38,0 39,1 38,19 39,18 1,19 0,18"}));
    EXPECT_EQ(flat.context->getShadeModel(), Gl::FLAT);
}

TEST(FrameDrawStrip, StripOnlyAndLineToggle) {
    ShadeScope smooth(Gl::SMOOTH);

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
    SmContext* context = SmContext::getCurrentContext();
    ShadeScope restore(context->getShadeModel());
    GeRectangle<int> const r{10, 50, 20, 60};
    for (FrameRow const& row : frameTable) {
        char const* const name = row.name;
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
    ShadeScope flat(Gl::FLAT);
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
}
