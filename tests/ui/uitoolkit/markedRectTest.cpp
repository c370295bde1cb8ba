// UiMarkedRectList: marking with containment, the two-buffer update transition and the dump.
#include "uiMarkedRect.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Zr {
namespace {

std::string dumpOf(UiMarkedRectList const& list) {
    std::ostringstream os;
    list.dump(os);
    return os.str();
}

TEST(MarkedRectList, EmptyRectangleIsIgnored) {
    UiMarkedRectList list;
    list.mark({5, 5, 0, 10});
    list.mark({0, 10, 3, 3});
    EXPECT_TRUE(list.empty());
}

TEST(MarkedRectList, SameRectangleTwiceGivesOneEntry) {
    UiMarkedRectList list;
    list.mark({0, 10, 0, 10});
    list.mark({0, 10, 0, 10});
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].getState(), UiMarkedRect::InvalidBoth);
}

TEST(MarkedRectList, LargerMarkReplacesContainedEntriesOfAnyState) {
    UiMarkedRectList list;
    list.mark({0, 5, 0, 5});
    list.updateTransition(); // now drawn once
    list.mark({20, 25, 0, 5});
    list.mark({0, 30, 0, 10});
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].getRect(), (GeRectangle<int>{0, 30, 0, 10}));
    EXPECT_EQ(list[0].getState(), UiMarkedRect::InvalidBoth);
}

TEST(MarkedRectList, MarkInsideAnUndrawnEntryIsAbsorbed) {
    UiMarkedRectList list;
    list.mark({0, 30, 0, 30});
    list.mark({5, 10, 5, 10});
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].getRect(), (GeRectangle<int>{0, 30, 0, 30}));
}

TEST(MarkedRectList, MarkInsideAnEntryDrawnOnceWaitsForTheOtherBuffer) {
    UiMarkedRectList list;
    list.mark({0, 30, 0, 30});
    list.updateTransition();
    list.mark({5, 10, 5, 10});
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[1].getState(), UiMarkedRect::InsideDrawnOnce);
    EXPECT_EQ(dumpOf(list), "IV [0, 30) x [0, 30)\nDI [5, 10) x [5, 10)\n");

    // Next redraw: the outer one is valid in both buffers and goes; the inner one now needs
    // its single draw.
    list.updateTransition();
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].getRect(), (GeRectangle<int>{5, 10, 5, 10}));
    EXPECT_EQ(list[0].getState(), UiMarkedRect::DrawnOnce);
    list.updateTransition();
    EXPECT_TRUE(list.empty());
}

TEST(MarkedRectList, EqualMarkOnAnEntryDrawnOnceStartsOver) {
    UiMarkedRectList list;
    list.mark({0, 10, 0, 10});
    list.updateTransition();
    list.mark({0, 10, 0, 10});
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].getState(), UiMarkedRect::InvalidBoth);
}

TEST(MarkedRectList, EachRectangleIsDrawnInBothBuffersThenLeaves) {
    UiMarkedRectList list;
    list.mark({0, 10, 0, 10});
    list.mark({20, 30, 0, 10});
    EXPECT_EQ(dumpOf(list), "II [0, 10) x [0, 10)\nII [20, 30) x [0, 10)\n");
    list.updateTransition();
    EXPECT_EQ(dumpOf(list), "IV [0, 10) x [0, 10)\nIV [20, 30) x [0, 10)\n");
    list.updateTransition();
    EXPECT_TRUE(list.empty());
}

TEST(MarkedRectList, DumpPrintsTheValidState) {
    UiMarkedRect r({1, 2, 3, 4}, UiMarkedRect::ValidBoth);
    std::ostringstream os;
    r.dump(os);
    EXPECT_EQ(os.str(), "VV [1, 2) x [3, 4)");
}

} // namespace
} // namespace Zr
