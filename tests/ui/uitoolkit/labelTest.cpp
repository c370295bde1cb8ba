// Labels: locked and not keyboard-focusable from the start, so presses do nothing; an unlocked
// label flips on the release; text and state through code, definitions and the plug-in
// interface; the transparent label's opacity; labelled icons with their zoom and fit scale, and
// icon widgets as drawn (a labelled icon scales its image up only when it is smaller than its
// canvas; the push-button icon sits one pixel below the pushed toggle's).
#include "buttonTestSupport.h"
#include "piLabel.h"
#include "smGlRecorder.h"
#include "uiColorRegistry.h"
#include "uiFrame.h"
#include "uiLabel.h"
#include "uiLabeledIcon.h"
#include "uiPushButtonIcon.h"
#include "uiPushedToggleIcon.h"
#include "uiResTable.h"
#include "uiTransparentLabel.h"
#include "uiWidgetFactory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace Zr {
namespace {

using UiTest::clickOn;
using UiTest::pressOn;

class LabelTest : public UiTest::ButtonFixture {
protected:
    void SetUp() override {
        ButtonFixture::SetUp();
        label = UiLabel::create(root.get(), "l");
        label->setRect({0, 100, 0, 20}, false);
        label->addStateCb(&onState);
    }
    void TearDown() override {
        label = nullptr;
        ButtonFixture::TearDown();
    }

    int reports = 0;
    CbFunction<EvEvent> onState{[this](EvEvent&) { ++reports; }};
    RCShdPtr<UiLabel> label;
};

TEST_F(LabelTest, StartsLockedAndIgnoresPresses) {
    EXPECT_TRUE(label->isLocked());
    EXPECT_FALSE(label->isKeyboardFocusable());
    EXPECT_FALSE(label->isStateChangedOnArm());
    pressOn(*label);
    EXPECT_FALSE(holdsGrab(*label));
    UiTest::releaseOn(*label);
    EXPECT_FALSE(label->getState());
    EXPECT_EQ(reports, 0);
}

TEST_F(LabelTest, UnlockedLabelFlipsOnTheRelease) {
    label->unlock();
    pressOn(*label);
    EXPECT_FALSE(label->getState());
    UiTest::releaseOn(*label);
    EXPECT_TRUE(label->getState());
    EXPECT_EQ(reports, 1);
}

TEST_F(LabelTest, StateChoosesTheCurrentLabel) {
    label->setState(true, true);
    EXPECT_EQ(label->getCurrentLabel(), 1);
    EXPECT_EQ(reports, 1);
    label->setState(false, false);
    EXPECT_EQ(label->getCurrentLabel(), 0);
    EXPECT_EQ(reports, 1);
}

TEST_F(LabelTest, TextChangeRedrawsOnlyWhenItIsShown) {
    label->clearMarks();
    label->setText("Gain");
    EXPECT_EQ(label->getText().str(), "Gain");
    EXPECT_FALSE(label->getMarkedRects().empty());
    label->clearMarks();
    label->setLabel(1, "unused");
    EXPECT_TRUE(label->getMarkedRects().empty());
}

TEST(LabelResources, DefaultsAndADefinition) {
    auto root = UiTest::TestRoot::make();
    auto plain = UiLabel::create(root.get(), "plain");
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    EXPECT_EQ(plain->getColor("OnColor"), colors.getColor("MarkedForAnimation"));
    EXPECT_EQ(plain->getLabel(0).getMarginV(), 0);
    EXPECT_FLOAT_EQ(plain->getOpacity(), 1.0f);

    RCShdPtr<UiWidget> made = UiWidgetFactory::createWidgetFromText(RCShdPtr<UiContainer>(root),
                                                                    R"(<Label><Widget Name="name">
          <LabelString><Text>Blur</Text></LabelString>
          <OnColor><Color>Red</Color></OnColor>
        </Widget></Label>)",
                                                                    "label.xml");
    auto l = dynamicCast<UiLabel>(made);
    ASSERT_TRUE(l);
    EXPECT_EQ(l->getText().str(), "Blur");
    EXPECT_EQ(l->getColor("OnColor"), colors.getColor("Red"));
    EXPECT_TRUE(l->isLocked());

    RCShdPtr<UiWidget> clear = UiWidgetFactory::createWidgetFromText(
        RCShdPtr<UiContainer>(root), R"(<TransparentLabel><Widget Name="c"/></TransparentLabel>)",
        "clear.xml");
    ASSERT_TRUE(dynamicCast<UiTransparentLabel>(clear));
    EXPECT_FLOAT_EQ(clear->getOpacity(), 0.0f);
    root->removeChildren();
}

// A colour table read after labels were made: the labels made later take its colours.
TEST(LabelResources, ColoursRegisteredLaterReachLabelsMadeLater) {
    auto root = UiTest::TestRoot::make();
    UiColorRegistry& colors = UiColorRegistry::getInstance();
    CoRgbColor const marked = colors.getColor("MarkedForAnimation");
    auto before = UiLabel::create(root.get(), "before");
    colors.registerColor("MarkedForAnimation", 0, 0, 255);
    EXPECT_EQ(UiLabel::create(root.get(), "after")->getColor("OnColor"), CoRgbColor(0, 0, 1.f));
    EXPECT_EQ(before->getColor("OnColor"), marked);
    auto byte = [](float v) { return static_cast<int>(v * 255.f + 0.5f); };
    colors.registerColor("MarkedForAnimation", byte(marked.r), byte(marked.g), byte(marked.b));
    root->removeChildren();
}

TEST(LabelInterface, TextAndStateGoBothWays) {
    auto root = UiTest::TestRoot::make();
    auto l = UiLabel::create(root.get(), "l");
    RCShdPtr<PiWidget> iface = l->retrieveInterface();
    auto* pl = dynamic_cast<PiLabel*>(iface.get());
    ASSERT_NE(pl, nullptr);
    pl->setText("Mix");
    EXPECT_EQ(l->getText().str(), "Mix");
    EXPECT_EQ(pl->getText(), "Mix");
    pl->setState(true, false);
    EXPECT_TRUE(l->getState());
    EXPECT_TRUE(pl->getState());
    EXPECT_TRUE(pl->isLocked());
    iface = nullptr;
    root->removeChildren();
}

using LabelIcon = UiTest::ButtonFixture;

TEST_F(LabelIcon, ResourcesGiveTheIconAndTheZoom) {
    UiResTable table;
    table.readWidgetCatchErrors(LiString(R"(<Widget Name="logo">
          <Icon><IconFile>anchor.tif</IconFile></Icon>
          <ZoomToFit><Int>1</Int></ZoomToFit>
        </Widget>)"),
                                UiResource::LevelApplication);
    auto logo = UiLabeledIcon::create(root.get(), "logo", &table);
    ASSERT_TRUE(logo->getIcon().getImage());
    EXPECT_TRUE(logo->isZoomToFit());
    EXPECT_TRUE(logo->isLocked());

    // Two values, or none of the right kind, leave the zoom alone.
    logo->changeResource(LiString("<ZoomToFit><Int>0</Int><Int>0</Int></ZoomToFit>"));
    EXPECT_TRUE(logo->isZoomToFit());
    logo->changeResource(LiString("<ZoomToFit><Int>0</Int></ZoomToFit>"));
    EXPECT_FALSE(logo->isZoomToFit());
}

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

// The fit scale is the larger ratio of canvas to image; zoom to fit uses it only above 1.
TEST_F(IconDrawing, ZoomToFitScalesOnlyAnImageSmallerThanItsCanvas) {
    auto logo = UiLabeledIcon::create(root.get(), "logo");
    EXPECT_EQ(logo->getFitScale(), 0.f);
    logo->readImage("anchor.tif");
    RCShdPtr<WsManagedImage> image = logo->getIcon().getImage();
    ASSERT_TRUE(image);
    int const w = image->getWidth(), h = image->getHeight();
    logo->setZoomToFit(true);
    auto log = drawCalls(*logo, {0, 2 * w, 0, h});
    EXPECT_FLOAT_EQ(logo->getFitScale(), 2.f);
    EXPECT_NE(std::find(log.begin(), log.end(), "pixelZoom(2, 2)"), log.end());
    log = drawCalls(*logo, {0, w, 0, h});
    EXPECT_FLOAT_EQ(logo->getFitScale(), 1.f);
    EXPECT_EQ(std::find(log.begin(), log.end(), "pixelZoom(2, 2)"), log.end());
    EXPECT_NE(firstCall(log, "drawPixels"), "");
    logo->setRect({0, w / 2, 0, h / 2 + 1}, false);
    EXPECT_LT(logo->getFitScale(), 1.f);
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
