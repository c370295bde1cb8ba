// The frame registry's shared instances and its error for unknown names, and the decorators:
// forwarding to the wrapped frame, and the border decorator's canvas and outline.
#include "uiFrame.h"

#include "smGlRecorder.h"
#include "uiResourceEx.h"

#include <gtest/gtest.h>

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

TEST(FrameRegistry, UnknownNameNamesItInTheError) {
    try {
        UiFrameRegistry::getInstance().create("NoSuchFrame");
        FAIL() << "no exception";
    } catch (UiResourceEx::UiInvalidFrameEx const& e) {
        EXPECT_EQ(e.getReason(), "Error, invalid frame name NoSuchFrame");
    }
    EXPECT_FALSE(UiFrameRegistry::getInstance().isRegisteredType("NoSuchFrame"));
}

TEST(FrameRegistry, DefaultFramesAreSharedInstances) {
    UiFrameRegistry::registerDefaultFrames();
    UiFrameRegistry& registry = UiFrameRegistry::getInstance();
    EXPECT_TRUE(registry.isRegisteredType("None"));
    EXPECT_TRUE(registry.isRegisteredType("BorderDecorator"));
    EXPECT_EQ(registry.create("None"), registry.create("None"));
    EXPECT_EQ(registry.create("BorderDecorator")->getType(), LiString("BorderDecorator"));
    GeRectangle<int> const r{0, 10, 0, 10};
    EXPECT_EQ(registry.create("None")->getCanvas(r), r);
    EXPECT_TRUE(registry.create("None")->decorate(registry.create("None")).isNull());
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
    try {
        decorator->getCanvas({0, 10, 0, 10});
        FAIL() << "no assertion";
    } catch (ExAssertionFailed const& e) {
        EXPECT_EQ(e.getReason(), "!_inner.isNull()");
    }
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
