// Icon buttons: the icon from a definition, placed in the canvas by its alignment; setIcon and
// readImage; a pushed toggle with an icon keeps the toggle's behaviour.
#include "buttonTestSupport.h"

#include "uiPushButtonIcon.h"
#include "uiPushedToggleIcon.h"
#include "uiWidgetFactory.h"

#include <gtest/gtest.h>

namespace Zr {
namespace {

using IconButtons = UiTest::ButtonFixture;

TEST_F(IconButtons, DefinitionsIconIsLoadedAndCentredInTheCanvas) {
    RCShdPtr<UiWidget> made = UiWidgetFactory::createWidgetFromText(
        RCShdPtr<UiContainer>(root), R"(<PushButtonIcon><Widget Name="i">
          <Rectangle><Coord X="0" Y="0" W="60" H="40"/></Rectangle>
          <Icon><IconFile>toggleOn.tif</IconFile></Icon>
        </Widget></PushButtonIcon>)",
        "i.xml");
    auto button = dynamicCast<UiPushButtonIcon>(made);
    ASSERT_TRUE(button);
    UiIcon const& icon = button->getIcon();
    ASSERT_TRUE(icon.getImage());
    ASSERT_GT(icon.getWidth(), 0);
    GeRectangle<int> const canvas = button->getCanvas();
    EXPECT_EQ(icon.getX(), (canvas.width() - icon.getWidth()) / 2);
    EXPECT_EQ(icon.getY(), (canvas.height() - icon.getHeight()) / 2);

    // Moving the icon to the left edge with a margin.
    button->changeResource(
        LiString(R"(<IconAlign><Align H="Left" V="Center" MH="3"/></IconAlign>)"));
    EXPECT_EQ(button->getIcon().getX(), 3);

    // An icon button is still a button.
    int activations = 0;
    CbFunction<EvEvent> count([&](EvEvent&) { ++activations; });
    button->addActivateCb(&count);
    UiTest::clickOn(*button);
    EXPECT_EQ(activations, 1);
}

TEST_F(IconButtons, SetIconTakesANewIconAndIgnoresNull) {
    auto button = UiPushButtonIcon::create(root.get(), "i");
    button->setRect({0, 60, 0, 40}, false);
    EXPECT_FALSE(button->getIcon().getImage());
    button->setIcon(nullptr);
    UiIcon* before = &button->getIcon();
    EXPECT_EQ(&button->getIcon(), before);

    auto icon = std::make_unique<UiIcon>();
    icon->loadIcon("radioOn.tif");
    UiIcon* given = icon.get();
    button->clearMarks();
    button->setIcon(std::move(icon));
    EXPECT_EQ(&button->getIcon(), given);
    EXPECT_FALSE(button->getMarkedRects().empty());
    // Placed in this button's canvas, centred by default.
    EXPECT_EQ(given->getRect().width(), button->getCanvas().width());
}

TEST_F(IconButtons, UnreadableImageRaisesAndLeavesNoImage) {
    auto button = UiPushButtonIcon::create(root.get(), "i");
    button->readImage("toggleOn.tif");
    EXPECT_TRUE(button->getIcon().getImage());
    EXPECT_ANY_THROW(button->readImage("no such icon.tif"));
    EXPECT_FALSE(button->getIcon().getImage());
}

TEST_F(IconButtons, PushedToggleIconShowsItsImageAndToggles) {
    auto toggle = UiPushedToggleIcon::create(root.get(), "t");
    toggle->setRect({0, 40, 0, 40}, false);
    toggle->readImage("anchor.tif");
    ASSERT_TRUE(toggle->getIcon().getImage());
    toggle->clearMarks();
    toggle->setImage(RCShdPtr<WsManagedImage>());
    EXPECT_FALSE(toggle->getIcon().getImage());
    EXPECT_FALSE(toggle->getMarkedRects().empty());
    UiTest::clickOn(*toggle);
    EXPECT_TRUE(toggle->getState());
}

} // namespace
} // namespace Zr
