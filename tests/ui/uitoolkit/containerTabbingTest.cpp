// Keyboard tabbing in a container: the tab order by reading order and by "TabStops", one tab
// step with its skips and wrap-around, and the Tab keys reaching it from the focus.
#include "treeTestSupport.h"

#include "uiFocusKeyboard.h"
#include "uiHotkeyRegistry.h"
#include "uiResText.h"

#include <gtest/gtest.h>

using namespace Zr;
using namespace Zr::TreeTest;

namespace {

// Four widgets in two rows, made out of reading order:
//     topLeft        topRight
//     bottomLeft   bottomMid
class ContainerTabbing : public ::testing::Test {
protected:
    void SetUp() override {
        root = MappedRoot::make({0, 300, 0, 200});
        panel = makeContainer(root.get(), "panel", {0, 300, 0, 200});
        panel->setKeyboardFocusable(false);
        bottomMid = makeWidget(panel.get(), "bottomMid", {100, 140, 10, 30});
        topRight = makeWidget(panel.get(), "topRight", {200, 240, 150, 170});
        bottomLeft = makeWidget(panel.get(), "bottomLeft", {10, 50, 10, 30});
        topLeft = makeWidget(panel.get(), "topLeft", {10, 50, 150, 170});
        panel->setTabbingEnabled(true);
    }
    void TearDown() override {
        UiFocusKeyboard::getInstance().setFocus(nullptr);
        panel->setTabbingEnabled(false);
        root->removeChildren();
    }
    std::vector<std::string> tabOrder() const {
        std::vector<RCShdPtr<UiWidget>> list;
        panel->getTabList(list, UiContainer::AllChildren);
        return namesOf(list);
    }
    static std::string focusName() {
        UiWidget* focus = UiFocusKeyboard::getInstance().getFocus();
        return focus ? focus->getName().str() : "(none)";
    }
    static EvKeyPressEvent tabPress(bool shift) {
        EvKeyPressEvent press;
        press.setTriggerKey(EvKeyCode::Tab);
        press.setKeyboardState(EvKeyboardState(shift ? EvKeyboardState::Shift : 0u));
        return press;
    }

    RCShdPtr<MappedRoot> root;
    RCShdPtr<UiContainer> panel;
    RCShdPtr<UiWidget> bottomMid, topRight, bottomLeft, topLeft;
};

} // namespace

TEST_F(ContainerTabbing, OrderIsTopRowsFirstThenLeftToRight) {
    EXPECT_EQ(tabOrder(),
              (std::vector<std::string>{"topLeft", "topRight", "bottomLeft", "bottomMid"}));
}

TEST_F(ContainerTabbing, NestedContainersJoinTheOrderUnlessTheyTabOnTheirOwn) {
    auto group = makeContainer(panel.get(), "group", {150, 300, 80, 120});
    group->setKeyboardFocusable(false);
    makeWidget(group.get(), "middle", {0, 20, 0, 20});
    auto own = makeContainer(panel.get(), "own", {0, 100, 80, 120});
    own->setKeyboardFocusable(false);
    makeWidget(own.get(), "ownChild", {0, 20, 0, 20});
    own->setTabbingEnabled(true);
    EXPECT_EQ(tabOrder(), (std::vector<std::string>{"topLeft", "topRight", "middle", "bottomLeft",
                                                    "bottomMid"}));
    own->setTabbingEnabled(false);
}

TEST_F(ContainerTabbing, TabStopsComeFirstInTheOrderNamed) {
    auto stops = makeShared<UiResText>("TabStops");
    stops->append("bottomMid");
    stops->append("topRight");
    stops->append("noSuchWidget");
    panel->changeResource(RCShdPtr<UiResource>(stops));
    EXPECT_EQ(panel->getTabStops().size(), 3u);
    // The others follow in the order of the children.
    EXPECT_EQ(tabOrder(),
              (std::vector<std::string>{"bottomMid", "topRight", "bottomLeft", "topLeft"}));
}

TEST_F(ContainerTabbing, StepSkipsDisabledEntriesAndWraps) {
    UiFocusKeyboard::getInstance().setFocus(topLeft);
    bottomLeft->enable(false);
    panel->tabStep(1);
    EXPECT_EQ(focusName(), "topRight");
    panel->tabStep(1);
    EXPECT_EQ(focusName(), "bottomMid");
    panel->tabStep(1);
    EXPECT_EQ(focusName(), "topLeft");
    panel->tabStep(2);
    EXPECT_EQ(focusName(), "bottomMid");
    // Hidden entries are skipped as well.
    topRight->hide();
    panel->tabStep(1);
    EXPECT_EQ(focusName(), "topLeft");
    panel->tabStep(1);
    EXPECT_EQ(focusName(), "bottomMid");
}

TEST_F(ContainerTabbing, StepWithEveryOtherEntryDisabledStaysOnTheStart) {
    UiFocusKeyboard::getInstance().setFocus(topRight);
    for (auto* w : {bottomMid.get(), bottomLeft.get(), topLeft.get()})
        w->enable(false);
    panel->tabStep(1);
    EXPECT_EQ(focusName(), "topRight");
    EXPECT_EQ(panel->getTabIndex(), 1);
    panel->tabStep(2);
    EXPECT_EQ(focusName(), "topRight");
}

TEST_F(ContainerTabbing, StepWithoutFocusStartsAtEitherEnd) {
    panel->tabStep(1);
    EXPECT_EQ(focusName(), "topLeft");
    UiFocusKeyboard::getInstance().setFocus(nullptr);
    panel->tabStep(2);
    // The index kept from the first step is the start: one step back from topLeft wraps.
    EXPECT_EQ(focusName(), "bottomMid");
}

TEST_F(ContainerTabbing, NewAndRemovedChildrenReachTheCachedOrder) {
    UiFocusKeyboard::getInstance().setFocus(topLeft);
    panel->tabStep(1);
    auto late = makeWidget(panel.get(), "late", {100, 140, 150, 170});
    panel->removeChild(bottomMid);
    UiFocusKeyboard::getInstance().setFocus(topLeft);
    panel->tabStep(1);
    EXPECT_EQ(focusName(), "late");
    EXPECT_EQ(namesOf(panel->getCachedTabList()),
              (std::vector<std::string>{"topLeft", "late", "topRight", "bottomLeft"}));
}

TEST_F(ContainerTabbing, TabKeysFromTheFocusStepThroughTheContainer) {
    UiFocusKeyboard::getInstance().setFocus(topLeft);
    EvKeyPressEvent next = tabPress(false);
    UiFocusKeyboard::getInstance().processEvent(next);
    EXPECT_TRUE(next.isProcessed());
    EXPECT_EQ(focusName(), "topRight");
    EvKeyPressEvent previous = tabPress(true);
    UiFocusKeyboard::getInstance().processEvent(previous);
    EXPECT_EQ(focusName(), "topLeft");
    // Another modifier is another key: nothing moves and the key stays unprocessed.
    EvKeyPressEvent ctrlTab = tabPress(false);
    ctrlTab.setKeyboardState(EvKeyboardState(EvKeyboardState::Control));
    UiFocusKeyboard::getInstance().processEvent(ctrlTab);
    EXPECT_FALSE(ctrlTab.isProcessed());
    EXPECT_EQ(focusName(), "topLeft");
}

TEST_F(ContainerTabbing, RegistryHotkeysReachTheContainer) {
    UiFocusKeyboard::getInstance().setFocus(topLeft);
    EvKeyPressEvent next = tabPress(false);
    UiHotkeyRegistry::getInstance().processEvent(next);
    EXPECT_TRUE(next.isProcessed());
    EXPECT_EQ(focusName(), "topRight");
}

TEST_F(ContainerTabbing, DisabledTabbingLeavesTabKeysAlone) {
    UiFocusKeyboard::getInstance().setFocus(topLeft);
    panel->setTabbingEnabled(false);
    EvKeyPressEvent next = tabPress(false);
    UiFocusKeyboard::getInstance().processEvent(next);
    EXPECT_FALSE(next.isProcessed());
    UiHotkeyRegistry::getInstance().processEvent(next);
    EXPECT_FALSE(next.isProcessed());
    EXPECT_EQ(focusName(), "topLeft");
}

TEST_F(ContainerTabbing, RefreshKeepsTheIndexAndRefocuses) {
    UiFocusKeyboard::getInstance().setFocus(topLeft);
    panel->tabStep(1);
    UiFocusKeyboard::getInstance().setFocus(nullptr);
    panel->refreshTabbingState();
    EXPECT_EQ(focusName(), "topRight");
}
