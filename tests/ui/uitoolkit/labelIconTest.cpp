// Labelled icons: the icon and the zoom from resources, the scale that fits the canvas, and
// a label's behaviour kept.
#include "buttonTestSupport.h"

#include "uiLabeledIcon.h"
#include "uiResTable.h"

#include <gtest/gtest.h>

namespace Zr {
namespace {

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

TEST_F(LabelIcon, FitScaleIsTheLargerRatioOfCanvasToImage) {
    auto logo = UiLabeledIcon::create(root.get(), "logo");
    EXPECT_EQ(logo->getFitScale(), 0.f);
    logo->readImage("anchor.tif");
    RCShdPtr<WsManagedImage> image = logo->getIcon().getImage();
    ASSERT_TRUE(image);
    int const w = image->getWidth(), h = image->getHeight();
    logo->setRect({0, 2 * w, 0, h}, false);
    EXPECT_FLOAT_EQ(logo->getFitScale(), 2.f);
    // As large as the canvas: no scaling (the plain path).
    logo->setRect({0, w, 0, h}, false);
    EXPECT_FLOAT_EQ(logo->getFitScale(), 1.f);
    logo->setRect({0, w / 2, 0, h / 2 + 1}, false);
    EXPECT_LT(logo->getFitScale(), 1.f);
}

} // namespace
} // namespace Zr
