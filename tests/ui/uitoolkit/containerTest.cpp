// UiContainer as a client sees it: stacking and hit testing, sizes passed to the children, the
// on-top child, damage carried up and down, the finders; and keyboard tabbing: the tab order by
// reading order and by "TabStops", one tab step with its skips and wrap-around, and the Tab keys
// reaching it from the focus.
#include "treeTestSupport.h"
#include "uiFocusKeyboard.h"
#include "uiFrame.h"
#include "uiGroup.h"
#include "uiHotkeyRegistry.h"
#include "uiMarkedRect.h"
#include "uiResText.h"
#include "uiWidgetEvent.h"

#include <gtest/gtest.h>

using namespace Zr;

using namespace Zr::TreeTest;

namespace {

std::vector<GeRectangle<int>> marksOf(UiWidget& w) {
    return w.getMarkedRects();
}

class ContainerStacking : public ::testing::Test {
protected:
    void SetUp() override {
        root = MappedRoot::make({0, 200, 0, 100});
        a = makeWidget(root.get(), "a", {0, 50, 0, 50});
        b = makeWidget(root.get(), "b", {25, 75, 0, 50});
        c = makeWidget(root.get(), "c", {100, 150, 0, 50});
    }
    void TearDown() override { root->removeChildren(); }

    RCShdPtr<MappedRoot> root;
    RCShdPtr<UiWidget> a, b, c;
};

} // namespace

TEST_F(ContainerStacking, FindWidgetAtAnswersTheTopmostChild) {
    EXPECT_EQ(root->findWidgetAt({30, 10}), b.get());
    EXPECT_EQ(root->findWidgetAt({10, 10}), a.get());
    // Outside every child the container answers itself; outside it, nobody.
    EXPECT_EQ(root->findWidgetAt({90, 10}), root.get());
    EXPECT_EQ(root->findWidgetAt({250, 10}), nullptr);
}

TEST_F(ContainerStacking, FrontBackPushAndPopReorder) {
    root->front(a.get());
    EXPECT_EQ(namesOf(root->getChildrenList()), (std::vector<std::string>{"b", "c", "a"}));
    EXPECT_EQ(root->findWidgetAt({30, 10}), a.get());
    root->back(a.get());
    EXPECT_EQ(namesOf(root->getChildrenList()), (std::vector<std::string>{"a", "b", "c"}));
    root->push(a.get());
    EXPECT_EQ(namesOf(root->getChildrenList()), (std::vector<std::string>{"b", "a", "c"}));
    root->pop(c.get());
    EXPECT_EQ(namesOf(root->getChildrenList()), (std::vector<std::string>{"b", "c", "a"}));
    // Moves past either end and moves of strangers change nothing.
    root->push(a.get());
    root->pop(b.get());
    RCShdPtr<UiWidget> stranger = UiWidget::create(nullptr, "stranger");
    root->front(stranger.get());
    EXPECT_EQ(namesOf(root->getChildrenList()), (std::vector<std::string>{"b", "c", "a"}));
    // The moved child is displayed and mapped again afterwards.
    EXPECT_TRUE(a->isDisplayed());
    EXPECT_TRUE(a->isMapped());
}

TEST_F(ContainerStacking, HiddenChildIsSkippedByHitTest) {
    b->hide();
    EXPECT_EQ(root->findWidgetAt({30, 10}), a.get());
    b->show();
    EXPECT_EQ(root->findWidgetAt({30, 10}), b.get());
}

TEST(ContainerEmpty, AnswersItselfInsideAndNothingOutsideOrUnmapped) {
    auto root = MappedRoot::make({10, 60, 10, 60});
    EXPECT_EQ(root->findWidgetAt({20, 20}), root.get());
    EXPECT_EQ(root->findWidgetAt({5, 20}), nullptr);
    RCShdPtr<UiContainer> unmapped = UiContainer::create(nullptr, "loose");
    EXPECT_FALSE(unmapped->isMapped());
    EXPECT_EQ(unmapped->findWidgetAt({1, 1}), nullptr);
}

TEST(ContainerEmpty, ChildrenCoordinatesAreRelativeToTheCanvas) {
    auto root = MappedRoot::make({0, 300, 0, 300});
    auto panel = makeContainer(root.get(), "panel", {100, 200, 100, 200});
    auto inner = makeWidget(panel.get(), "inner", {0, 10, 0, 10});
    EXPECT_EQ(root->findWidgetAt({105, 105}), inner.get());
    EXPECT_EQ(root->findWidgetAt({115, 105}), panel.get());
    root->removeChildren();
}

namespace {

// A mapped root 100 by 100 that takes its children with it.
class ContainerTree : public ::testing::Test {
protected:
    void TearDown() override { root->removeChildren(); }
    RCShdPtr<MappedRoot> root = MappedRoot::make({0, 100, 0, 100});
    RCShdPtr<UiWidget> add(LiString const& name) {
        return makeWidget(root.get(), name, {0, 10, 0, 10});
    }
    std::vector<std::string> children() const { return namesOf(root->getChildrenList()); }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(ContainerTree, OnTopChildStaysLastUntilItOrAllChildrenAreRemoved) {
    auto a = add("a");
    auto top = add("top");
    root->setAlwaysOnTop(top.get());
    add("b");
    root->addChild(UiWidget::create(nullptr, "c"));
    EXPECT_EQ(children(), (Names{"a", "b", "c", "top"}));
    root->front(a.get());
    EXPECT_EQ(children(), (Names{"b", "c", "a", "top"}));
    EXPECT_EQ(root->findWidgetAt({5, 5}), top.get());

    // Removing it forgets it: later children are simply appended.
    root->removeChild(top);
    EXPECT_TRUE(root->getAlwaysOnTop().isNull());
    add("x");
    EXPECT_EQ(children(), (Names{"b", "c", "a", "x"}));

    root->setAlwaysOnTop(a.get());
    root->removeChildren();
    EXPECT_TRUE(root->getChildrenList().empty());
    EXPECT_TRUE(root->getAlwaysOnTop().isNull());
    EXPECT_EQ(a->getParent(), nullptr);
    add("x");
    add("y");
    EXPECT_EQ(children(), (Names{"x", "y"}));
}

TEST_F(ContainerTree, RemovedChildDiesWithItsLastReference) {
    add("a");
    int destroyed = 0;
    CbFunction<EvEvent> onDestroy([&destroyed](EvEvent&) { ++destroyed; });
    root->getChildrenList().front()->addDestroyCb(&onDestroy);
    root->removeChild(root->findWidget("a"));
    EXPECT_EQ(destroyed, 1);
    EXPECT_TRUE(root->getChildrenList().empty());
}

TEST(ContainerResize, MoveKeepingTheSizeDoesNotReachTheChildren) {
    std::vector<std::string> log;
    auto root = MappedRoot::make({0, 400, 0, 400});
    auto panel = makeContainer(root.get(), "panel", {0, 100, 0, 50});
    ProbeWidget::make(panel.get(), "first", {0, 10, 0, 10}, &log);
    ProbeWidget::make(panel.get(), "second", {0, 10, 0, 10}, &log);
    CbFunction<EvEvent> onResize([&log](EvEvent& e) {
        auto& r = dynamic_cast<UiResize&>(e);
        log.push_back("resize " + std::to_string(r.getRegion().width()));
    });
    panel->addResizeCb(&onResize);

    panel->setRect({20, 120, 30, 80});
    EXPECT_EQ(log, (std::vector<std::string>{"resize 100"}));

    log.clear();
    panel->setRect({20, 140, 30, 90});
    // Bottom to top, with the canvas size, and all before the container's own resize.
    EXPECT_EQ(log, (std::vector<std::string>{"first parentResize 120x60",
                                             "second parentResize 120x60", "resize 120"}));

    log.clear();
    panel->setRect({20, 140, 30, 90});
    EXPECT_TRUE(log.empty());
    panel->setRect({0, 50, 0, 50}, false);
    EXPECT_EQ(log,
              (std::vector<std::string>{"first parentResize 50x50", "second parentResize 50x50"}));
    root->removeChildren();
}

TEST_F(ContainerTree, EnableColourAndMappingReachTheChildren) {
    auto panel = makeContainer(root.get(), "panel", {0, 50, 0, 50});
    auto child = makeWidget(panel.get(), "child", {0, 10, 0, 10});
    panel->enable(false);
    EXPECT_FALSE(child->isEnabled());
    EXPECT_FALSE(child->isSelfDisabled());
    panel->enable(true);
    EXPECT_TRUE(child->isEnabled());

    CoRgbColor const teal(0.f, 0.5f, 0.5f);
    panel->setColor(UiWidget::BackgroundColor, teal);
    EXPECT_EQ(child->getParentBackground(), teal);

    EXPECT_TRUE(child->isMapped());
    panel->hide();
    EXPECT_FALSE(child->isMapped());
    EXPECT_TRUE(child->isDisplayed());
    panel->show();
    EXPECT_TRUE(child->isMapped());
}

namespace {

class ContainerMarks : public ::testing::Test {
protected:
    void SetUp() override {
        window = MappedWindow::make({0, 300, 0, 300});
        panel = makeContainer(window.get(), "panel", {100, 200, 100, 200});
        cover = makeWidget(panel.get(), "cover", {0, 50, 0, 100});
        clearAll();
    }
    void TearDown() override { window->removeChildren(); }
    void clearAll() {
        window->clearMarks();
        panel->clearMarks();
        cover->clearMarks();
    }

    RCShdPtr<MappedWindow> window;
    RCShdPtr<UiContainer> panel;
    RCShdPtr<UiWidget> cover;
};

} // namespace

TEST_F(ContainerMarks, OpaqueChildCutsTheContainersShareOnTheWayDown) {
    panel->markRegion({100, 200, 100, 200});
    // The child, in the panel's canvas, takes its own part...
    EXPECT_EQ(marksOf(*cover), (std::vector<GeRectangle<int>>{{0, 50, 0, 100}}));
    // ...and the panel keeps only what the child leaves, in its parent's coordinates.
    EXPECT_EQ(marksOf(*panel), (std::vector<GeRectangle<int>>{{150, 200, 100, 200}}));
    EXPECT_TRUE(window->needsRedraw());
}

TEST_F(ContainerMarks, RegionWhollyUnderOpaqueChildrenMarksOnlyThem) {
    panel->markRegion({110, 140, 110, 140});
    EXPECT_EQ(marksOf(*cover), (std::vector<GeRectangle<int>>{{10, 40, 10, 40}}));
    EXPECT_TRUE(marksOf(*panel).empty());
}

TEST_F(ContainerMarks, TranslucentChildLetsTheContainerRepaint) {
    cover->setOpacity(0.5f);
    clearAll();
    panel->markRegion({100, 200, 100, 200});
    EXPECT_EQ(marksOf(*panel), (std::vector<GeRectangle<int>>{{100, 200, 100, 200}}));
}

TEST_F(ContainerMarks, MarkOfALowerChildReachesTheSiblingAboveIt) {
    // `under` lies below `cover` in the stacking order: its damage shows through `cover`'s
    // place only as `cover`'s own repaint.
    window->removeChildren();
    panel = makeContainer(window.get(), "panel", {100, 200, 100, 200});
    auto under = makeWidget(panel.get(), "under", {0, 100, 0, 100});
    cover = makeWidget(panel.get(), "cover", {0, 50, 0, 100});
    clearAll();
    under->clearMarks();
    under->markRegion(under->getRect());
    EXPECT_EQ(marksOf(*cover), (std::vector<GeRectangle<int>>{{0, 50, 0, 100}}));
    // The opaque sibling has taken its strip out of what `under` repaints.
    EXPECT_EQ(marksOf(*under), (std::vector<GeRectangle<int>>{{50, 100, 0, 100}}));
}

TEST_F(ContainerMarks, EmptyRegionOrHiddenContainerMarksNothing) {
    panel->markRegion({120, 120, 100, 200});
    panel->hide();
    clearAll();
    panel->markRegion({100, 200, 100, 200});
    EXPECT_TRUE(marksOf(*panel).empty());
    EXPECT_TRUE(marksOf(*cover).empty());
    panel->show();
}

TEST_F(ContainerMarks, ChildMarksAreClippedToTheCanvas) {
    UiFrameRegistry::registerDefaultFrames();
    RCShdPtr<UiFrame> border = UiFrameRegistry::getInstance().create("BorderDecorator");
    border->decorate(UiFrameRegistry::getInstance().create("None"));
    panel->setFrame(border, UiWidget::DefaultFrame);
    // The canvas is now inset by one pixel; a child reaching below it is half over the frame.
    ASSERT_EQ(panel->getCanvas(), (GeRectangle<int>{101, 199, 101, 199}));
    cover->setRect({-5, 20, -5, 20});
    clearAll();
    panel->markRegion({100, 200, 100, 200});
    EXPECT_EQ(marksOf(*cover), (std::vector<GeRectangle<int>>{{0, 20, 0, 20}}));
    // The frame strip lies outside the canvas: the panel marks the whole request.
    EXPECT_EQ(marksOf(*panel), (std::vector<GeRectangle<int>>{{100, 200, 100, 200}}));
}

TEST_F(ContainerMarks, RemovingAChildDamagesItsPlace) {
    panel->removeChild(cover);
    EXPECT_EQ(marksOf(*panel), (std::vector<GeRectangle<int>>{{100, 150, 100, 200}}));
}

TEST_F(ContainerMarks, CanvasHiddenOnlyWhenOpaqueChildrenCoverIt) {
    EXPECT_EQ(panel->computeCanvasHidden(), 0);
    auto rest = makeWidget(panel.get(), "rest", {50, 100, 0, 100});
    EXPECT_EQ(panel->computeCanvasHidden(), 1);
    rest->setOpacity(0.99f);
    EXPECT_EQ(panel->computeCanvasHidden(), 0);
    rest->setOpacity(1.0f);
    rest->hide();
    EXPECT_EQ(panel->computeCanvasHidden(), 0);
}

TEST_F(ContainerTree, FindersByNameByPredicateAndRecursively) {
    auto panel = makeContainer(root.get(), "panel", {0, 50, 0, 50});
    auto deep = makeWidget(panel.get(), "deep", {0, 10, 0, 10});
    auto shallow = makeWidget(root.get(), "shallow", {0, 10, 0, 10});
    EXPECT_EQ(root->findWidget("shallow"), shallow);
    EXPECT_TRUE(root->findWidget("deep").isNull());
    EXPECT_EQ(root->findWidgetRecursive("deep"), deep);
    EXPECT_TRUE(root->findWidgetRecursive("nowhere").isNull());

    auto small = [](UiWidget const& w) { return w.getRect().width() == 10; };
    Iterator<RCShdPtr<UiWidget>> direct = root->findWidgets(small);
    EXPECT_EQ(direct.getCardinality(), 1);
    Iterator<RCShdPtr<UiWidget>> all = root->findWidgetsRecursive(small);
    std::vector<std::string> names;
    for (; !all.atEnd(); ++all)
        names.push_back((*all)->getName().str());
    EXPECT_EQ(names, (std::vector<std::string>{"deep", "shallow"}));
    EXPECT_TRUE(root->findGroup("panel").isNull());
}

TEST_F(ContainerTree, ForEachVisitsBottomToTop) {
    for (char const* n : {"one", "two", "three"})
        add(n);
    struct Collect : UiContainer::FunctorObj {
        std::vector<std::string> names;
        void apply(RCShdPtr<UiWidget> const& w) override { names.push_back(w->getName().str()); }
    } collect;
    root->forEach(collect);
    EXPECT_EQ(collect.names, (std::vector<std::string>{"one", "two", "three"}));
}

TEST(ContainerLifetime, ChildOutlivingItsContainerHasNoParent) {
    RCShdPtr<UiWidget> survivor;
    {
        auto root = MappedRoot::make({0, 100, 0, 100});
        survivor = makeWidget(root.get(), "survivor", {0, 10, 0, 10});
    }
    EXPECT_EQ(survivor->getParent(), nullptr);
    EXPECT_FALSE(survivor->isMapped());
}

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
        return UiTest::keyPressOf(EvKeyCode::Tab, shift ? EvKeyboardState::Shift : 0u);
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
