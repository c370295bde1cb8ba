// UiHotkey's text and XML forms, and which key events it matches.
#include "uiHotkey.h"

#include "xmlDocument.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace Zr;

namespace {
EvKeyPressEvent press(int key, unsigned modifiers = 0) {
    EvKeyPressEvent e;
    e.setTriggerKey(key);
    e.setKeyboardState(EvKeyboardState(modifiers));
    return e;
}
} // namespace

TEST(HotkeyText, RoundTripsWithAndWithoutModifiers) {
    UiHotkey tab(EvKeyCode::Tab, EvKeyboardState());
    EXPECT_EQ(tab.toString(), "Tab");
    UiHotkey shiftCtrlTab(EvKeyCode::Tab,
                          EvKeyboardState(EvKeyboardState::Shift | EvKeyboardState::Control));
    EXPECT_EQ(shiftCtrlTab.toString(), "shift+ctrl+Tab");
    EXPECT_EQ(UiHotkey::fromString("shift+ctrl+Tab"), shiftCtrlTab);
    EXPECT_EQ(UiHotkey::fromString("Ctrl+Shift+Tab"), shiftCtrlTab);
}

TEST(HotkeyText, ParseStringKeepsThePlusKey) {
    EvKeyboardState state(EvKeyboardState::Alt);
    int key = 0;
    UiHotkey::parseString("F1", state, key);
    EXPECT_EQ(key, EvKeyCode::functionKey(1));
    EXPECT_EQ(state.getState(), unsigned(EvKeyboardState::Alt)); // left as given
    UiHotkey::parseString("ctrl+-", state, key);
    EXPECT_EQ(key, EvKeyCode::Minus);
    EXPECT_EQ(state.getState(), unsigned(EvKeyboardState::Control));
    // A "+" at the end is the key itself, where the key table names one.
    if (int const plus = EvKeyCode::fromString("+"); plus >= 0) {
        UiHotkey::parseString("alt++", state, key);
        EXPECT_EQ(key, plus);
        EXPECT_EQ(state.getState(), unsigned(EvKeyboardState::Alt));
    }
}

TEST(HotkeyText, UnknownNamesAreReportedAndChangeNothing) {
    EvKeyboardState state;
    int key = EvKeyCode::Tab;
    EXPECT_THROW(UiHotkey::parseString("shift+NoSuchKey", state, key), UiExIncompleteHotkey);
    EXPECT_THROW(UiHotkey::parseString("hyper+Tab", state, key), UiExIncompleteHotkey);
    EXPECT_EQ(key, EvKeyCode::Tab);
    EXPECT_EQ(state.getState(), 0u);
}

TEST(HotkeyMatch, NeedsTheSameKeyModifiersAndDirection) {
    UiHotkey shiftTab(EvKeyCode::Tab, EvKeyboardState(EvKeyboardState::Shift));
    EXPECT_TRUE(shiftTab.matches(press(EvKeyCode::Tab, EvKeyboardState::Shift)));
    EXPECT_FALSE(shiftTab.matches(press(EvKeyCode::Tab)));
    EXPECT_FALSE(
        shiftTab.matches(press(EvKeyCode::Tab, EvKeyboardState::Shift | EvKeyboardState::Control)));
    EXPECT_FALSE(shiftTab.matches(press(EvKeyCode::Return, EvKeyboardState::Shift)));
    EvKeyReleaseEvent release;
    release.setTriggerKey(EvKeyCode::Tab);
    release.setKeyboardState(EvKeyboardState(EvKeyboardState::Shift));
    EXPECT_FALSE(shiftTab.matches(release));
    EXPECT_TRUE(UiHotkey(EvKeyCode::Tab, EvKeyboardState(EvKeyboardState::Shift), UiHotkey::Release)
                    .matches(release));
    EXPECT_FALSE(UiHotkey().matches(press(0)));
}

TEST(HotkeyXml, ReadsKeyStateAndType) {
    XmlDocument doc(std::string("<Domain Name=\"d\">"
                                "<Hotkey Action=\"a\" Key=\"Tab\" State=\"shift\" Type=\"Press\"/>"
                                "<Hotkey Action=\"b\" Key=\"Return\" Modifiers=\"ctrl\" "
                                "Type=\"Release\"/>"
                                "<Hotkey Action=\"c\" State=\"shift\" Type=\"Press\"/>"
                                "<Hotkey Action=\"d\" Key=\"Tab\" Type=\"Sometimes\"/>"
                                "</Domain>"),
                    "hotkeys");
    auto children = doc.getRoot().getChildren();
    ASSERT_EQ(children.size(), 4u);
    UiHotkey h;
    h.read(children[0]);
    EXPECT_EQ(h, UiHotkey(EvKeyCode::Tab, EvKeyboardState(EvKeyboardState::Shift)));
    h.read(children[1]);
    EXPECT_EQ(h, UiHotkey(EvKeyCode::Return, EvKeyboardState(EvKeyboardState::Control),
                          UiHotkey::Release));
    UiHotkey kept = h;
    try {
        h.read(children[2]);
        FAIL() << "no exception";
    } catch (UiExIncompleteHotkey const& e) {
        EXPECT_EQ(e.getReason(), "Error, unexpected end of resource specification ");
    }
    EXPECT_THROW(h.read(children[3]), UiExIncompleteHotkey);
    EXPECT_EQ(h, kept);
}

TEST(HotkeyStream, DumpReadsBack) {
    UiHotkey h(EvKeyCode::Escape, EvKeyboardState(EvKeyboardState::Alt), UiHotkey::Release);
    std::stringstream s;
    h.dump(s);
    EXPECT_EQ(s.str(), "alt+Escape Release");
    UiHotkey back;
    back.read(s);
    EXPECT_EQ(back, h);
}
