// UiMarkedRectList: marking with containment, the two-buffer update transition and the dump.
#include "uiMarkedRect.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Zr {
namespace {

// Each step is "x1 x2 y1 y2" (a mark) or "t" (an update transition), and the list's dump after
// it; a dump line is the state code of the two buffers and the rectangle.
struct Step {
    char const* action;
    char const* dump;
};

struct MarkScript {
    char const* behaviour;
    std::vector<Step> steps;
};

MarkScript const scripts[] = {
    {"an empty rectangle is ignored", {{"5 5 0 10", ""}, {"0 10 3 3", ""}}},
    {"the same rectangle twice gives one entry",
     {{"0 10 0 10", "II [0, 10) x [0, 10)\n"}, {"0 10 0 10", "II [0, 10) x [0, 10)\n"}}},
    {"a larger mark replaces contained entries of any state",
     {{"0 5 0 5", "II [0, 5) x [0, 5)\n"},
      {"t", "IV [0, 5) x [0, 5)\n"},
      {"20 25 0 5", "IV [0, 5) x [0, 5)\nII [20, 25) x [0, 5)\n"},
      {"0 30 0 10", "II [0, 30) x [0, 10)\n"}}},
    {"a mark inside an undrawn entry is absorbed",
     {{"0 30 0 30", "II [0, 30) x [0, 30)\n"}, {"5 10 5 10", "II [0, 30) x [0, 30)\n"}}},
    {"a mark inside an entry drawn once waits for the other buffer",
     {{"0 30 0 30", "II [0, 30) x [0, 30)\n"},
      {"t", "IV [0, 30) x [0, 30)\n"},
      {"5 10 5 10", "IV [0, 30) x [0, 30)\nDI [5, 10) x [5, 10)\n"},
      {"t", "IV [5, 10) x [5, 10)\n"},
      {"t", ""}}},
    {"an equal mark on an entry drawn once starts over",
     {{"0 10 0 10", "II [0, 10) x [0, 10)\n"},
      {"t", "IV [0, 10) x [0, 10)\n"},
      {"0 10 0 10", "II [0, 10) x [0, 10)\n"}}},
    {"each rectangle is drawn in both buffers, then leaves",
     {{"0 10 0 10", "II [0, 10) x [0, 10)\n"},
      {"20 30 0 10", "II [0, 10) x [0, 10)\nII [20, 30) x [0, 10)\n"},
      {"t", "IV [0, 10) x [0, 10)\nIV [20, 30) x [0, 10)\n"},
      {"t", ""}}},
};

TEST(MarkedRectList, MarksAndTransitionsFollowTheContainmentRules) {
    for (MarkScript const& script : scripts) {
        SCOPED_TRACE(script.behaviour);
        UiMarkedRectList list;
        for (Step const& step : script.steps) {
            SCOPED_TRACE(step.action);
            std::istringstream in(step.action);
            int x1, x2, y1, y2;
            if (in >> x1 >> x2 >> y1 >> y2)
                list.mark({x1, x2, y1, y2});
            else
                list.updateTransition();
            std::ostringstream dump;
            list.dump(dump);
            EXPECT_EQ(dump.str(), step.dump);
        }
        EXPECT_EQ(list.empty(), std::string(script.steps.back().dump).empty());
    }
    UiMarkedRect valid({1, 2, 3, 4}, UiMarkedRect::ValidBoth);
    std::ostringstream os;
    valid.dump(os);
    EXPECT_EQ(os.str(), "VV [1, 2) x [3, 4)");
}

} // namespace
} // namespace Zr
