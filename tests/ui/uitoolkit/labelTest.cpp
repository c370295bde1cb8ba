// Labels: locked and not keyboard-focusable from the start, so presses do nothing; an unlocked
// label flips on the release; text and state through code, definitions and the plug-in
// interface; the transparent label's opacity.
#include "buttonTestSupport.h"

#include "piLabel.h"
#include "uiColorRegistry.h"
#include "uiLabel.h"
#include "uiTransparentLabel.h"
#include "uiWidgetFactory.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace Zr
