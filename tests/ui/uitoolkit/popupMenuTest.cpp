// Popup menus without a display: where a menu opens and how it stays inside its window, aligned
// columns, keys and the pointer through the window's routing, the grabs, cascading, filling by
// AboutToPop, the menu filled from the action registry, and bad input (a failing command, a
// submenu cycle, a menu of 1,000 rows).
#include "loopTestSupport.h"
#include "uiTestSupport.h"

#include "actRegistry.h"
#include "uiActionPopupMenu.h"
#include "uiCellText.h"
#include "uiPopupMenu.h"
#include "uiRowCascading.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Zr {
namespace {

using Rows = std::vector<std::string>;

class PopupMenu : public LoopTest::LoopFixture {
protected:
    void SetUp() override {
        LoopFixture::SetUp();
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({0, 400, 0, 300});
        style.setMainWindow(false);
        top = UiTopLevel::create("menus", nullptr, style);
        top->show();
        id = top->getOSWindow()->getId();
        root = top->getRootContainer().get();
        menu = UiPopupMenu::create(root, "menu");
    }
    void TearDown() override {
        menu->close();
        menu = nullptr;
        root->removeChildren();
        top = nullptr;
        LoopFixture::TearDown();
    }
    // Four rows: two with key names, a separator, and a cascading row with two rows.
    void fill() {
        menu->appendText(LiString("Undo"), LiString("Ctrl+Z"), &log, 10);
        menu->appendText(LiString("Redo"), &log, 11);
        menu->appendSeparator();
        sub = menu->appendCascade(LiString("Blend"), 13)->getPopup();
        sub->appendText(LiString("Add"), &log, 20);
        sub->appendText(LiString("Screen"), &log, 21);
    }
    void key(int code) {
        auto e = std::make_unique<EvKeyPressEvent>();
        e->setWindowId(id);
        e->setTriggerKey(code);
        send(std::move(e));
    }
    void move(GePoint2<int> at) { send(LoopTest::makeMove(id, at, 1.f, 0)); }
    void click(GePoint2<int> at) {
        send(LoopTest::makeDown(id, at, 1, 1));
        send(LoopTest::makeUp(id, at, 1, 0));
    }
    static GePoint2<int> middle(UiPopupMenu& m, int row) {
        GeRectangle<int> const r = m.getCoordOfRow(row);
        return {(r.x1 + r.x2) / 2, (r.y1 + r.y2) / 2};
    }
    bool grabbedBy(UiPopupMenu const& m) const {
        return UiGrab::pointer().getCurrent() == m.getEventHandler() &&
               UiGrab::keyboard().getCurrent() == m.getEventHandler();
    }

    RCShdPtr<UiTopLevel> top;
    WsWindowId id{};
    UiContainer* root = nullptr;
    RCShdPtr<UiPopupMenu> menu, sub;
    Rows chosen;
    CbFunction<EvEvent> log{[this](EvEvent& e) {
        chosen.push_back(dynamic_cast<UiRowSelectedEvent&>(e).getRow()->getString().str());
    }};
};

TEST_F(PopupMenu, OpensOnTheSideAskedAndStaysInsideTheWindow) {
    fill();
    menu->launch({0, 0});
    int const w = menu->getRect().width(), h = menu->getRect().height();
    menu->close();
    struct Case {
        GePoint2<int> at;
        UiPopupMenu::AlignPoint align;
        GeRectangle<int> expected;
    };
    Case const cases[] = {
        {{100, 200}, UiPopupMenu::BelowRight, {103, 103 + w, 197 - h, 197}},
        {{390, 200}, UiPopupMenu::BelowRight, {390 - w, 390, 197 - h, 197}}, // too wide: left
        {{200, 200}, UiPopupMenu::BelowLeft, {200 - w, 200, 197 - h, 197}},
        {{5, 200}, UiPopupMenu::BelowLeft, {0, w, 197 - h, 197}},   // kept off the left
        {{100, 10}, UiPopupMenu::BelowRight, {103, 103 + w, 0, h}}, // kept off the bottom
        {{100, 100}, UiPopupMenu::AboveRight, {103, 103 + w, 103, 103 + h}},
        {{100, 290}, UiPopupMenu::AboveRight, {103, 103 + w, 268 - h, 268}}, // too tall: below
        {{200, 100}, UiPopupMenu::AboveLeft, {200 - w, 200, 103, 103 + h}},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(testing::Message() << c.at.x << "," << c.at.y << " align " << c.align);
        menu->launch(c.at, c.align);
        EXPECT_EQ(menu->getRect(), c.expected);
        EXPECT_EQ(menu->getParent(), root);
        menu->close();
    }
    EXPECT_THROW(menu->launch({100, 100}, UiPopupMenu::AlignPoint(7)), ExBase);
}

TEST_F(PopupMenu, ASubmenuStandsFlushRightOfItsParentOrLeftOfItAtTheEdge) {
    fill();
    for (int x : {20, 390}) {
        SCOPED_TRACE(x);
        menu->launch({x, 250});
        menu->setSelection(3);
        key(EvKeyCode::Right);
        ASSERT_TRUE(sub->isDisplayed());
        EXPECT_EQ(sub->getParentPopup(), menu.get());
        if (x == 20)
            EXPECT_EQ(sub->getRect().x1, menu->getRect().x2);
        else
            EXPECT_EQ(sub->getRect().x2, menu->getRect().x1);
        EXPECT_TRUE(grabbedBy(*sub));
        EXPECT_EQ(sub->getFocusIndex(), 0);
        key(EvKeyCode::Left); // back to the parent, which takes the grabs again
        EXPECT_FALSE(sub->isDisplayed());
        EXPECT_TRUE(grabbedBy(*menu));
        key(EvKeyCode::Escape);
        EXPECT_FALSE(menu->isDisplayed());
        EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    }
}

TEST_F(PopupMenu, ColumnsLineUpOverRowsOfDifferentCellCounts) {
    fill();
    menu->appendToggle(LiString("Grid"), LiString("G"), true);
    menu->launch({20, 250});
    int const columns = menu->getRow(0)->getNbCells();
    for (int r = 0; r < menu->getNbOptions(); ++r) {
        SCOPED_TRACE(r);
        UiRow& row = *menu->getRow(r);
        ASSERT_EQ(row.getNbCells(), columns);
        for (int c = 0; c < columns; ++c)
            EXPECT_EQ(row.getCell(c)->getWidth(), menu->getRow(0)->getCell(c)->getWidth());
        EXPECT_EQ(row.getWidth(), menu->getCanvas().width());
    }
    // The key name column is as wide as its widest cell, and the text column as its own.
    auto* text = dynamic_cast<UiCellText*>(menu->getRow(0)->getCell(1));
    EXPECT_GE(menu->getRow(0)->getCell(1)->getWidth(), text->getDesiredWidth());
}

TEST_F(PopupMenu, KeysAndThePointerChooseThroughTheWindow) {
    struct Case {
        char const* name;
        std::function<void()> act;
        Rows chosen;
    };
    std::vector<Case> const cases = {
        {"Down Return", [&] { key(4), key(11); }, {"Undo"}},
        {"Down Down Down skips the separator, Return opens, Return chooses",
         [&] { key(4), key(4), key(4), key(11), key(11); },
         {"Add"}},
        {"Up wraps to the last row, Enter opens, Down, Enter",
         [&] { key(2), key(46), key(4), key(46); },
         {"Screen"}},
        {"Right on no focus takes the top row", [&] { key(3), key(11); }, {"Undo"}},
        {"click on a row", [&] { click(middle(*menu, 1)); }, {"Redo"}},
        {"click on the separator", [&] { click(middle(*menu, 2)); }, {}},
        {"move onto the cascading row, click in the submenu",
         [&] { move(middle(*menu, 3)), click(middle(*sub, 1)); },
         {"Screen"}},
        {"press outside closes",
         [&] {
             click({390, 10});
         },
         {}},
    };
    fill();
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        chosen.clear();
        menu->launch({20, 250});
        ASSERT_TRUE(grabbedBy(*menu));
        c.act();
        EXPECT_EQ(chosen, c.chosen);
        bool const stays = std::string(c.name) == "click on the separator";
        EXPECT_EQ(menu->isDisplayed(), stays);
        if (stays)
            menu->close();
        EXPECT_FALSE(sub->isDisplayed());
        EXPECT_EQ(UiGrab::keyboard().getCurrent(), nullptr);
    }
}

TEST_F(PopupMenu, TraversalLeavesTheMenuOpenForItsHandler) {
    fill();
    Rows calls;
    CbFunction<EvEvent> left([&](EvEvent&) { calls.push_back("left"); });
    CbFunction<EvEvent> right([&](EvEvent&) { calls.push_back("right"); });
    menu->addTraverseLeftCb(&left);
    menu->addTraverseRightCb(&right);
    menu->launch({20, 250});
    key(EvKeyCode::Left);
    key(EvKeyCode::Down);
    key(EvKeyCode::Right); // "Undo" has no submenu
    EXPECT_EQ(calls, (Rows{"left", "right"}));
    EXPECT_TRUE(menu->isDisplayed());
}

TEST_F(PopupMenu, OpeningFillsFromAboutToPopAndClosingRemovesOnRequest) {
    // Nothing to show: nothing opens and nothing is grabbed, but the cursor is pushed.
    menu->launch({20, 250});
    EXPECT_FALSE(menu->isDisplayed());
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    EXPECT_TRUE(UiApplication::getInstance().hasOverrideCursor());
    menu->close();
    EXPECT_FALSE(UiApplication::getInstance().hasOverrideCursor());

    CbFunction<EvEvent> filler([&](EvEvent& e) {
        auto& fill = dynamic_cast<UiPopulateReturnEvent&>(e);
        fill.getList().push_back(RCShdPtr<UiRow>(new UiRow(LiString("Listed"), 5)));
        fill.getList().back()->appendCell(std::make_unique<UiCellText>(LiString("Listed")));
        fill.setHandler(&log);
        menu->appendText(LiString("Direct"), &log, 4);
    });
    menu->addAboutToPopCb(&filler);
    menu->setRemoveOnClose(true);
    menu->launch({20, 250});
    EXPECT_EQ(menu->getNbOptions(), 2);
    key(EvKeyCode::Up);
    key(EvKeyCode::Return);
    EXPECT_EQ(chosen, Rows{"Listed"});
    EXPECT_EQ(menu->getNbOptions(), 0);
    menu->removeAboutToPopCb(&filler);
}

TEST_F(PopupMenu, ClosingDisarmsTheTriggerAndGivesItTheKeyboardBack) {
    fill();
    RCShdPtr<UiWidget> trigger = UiWidget::create(root, "trigger");
    trigger->setRect({10, 60, 10, 30});
    send(LoopTest::makeDown(id, {20, 20}, 4, 4)); // a right press arms the widget under it
    ASSERT_TRUE(UiArmStack::contains(trigger.get()));
    menu->launch({20, 20}, UiPopupMenu::AboveRight);
    EXPECT_EQ(menu->getTrigger(), trigger);
    send(LoopTest::makeUp(id, {20, 20}, 4, 0)); // the release that opened it closes nothing
    EXPECT_TRUE(menu->isDisplayed());
    key(EvKeyCode::Escape);
    EXPECT_FALSE(UiArmStack::contains(trigger.get()));
    EXPECT_EQ(UiFocusKeyboard::getInstance().getFocus(), trigger.get());
    EXPECT_EQ(menu->getTrigger(), nullptr);
}

TEST_F(PopupMenu, BadInputIsReportedAndTheMenuStaysUsable) {
    UiTest::Reports reports;
    // A command that throws: reported, the menu closed and grabs gone, and it opens again.
    CbFunction<EvEvent> failing([](EvEvent&) { throw std::runtime_error("disk full"); });
    menu->appendText(LiString("Save"), &failing);
    menu->appendText(LiString("Undo"), &log);
    menu->launch({20, 250});
    key(EvKeyCode::Down), key(EvKeyCode::Return);
    EXPECT_EQ(reports.ids(), Rows{"UITOOLKIT_MENU_ACTION_FAILED"});
    EXPECT_FALSE(menu->isDisplayed());
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    menu->launch({20, 250});
    key(EvKeyCode::Up), key(EvKeyCode::Return);
    EXPECT_EQ(chosen, Rows{"Undo"});

    // Submenu cycles, direct and through another menu: refused, nothing added.
    RCShdPtr<UiPopupMenu> other = menu->appendCascade(LiString("Other"))->getPopup();
    EXPECT_EQ(menu->appendCascade(LiString("Self"), menu), nullptr);
    EXPECT_EQ(other->appendCascade(LiString("Back"), menu), nullptr);
    EXPECT_EQ(menu->getNbOptions(), 3);
    EXPECT_EQ(other->getNbOptions(), 0);
    EXPECT_EQ(reports.ids().size(), 3u);
    EXPECT_EQ(reports.ids().back(), "UITOOLKIT_MENU_CYCLE");

    // A thousand rows: reported once, the menu kept inside the window, its rows scrolling to
    // the focus.
    menu->removeOptions(0);
    for (int i = 0; i < 1000; ++i)
        menu->appendText(LiString("Row " + std::to_string(i)), &log, i);
    menu->launch({20, 250});
    EXPECT_EQ(reports.ids().back(), "UITOOLKIT_MENU_TOO_TALL");
    EXPECT_LE(menu->getRect().height(), 300);
    EXPECT_LT(menu->getNbShownRows(), 1000);
    key(EvKeyCode::Up); // the last row
    EXPECT_EQ(menu->getFirstShownRow() + menu->getNbShownRows(), 1000);
    EXPECT_FALSE(menu->getCoordOfRow(999).isEmpty());
    key(EvKeyCode::Return);
    EXPECT_EQ(chosen.back(), "Row 999");
}

// Toggle rows flip their mark through the ready-made handler; a hot mark, or a menu that does not
// close on selection, stays open; in a reversed menu Up and Down swap.
TEST_F(PopupMenu, TogglesHotMarksAndReversedMenus) {
    CbFunction<EvEvent> flip(&UiPopupMenu::toggleCell);
    int changes = 0;
    CbFunction<EvEvent> changed([&](EvEvent&) { ++changes; });
    menu->addSelectionChangedCb(&changed);
    menu->appendToggle(LiString("Grid"), true, &flip);
    menu->appendToggle(LiString("Snap"), false, &flip);
    struct Case {
        char const* name;
        std::function<void()> setup;
        std::vector<int> keys;
        bool grid, snap, open;
    };
    std::vector<Case> const cases = {
        {"Return flips and closes", [] {}, {4, 11}, false, false, false},
        {"a hot mark stays open",
         [&] { menu->getRow(1)->getCell(0)->setHot(true); },
         {2, 11},
         false,
         true,
         true},
        {"no closing on selection",
         [&] { menu->setCloseOnSelection(false); },
         {4, 11},
         true,
         true,
         true},
        {"reversed: Down goes up",
         [&] { menu->setReverseOrder(true); },
         {4, 11},
         true,
         false,
         true},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.name);
        c.setup();
        menu->launch({20, 250});
        changes = 0;
        for (int k : c.keys)
            key(k);
        EXPECT_EQ(menu->getToggleState(0), c.grid);
        EXPECT_EQ(menu->getToggleState(1), c.snap);
        EXPECT_EQ(menu->isDisplayed(), c.open);
        EXPECT_EQ(changes, 1);
        menu->close();
    }
    menu->removeSelectionChangedCb(&changed);
}

// Actions of two groups, one with options and one that throws: rows in group order with a
// separator between the groups, a submenu for the options, and each choice performed.
TEST_F(PopupMenu, TheActionMenuListsAndPerformsTheRegistrysActions) {
    struct Action : ActAction {
        Action(std::string n, std::string g, Rows* log) : name(n), group(g), log(log) {}
        std::string getCompositeName() const override { return "test." + name; }
        std::string getDisplayString() const override { return name; }
        std::string getGroup() const override { return group; }
        void perform(SnSelection&, DrCarrier*) override {
            if (name == "Fail")
                throw std::runtime_error("no input");
            log->push_back(name);
        }
        std::vector<ActBasicParam> enumOptions(SnSelection const&, DrCarrier const*,
                                               ActBasicParam const*) const override {
            if (name != "Curve")
                return {};
            return {ActBasicParam("Linear", 1), ActBasicParam("Smooth", 2)};
        }
        void performOption(SnSelection&, DrCarrier*, ActBasicParam const& o) override {
            log->push_back(name + " " + o.getName());
        }
        std::string name, group;
        Rows* log;
    };
    ActRegistry registry;
    Rows performed;
    for (auto [n, g] : {std::pair{"Set Key", "b"}, {"Fail", "b"}, {"Curve", "a"}})
        registry.registerAction(std::make_unique<Action>(n, g, &performed), ActRegistry::Static);
    RCShdPtr<UiActionPopupMenu> actions =
        UiActionPopupMenu::create(root, "actions", nullptr, registry);
    actions->setActionsForSelection(SnSelection::create(), nullptr);
    UiTest::Reports reports;
    struct Case {
        std::vector<int> keys;
        Rows performed;
        Rows reports;
    };
    Case const cases[] = {
        {{2, 2, 11}, {"Set Key"}, {}},
        {{2, 11}, {}, {"UITOOLKIT_MENU_ACTION_FAILED"}},
        {{4, 3, 4, 11}, {"Curve Smooth"}, {}},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.keys.size());
        performed.clear();
        actions->launch({20, 250});
        Rows rows;
        for (int i = 0; i < actions->getNbOptions(); ++i)
            rows.push_back(actions->getRow(i)->getString().str());
        EXPECT_EQ(rows, (Rows{"Curve", "", "Set Key", "Fail"}));
        for (int k : c.keys)
            key(k);
        EXPECT_EQ(performed, c.performed);
        EXPECT_EQ(std::vector(reports.ids().end() - long(c.reports.size()), reports.ids().end()),
                  c.reports);
        EXPECT_FALSE(actions->isDisplayed());
    }
    actions->close();
}

} // namespace
} // namespace Zr
