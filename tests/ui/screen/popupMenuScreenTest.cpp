// A popup menu on a real window under real pointer and key input (XTest): its rows in the
// menu's colours, the highlight following the pointer, a submenu opening from its row, choices by
// pointer and by keys. With ZR_SCREENSHOT_DIR set, the open menus are written there as PNGs.
// Skipped without a display or XTest.
#include "xinputWindowFixture.h"

#include "uiColorRegistry.h"
#include "uiPopupMenu.h"
#include "uiRowCascading.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Zr;

namespace {

class PopupMenuScreen : public XInputTest::XInputWindowFixture {
protected:
    GeRectangle<int> windowRect() const override { return {100, 520, 100, 420}; }
    char const* windowTitle() const override { return "popup menu test"; }

    void SetUp() override {
        XInputWindowFixture::SetUp();
        if (IsSkipped())
            return;
        UiContainer* root = _top->getRootContainer().get();
        menu = UiPopupMenu::create(root, "menu");
        menu->appendText(LiString("Undo"), LiString("Ctrl+Z"), &log);
        menu->appendText(LiString("Redo"), LiString("Ctrl+Shift+Z"), &log);
        menu->appendSeparator();
        menu->appendToggle(LiString("Show Grid"), true, &log);
        sub = menu->appendCascade(LiString("Blend Mode"))->getPopup();
        for (char const* mode : {"Normal", "Add", "Multiply"})
            sub->appendText(LiString(mode), &log);
        menu->appendText(OsFilePath("anchor.tif"), "Set Anchor", "A", &log);
    }
    void TearDown() override {
        if (menu)
            menu->close();
        menu = nullptr;
        sub = nullptr;
        XInputWindowFixture::TearDown();
    }

    void open() {
        menu->launch({40, 280});
        pumpFor(60);
    }
    GePoint2<int> middleOf(UiPopupMenu& m, int row) const {
        GeRectangle<int> const r = m.getCoordOfRow(row);
        return {(r.x1 + r.x2) / 2, (r.y1 + r.y2) / 2};
    }
    static std::uint32_t rgba(char const* name) {
        CoRgbColor const c = UiColorRegistry::getInstance().getColor(name);
        auto byte = [](float v) { return std::uint32_t(v * 255.f + 0.5f); };
        return byte(c.r) << 24 | byte(c.g) << 16 | byte(c.b) << 8 | 0xffu;
    }
    void screenshot(char const* name) {
        if (char const* dir = std::getenv("ZR_SCREENSHOT_DIR"))
            _top->writeScreenshot(OsFilePath(std::string(dir) + "/" + name));
    }

    std::vector<std::string> chosen;
    CbFunction<EvEvent> log{[this](EvEvent& e) {
        chosen.push_back(dynamic_cast<UiRowSelectedEvent&>(e).getRow()->getString().str());
    }};
    RCShdPtr<UiPopupMenu> menu, sub;
};

TEST_F(PopupMenuScreen, RowsHighlightUnderThePointerAndTheSubmenuOpensBesideItsRow) {
    open();
    ASSERT_TRUE(menu->isDisplayed());
    // The empty mark column of the first row shows the menu's background, then the highlight.
    GeRectangle<int> const undo = menu->getCoordOfRow(0);
    EXPECT_EQ(pixel(undo.x1 + 2, undo.y1 + 2), rgba("Blue4"));
    moveTo(middleOf(*menu, 0).x, middleOf(*menu, 0).y);
    EXPECT_EQ(menu->getFocusIndex(), 0);
    EXPECT_EQ(pixel(undo.x1 + 2, undo.y1 + 2), rgba("Blue3"));
    screenshot("popupMenu.png");

    moveTo(middleOf(*menu, 4).x, middleOf(*menu, 4).y);
    ASSERT_TRUE(sub->isDisplayed());
    // Flush against the menu's right edge, its first row level with the cascading row.
    EXPECT_EQ(sub->getRect().x1, menu->getRect().x2);
    EXPECT_EQ(sub->getCoordOfRow(0).y2, menu->getCoordOfRow(4).y2);
    GeRectangle<int> const first = sub->getCoordOfRow(0);
    EXPECT_EQ(pixel(first.x2 - 3, first.y1 + 2), rgba("Blue4"));
    screenshot("popupSubmenu.png");

    GePoint2<int> const add = middleOf(*sub, 1);
    moveTo(add.x, add.y);
    button(true);
    button(false);
    EXPECT_EQ(chosen, std::vector<std::string>{"Add"});
    EXPECT_FALSE(menu->isDisplayed());
    EXPECT_FALSE(sub->isDisplayed());
    EXPECT_NE(pixel(undo.x1 + 2, undo.y1 + 2), rgba("Blue4"));
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
}

TEST_F(PopupMenuScreen, KeysMoveOverSeparatorsIntoSubmenusAndChoose) {
    struct Case {
        std::vector<char const*> keys;
        std::vector<std::string> chosen;
    };
    Case const cases[] = {
        {{"Down", "Return"}, {"Undo"}},
        {{"Down", "Down", "Return"}, {"Redo"}},
        {{"Down", "Down", "Down", "Return"}, {"Show Grid"}}, // the separator is skipped
        {{"Up", "Return"}, {"Set Anchor"}},                  // up from nothing: the last row
        {{"Up", "Up", "Right", "Down", "Return"}, {"Add"}},
        {{"Up", "Up", "Right", "Left", "Up", "Return"}, {"Show Grid"}},
        {{"Down", "Escape"}, {}},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.keys));
        chosen.clear();
        open();
        for (char const* k : c.keys)
            key(k);
        EXPECT_TRUE(pumpUntil([&] { return !menu->isDisplayed(); }, 1000));
        EXPECT_EQ(chosen, c.chosen);
        EXPECT_EQ(UiGrab::keyboard().getCurrent(), nullptr);
    }
}

} // namespace
