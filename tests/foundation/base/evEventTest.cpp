// Events: clones keep type and fields, releases built from presses, coordinates relative to the
// origin, compressed moves; the event manager and the relation dictionary.
#include "evEvent.h"
#include "evEventManager.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

#include <mutex>
#include <sstream>
#include <thread>
#include <vector>

namespace Zr {
namespace {

EvPointerButtonDownEvent makeDown() {
    EvPointerButtonDownEvent down;
    down.setWindowId(7);
    down.setOrigin(GePoint2<int>(10, 20));
    down.setWCoord(GePoint2<int>(15, 28));
    down.setKeyboardState(EvKeyboardState(EvKeyboardState::Shift | EvKeyboardState::Alt));
    down.setPointerState(EvPointerState(EvPointerState::Left | EvPointerState::Right));
    down.setTriggerButton(EvPointerState::Left);
    down.setDoubleClick(true);
    down.setPenPressure(0.25f);
    return down;
}

TEST(EvEventTest, CloneKeepsDynamicTypeAndFields) {
    EvPointerButtonDownEvent down = makeDown();
    down.setProcessed(true);
    OPtr<EvEvent> copy = static_cast<EvEvent const&>(down).clone();
    auto* typed = dynamic_cast<EvPointerButtonDownEvent*>(copy.get());
    ASSERT_NE(typed, nullptr);
    EXPECT_STREQ(copy->getClassName(), "EvPointerButtonDownEvent");
    EXPECT_TRUE(typed->isProcessed());
    EXPECT_EQ(typed->getWCoord(), GePoint2<int>(15, 28));
    EXPECT_TRUE(typed->isDoubleClick());
    EXPECT_FLOAT_EQ(typed->getPenPressure(), 0.25f);
    EvKeyPressEvent key;
    key.setTriggerKey(79);
    EXPECT_EQ(dynamic_cast<EvKeyPressEvent&>(*key.clone()).getTriggerKey(), 79);
    EvTooltipEvent tip(GePoint2<int>(1, 2), "hint", GeRectangle<int>{0, 10, 0, 5});
    EXPECT_EQ(dynamic_cast<EvTooltipEvent&>(*tip.clone()).getTooltip(), "hint");
}

TEST(EvEventTest, UpBuiltFromDownReleasesTheTriggerButton) {
    EvPointerButtonUpEvent up(makeDown());
    EXPECT_EQ(up.getWindowId(), 7u);
    EXPECT_EQ(up.getCoord(), GePoint2<int>(5, 8));
    EXPECT_EQ(up.getTriggerButton(), 1u);
    EXPECT_EQ(up.getKeyboardState().getState(), 5u);
    EXPECT_FALSE(up.getPointerState().isEnabled(EvPointerState::Left));
    EXPECT_TRUE(up.getPointerState().isEnabled(EvPointerState::Right));
    EXPECT_FALSE(up.isProcessed());
}

TEST(EvEventTest, CoordinatesAreRelativeToTheOriginAndCompressedMovesPrependOlderOnes) {
    EvPointerMoveEvent move;
    move.setWCoord(GePoint2<int>(100, 50));
    EXPECT_EQ(move.getCoord(), GePoint2<int>(100, 50));
    move.setOrigin(GePoint2<int>(30, 10));
    EXPECT_EQ(move.getCoord(), GePoint2<int>(70, 40));
    EXPECT_EQ(move.getWCoord(), GePoint2<int>(100, 50)); // rebasing leaves the window place
    move.setCoord(GePoint2<int>(1, 1));
    EXPECT_EQ(move.getWCoord(), GePoint2<int>(31, 11));
    // Compressed moves prepend older data.
    move.prependCompressedData({GePoint2<int>(3, 3)}, {0.3f});
    move.prependCompressedData({GePoint2<int>(1, 1), GePoint2<int>(2, 2)}, {0.1f, 0.2f});
    EXPECT_EQ(move.getCompressedCoords(), (std::vector<GePoint2<int>>{{1, 1}, {2, 2}, {3, 3}}));
    EXPECT_EQ(move.getCompressedPressures(), (std::vector<float>{0.1f, 0.2f, 0.3f}));
    EXPECT_EQ(dynamic_cast<EvPointerMoveEvent&>(*move.clone()).getCompressedCoords().size(), 3u);
}

TEST(EvEventTest, DumpReadsBack) {
    EvPointerButtonDownEvent down = makeDown();
    std::stringstream text;
    down.dump(text);
    EvPointerButtonDownEvent back;
    back.read(text);
    EXPECT_EQ(back.getWCoord(), down.getWCoord());
    EXPECT_EQ(back.getOrigin(), down.getOrigin());
    EXPECT_EQ(back.getTriggerButton(), down.getTriggerButton());
    EXPECT_EQ(back.getPointerState(), down.getPointerState());
    EXPECT_TRUE(back.isDoubleClick());
}

struct CollectingManager : EvEventManager {
    void postRequest(OPtr<EvRequestEvent> request) override {
        std::lock_guard<std::mutex> lock(mutex);
        requests.push_back(std::move(request));
    }
    std::mutex mutex;
    std::vector<OPtr<EvRequestEvent>> requests;
};

TEST(EvEventManagerTest, RequestsPostedFromAnyThreadReachTheManager) {
    EXPECT_EQ(EvEventManager::getInstance(), nullptr);
    CollectingManager manager;
    EvEventManager::initialize(&manager);
    ASSERT_EQ(EvEventManager::getInstance(), &manager);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([] {
            for (int i = 0; i < 25; ++i)
                EvEventManager::getInstance()->postRequest(std::make_unique<EvRequestEvent>());
        });
    for (auto& t : threads)
        t.join();
    EXPECT_EQ(manager.requests.size(), 100u);
    EvEventManager::initialize(nullptr);
    EXPECT_EQ(EvEventManager::getInstance(), nullptr);
}

TEST(EvDictionaryTest, RelationsAreNumberedOnceAndUnknownsRaise) {
    EvDictionary& dict = EvDictionary::getInstance();
    int first = dict.defineRelation("answers");
    int second = dict.defineRelation("cancels");
    EXPECT_EQ(second, first + 1);
    EXPECT_EQ(dict.defineRelation("answers"), first);
    EXPECT_EQ(dict.getRelationName(first), "answers");
    EXPECT_EQ(TestSupport::reasonOf<EvUndefinedRelation>([&] { dict.getRelation("unknown"); }),
              "Undefined event relation: unknown");
    EXPECT_THROW(dict.getRelationName(-1), EvUndefinedRelation);
}

} // namespace
} // namespace Zr
