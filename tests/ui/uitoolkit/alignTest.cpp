// Tests of the placement of text and icons: alignment codes, margins, centring, the baseline of
// strings, the owner's notification, and icons without an image.
#include "uiAlign.h"
#include "uiIcon.h"
#include "uiIndicator.h"
#include "uiString.h"

#include "ixTile.h"
#include "smGl.h"
#include "smStateObject.h"
#include "wsManagedImage.h"

#include <gtest/gtest.h>

#include <vector>

namespace Zr {
namespace {

// A UiAlign with a settable content size.
class Box : public UiAlign {
public:
    Box(int width, int height) {
        _width = width;
        _height = height;
    }
};

TEST(AlignPosition, HorizontalCodesAndMargins) {
    Box box(30, 10);
    box.setMargins(5, 0);
    box.setRect({0, 100, 0, 40});
    EXPECT_EQ(box.getX(), 5); // default: left
    box.setAlignmentH(1);
    EXPECT_EQ(box.getX(), 35); // centred: the margin doesn't count
    box.setAlignmentH(2);
    EXPECT_EQ(box.getX(), 65);
    // Top and bottom in the horizontal field fall to the low side.
    box.setAlignmentH(3);
    EXPECT_EQ(box.getX(), 5);
    box.setAlignmentH(4);
    EXPECT_EQ(box.getX(), 5);
    // The rectangle's offset counts.
    box.setAlignmentH(2);
    box.setRect({50, 150, 0, 40});
    EXPECT_EQ(box.getX(), 115);
}

TEST(AlignPosition, VerticalCodesAndOddRemainders) {
    Box box(31, 11);
    box.setMargins(0, 3);
    box.setRect({0, 100, 10, 50});
    EXPECT_EQ(box.getY(), 10 + (40 - 11) / 2); // default: centred, margin ignored
    box.setAlignmentV(3);
    EXPECT_EQ(box.getY(), 50 - 11 - 3); // top: against y2
    box.setAlignmentV(4);
    EXPECT_EQ(box.getY(), 13); // bottom
    box.setAlignmentV(0);
    EXPECT_EQ(box.getY(), 13); // left falls to the low side
    box.setAlignment(1, 1);
    EXPECT_EQ(box.getX(), 34); // (100 - 31) / 2
    // Content larger than the rectangle is centred by integer division too.
    Box wide(105, 0);
    wide.setAlignment(1, 4);
    wide.setRect({0, 100, 0, 0});
    EXPECT_EQ(wide.getX(), -2);
}

class Owner : public UiStringProtocol {
public:
    void stringPositionChanged(int id) override { ids.push_back(id); }
    std::vector<int> ids;
};

TEST(AlignString, NullTextAndExtraWidthWithoutFont) {
    Owner owner;
    UiString text(nullptr, &owner, 7);
    EXPECT_EQ(text.getString(), LiString(""));
    text.setString(nullptr, 12);
    EXPECT_EQ(text.getWidth(), 12);
    text.setString("abc"); // keeps the extra width; no font measures 0
    EXPECT_EQ(text.getWidth(), 12);
    EXPECT_EQ(owner.ids, (std::vector<int>{7, 7}));
    EXPECT_THROW(text.draw(0, 0), ExBase);
}

TEST(AlignString, FontGivesHeightAndBaselineAndOwnerIsToldEachMove) {
    Owner owner;
    UiString text("Hello", &owner, 3);
    text.setRect({0, 200, 0, 40});
    text.setFont(LiString("Normal12Font"));
    ASSERT_TRUE(text.getFont());
    WsFont const& font = *text.getFont();
    EXPECT_EQ(text.getHeight(), font.getAscent() + font.getDescent());
    EXPECT_EQ(text.getWidth(), static_cast<int>(font.getStringWidth("Hello")));
    EXPECT_EQ(text.getDescent(), font.getDescent());
    // Centred vertically, then raised by the descent: y is the baseline.
    EXPECT_EQ(text.getY(), (40 - text.getHeight()) / 2 + font.getDescent());
    text.setString("Hello", 4);
    EXPECT_EQ(text.getWidth(), static_cast<int>(font.getStringWidth("Hello") + 4.f));
    EXPECT_EQ(owner.ids, (std::vector<int>{3, 3, 3}));
}

TEST(AlignString, ReplaceNewlinesLeavesTheWidthStale) {
    UiString text("a\nb\n", nullptr, 0);
    text.setFont(LiString("Normal12Font"));
    int const width = text.getWidth();
    text.replaceNewlines();
    EXPECT_EQ(text.getString(), LiString("a b "));
    EXPECT_EQ(text.getWidth(), width);
    text.setString(text.getString().c_str());
    EXPECT_EQ(text.getWidth(), static_cast<int>(text.getFont()->getStringWidth("a b ")));
}

RCShdPtr<WsManagedImage> image(int width, int height) {
    return RCShdPtr<WsManagedImage>(
        new WsManagedImage(RCShdPtr<IxTile>(new IxTile(width, height, 4))));
}

TEST(AlignIcon, ImageSizePlacesAndNullImageIsEmpty) {
    UiIcon icon;
    icon.setAlignment(2, 3);
    icon.setRect({0, 20, 0, 20});
    icon.setImage(image(5, 4));
    EXPECT_EQ(icon.getWidth(), 5);
    EXPECT_EQ(icon.getX(), 15);
    EXPECT_EQ(icon.getY(), 16);
    icon.setImage({});
    EXPECT_EQ(icon.getWidth(), 0);
    EXPECT_EQ(icon.getHeight(), 0);
    EXPECT_EQ(icon.getX(), 20);
    icon.draw(3, 3); // draws nothing, no error
}

TEST(AlignIcon, IndicatorFromOneImageLooksTheSameInBothStates) {
    RCShdPtr<WsManagedImage> mark = image(6, 6);
    UiIconIndicator indicator(mark);
    indicator.setRect({0, 10, 0, 10});
    EXPECT_EQ(indicator.getEnabledIcon().getImage().get(), mark.get());
    EXPECT_EQ(indicator.getDisabledIcon().getImage().get(), mark.get());
    SmStateObject state;
    indicator.draw(false, UiBaseIndicator::Active, UiBaseIndicator::MouseOutside, state, 0, 0);
    // The icon takes the indicator's rectangle: left by default, centred vertically.
    EXPECT_EQ(indicator.getDisabledIcon().getX(), 0);
    EXPECT_EQ(indicator.getDisabledIcon().getY(), 2);
    OPtrRet<UiBaseIndicator> copy = indicator.clone();
    auto& clone = static_cast<UiIconIndicator&>(*copy);
    EXPECT_EQ(clone.getIcon().getImage().get(), mark.get());
    EXPECT_NE(&clone.getIcon(), &indicator.getIcon());
}

} // namespace
} // namespace Zr
