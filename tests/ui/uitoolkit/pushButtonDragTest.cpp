// Drag buttons: the handle follows the pointer from where it was taken, stays inside its
// parent, and reports only moves that change its place.
#include "buttonTestSupport.h"

#include "uiDragButton.h"

#include <gtest/gtest.h>

#include <vector>

namespace Zr {
namespace {

class DragButtonTest : public UiTest::ButtonFixture {
protected:
    void SetUp() override {
        ButtonFixture::SetUp();
        handle = UiDragButton::create(root.get(), "handle");
        handle->setRect({10, 40, 10, 30}, false);
        handle->addDragCb(&onDrag);
    }
    void TearDown() override {
        handle = nullptr;
        ButtonFixture::TearDown();
    }
    void moveTo(GePoint2<int> at) {
        EvPointerMoveEvent move;
        move.setWCoord(at);
        handle->processEvent(move);
    }
    GePoint2<int> origin() const { return {handle->getRect().x1, handle->getRect().y1}; }

    std::vector<GePoint2<int>> drags;
    CbFunction<EvEvent> onDrag{[this](EvEvent&) { drags.push_back(origin()); }};
    RCShdPtr<UiDragButton> handle;
};

TEST_F(DragButtonTest, FollowsThePointerFromWhereItWasTaken) {
    auto down = UiTest::makeDown(1, {15, 17});
    handle->processEvent(down);
    EXPECT_TRUE(holdsGrab(*handle));
    moveTo({50, 60});
    EXPECT_EQ(origin(), GePoint2<int>(45, 53));
    EXPECT_EQ(handle->getRect().width(), 30);
    auto up = UiTest::makeUp(1, {50, 60});
    handle->processEvent(up);
    EXPECT_FALSE(holdsGrab(*handle));
    moveTo({80, 80});
    EXPECT_EQ(drags, std::vector<GePoint2<int>>{GePoint2<int>(45, 53)});
}

TEST_F(DragButtonTest, StaysInsideItsParentAndReportsNoMoveThatChangesNothing) {
    auto down = UiTest::makeDown(1, {15, 15});
    handle->processEvent(down);
    moveTo({500, 500});
    EXPECT_EQ(origin(), GePoint2<int>(170, 80));
    moveTo({600, 400});
    moveTo({-100, -100});
    EXPECT_EQ(origin(), GePoint2<int>(0, 0));
    moveTo({-50, 2});
    EXPECT_EQ(drags, (std::vector<GePoint2<int>>{{170, 80}, {0, 0}}));
    auto up = UiTest::makeUp(1);
    handle->processEvent(up);
}

TEST_F(DragButtonTest, IsNotKeyboardFocusable) {
    EXPECT_FALSE(handle->isKeyboardFocusable());
}

} // namespace
} // namespace Zr
