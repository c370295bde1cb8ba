// A container with many children finds the children a mark reaches through a grid: the marks
// it leaves are those a walk of every child leaves, on scenes of overlapping, opaque and
// translucent children, for marks of a child, of a region, of a moved child and of a child a
// sibling has come over since its last mark.
#include "treeTestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <vector>

using namespace Zr;

namespace {

using Marks = std::vector<std::vector<GeRectangle<int>>>;

struct Scene {
    RCShdPtr<TreeTest::MappedWindow> window = TreeTest::MappedWindow::make({0, 640, 0, 480});
    RCShdPtr<UiContainer> panel = UiContainer::create(window.get(), "panel");
    std::vector<RCShdPtr<UiWidget>> children;

    explicit Scene(unsigned seed) {
        panel->setRect({0, 640, 0, 480});
        std::mt19937 random(seed);
        auto between = [&random](int low, int high) {
            return std::uniform_int_distribution<int>(low, high)(random);
        };
        for (int i = 0; i < 150; ++i) {
            int const x = between(-20, 620), y = between(-20, 460);
            RCShdPtr<UiWidget> w = UiWidget::create(panel.get(), "w");
            w->setRect({x, x + between(1, 90), y, y + between(1, 70)});
            if (i % 5 == 0)
                w->setOpacity(0.5f);
            children.push_back(w);
        }
        clear();
    }
    void clear() {
        panel->clearMarks();
        for (auto const& w : children)
            w->clearMarks();
    }
    Marks marks() const {
        Marks all{panel->getMarkedRects()};
        for (auto const& w : children)
            all.push_back(w->getMarkedRects());
        return all;
    }
};

TEST(ContainerGrid, MarksReachTheSameChildrenAsAWalkOfAllOfThem) {
    using Mark = std::function<void(Scene&)>;
    std::vector<Mark> const marks = {
        [](Scene& s) { s.children[7]->markForUpdate(); },
        [](Scene& s) { s.children[140]->markForUpdate(); },
        [](Scene& s) {
            s.panel->markRegion({100, 300, 50, 250});
        },
        [](Scene& s) {
            s.children[33]->setRect({300, 380, 200, 260});
        },
        [](Scene& s) { s.panel->front(s.children[3].get()); },
        [](Scene& s) { // marked alone, then again once a sibling above has come over it
            s.children[7]->markForUpdate();
            s.children[140]->setRect(s.children[7]->getRect());
            s.clear();
            s.children[7]->markForUpdate();
        },
    };
    for (unsigned seed : {1u, 2u, 3u, 4u}) {
        for (std::size_t i = 0; i < marks.size(); ++i) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", mark " + std::to_string(i));
            Marks results[2];
            for (int grid : {0, 1}) {
                UiContainer::setGridThreshold(grid ? 0 : 1000);
                Scene scene(seed);
                marks[i](scene);
                results[grid] = scene.marks();
            }
            EXPECT_EQ(results[1], results[0]);
        }
    }
    UiContainer::setGridThreshold(32);
}

} // namespace
