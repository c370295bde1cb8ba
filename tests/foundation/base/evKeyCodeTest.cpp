// Key codes: the numbers the toolkit compares, and name round trips over the whole table.
#include "evKeyCode.h"
#include "evKeyboardState.h"

#include <gtest/gtest.h>

#include <set>

namespace Zr {
namespace {

// The numbers the toolkit compares directly: the popup list's arrows, focus and dialog keys,
// the keypad range of the hotkey registry's keypad switch, and the pointer buttons of click
// hotkeys and the viewers' cursors.
TEST(EvKeyCodeTest, FixedNumbersKeepTheirNames) {
    struct Fixed {
        int code;
        int number;
        char const* name;
    };
    Fixed const fixed[] = {
        {EvKeyCode::Left, 1, "Left"},
        {EvKeyCode::Up, 2, "Up"},
        {EvKeyCode::Right, 3, "Right"},
        {EvKeyCode::Down, 4, "Down"},
        {EvKeyCode::Tab, 10, "Tab"},
        {EvKeyCode::Return, 11, "Return"},
        {EvKeyCode::Escape, 15, "Escape"},
        {EvKeyCode::KP_Enter, 46, "KP_Enter"},
        {EvKeyCode::Minus, 79, "Minus"},
        {EvKeyCode::Complete, 108, "Complete"},
        {EvKeyCode::LeftClick, 140, "LeftClick"},
        {EvKeyCode::MiddleClick, 141, "MiddleClick"},
        {EvKeyCode::RightClick, 142, "RightClick"},
    };
    for (Fixed const& f : fixed) {
        EXPECT_EQ(f.code, f.number) << f.name;
        EXPECT_EQ(EvKeyCode::toString(f.number), f.name);
        EXPECT_EQ(EvKeyCode::fromString(f.name), f.number) << f.name;
    }
}

TEST(EvKeyCodeTest, TheKeypadIsExactlyFortyToSixtySeven) {
    for (int code = -1; code < EvKeyCode::MaxCode; ++code)
        EXPECT_EQ(EvKeyCode::isKeypad(code), code >= 40 && code < 68) << code;
    // Every keypad key's name lies in that range, and no other key does.
    for (int code : EvKeyCode::getAllCodes()) {
        bool const keypadName = EvKeyCode::toString(code).rfind("KP_", 0) == 0;
        EXPECT_EQ(keypadName, EvKeyCode::isKeypad(code)) << EvKeyCode::toString(code);
    }
    EXPECT_FALSE(EvKeyCode::isKeypad(EvKeyCode::digit(0)));
    EXPECT_FALSE(EvKeyCode::isKeypad(EvKeyCode::Minus));
}

TEST(EvKeyCodeTest, OnlyTheThreeButtonsArePointerButtons) {
    for (int code = -1; code < EvKeyCode::MaxCode; ++code)
        EXPECT_EQ(EvKeyCode::isPointerButton(code), code >= 140 && code <= 142) << code;
    EXPECT_EQ(EvKeyCode::fromString("leftclick"), EvKeyCode::LeftClick);
}

TEST(EvKeyCodeTest, EveryNameRoundTripsInAnyCase) {
    std::vector<int> codes = EvKeyCode::getAllCodes();
    // 8 navigation, 12 editing, 9 modifiers, 17 keypad, 12 punctuation, 10 digits, 9 commands,
    // 26 letters, 3 pointer buttons, 24 function keys.
    EXPECT_EQ(codes.size(), 130u);
    std::set<std::string> names;
    for (int code : codes) {
        EXPECT_GT(code, 0);
        EXPECT_LT(code, EvKeyCode::MaxCode);
        std::string name = EvKeyCode::toString(code);
        EXPECT_NE(name, "Unknown");
        EXPECT_TRUE(names.insert(name).second) << "duplicate name " << name;
        EXPECT_EQ(EvKeyCode::fromString(name), code) << name;
        std::string lower, upper;
        for (char c : name) {
            lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            upper += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        }
        EXPECT_EQ(EvKeyCode::fromString(lower), code) << lower;
        EXPECT_EQ(EvKeyCode::fromString(upper), code) << upper;
    }
}

TEST(EvKeyCodeTest, RangesAndHelpersAgreeWithTheTable) {
    EXPECT_EQ(EvKeyCode::toString(EvKeyCode::A), "A");
    EXPECT_EQ(EvKeyCode::toString(EvKeyCode::Z), "Z");
    EXPECT_EQ(EvKeyCode::letter('q'), EvKeyCode::fromString("Q"));
    EXPECT_EQ(EvKeyCode::letter('1'), -1);
    EXPECT_EQ(EvKeyCode::toString(EvKeyCode::digit(7)), "7");
    EXPECT_EQ(EvKeyCode::toString(EvKeyCode::functionKey(24)), "F24");
    EXPECT_EQ(EvKeyCode::functionKey(25), -1);
    EXPECT_EQ(EvKeyCode::toString(EvKeyCode::KP_0 + 9), "KP_9");
    EXPECT_EQ(EvKeyCode::toString(EvKeyCode::digit(0)), "0");
    EXPECT_EQ(EvKeyCode::toString(EvKeyCode::functionKey(1)), "F1");
    EXPECT_TRUE(EvKeyCode::isModifier(EvKeyCode::Shift_L));
    EXPECT_TRUE(EvKeyCode::isModifier(EvKeyCode::Meta_R));
    EXPECT_FALSE(EvKeyCode::isModifier(EvKeyCode::CapsLock));
    EXPECT_FALSE(EvKeyCode::isModifier(EvKeyCode::NumLock));
    EXPECT_TRUE(EvKeyCode::isKeypad(EvKeyCode::KP_Enter));
    EXPECT_EQ(EvKeyCode(EvKeyCode::Tab).toString(), "Tab");
}

TEST(EvKeyCodeTest, OtherSpellingsAndUnknowns) {
    EXPECT_EQ(EvKeyCode::fromString("ctrl"), EvKeyCode::Control_L);
    EXPECT_EQ(EvKeyCode::fromString("Command"), EvKeyCode::Meta_L);
    EXPECT_EQ(EvKeyCode::fromString("Enter"), EvKeyCode::Return);
    EXPECT_EQ(EvKeyCode::fromString("esc"), EvKeyCode::Escape);
    EXPECT_EQ(EvKeyCode::fromString("-"), EvKeyCode::Minus);
    EXPECT_EQ(EvKeyCode::fromString("nosuchkey"), -1);
    EXPECT_EQ(EvKeyCode::fromString(""), -1);
    EXPECT_EQ(EvKeyCode::toString(0), "Unknown");
    EXPECT_EQ(EvKeyCode::toString(47), "Unknown");
    EXPECT_EQ(EvKeyCode::toString(-3), "Unknown");
    EXPECT_EQ(EvKeyCode::toString(511), "Unknown");
}

TEST(EvKeyboardStateTest, TextRoundTripsAndBadNamesChangeNothing) {
    for (unsigned s = 0; s < 16; ++s) {
        EvKeyboardState state(s);
        EvKeyboardState back(5);
        ASSERT_TRUE(back.fromString(state.toString())) << state.toString();
        EXPECT_EQ(back, state) << state.toString();
    }
    EXPECT_EQ(EvKeyboardState(15).toString(), "shift+ctrl+alt+cmd");
    EXPECT_EQ(EvKeyboardState().toString(), "none");
    EvKeyboardState parsed;
    EXPECT_TRUE(parsed.fromString("Control + SHIFT"));
    EXPECT_EQ(parsed.getState(), 3u);
    EXPECT_EQ(parsed.getNumberOfModifiersEnabled(), 2);
    EXPECT_FALSE(parsed.fromString("shift+hyper"));
    EXPECT_EQ(parsed.getState(), 3u);
}

TEST(EvKeyboardStateTest, KeysDownCoverTheWholeCodeRange) {
    EvKeyboardState::setKeyDown(EvKeyCode::F24, true);
    EvKeyboardState::setKeyDown(511, true);
    EXPECT_TRUE(EvKeyboardState::isKeyDown(EvKeyCode::F24));
    EXPECT_TRUE(EvKeyboardState::isKeyDown(511));
    EXPECT_FALSE(EvKeyboardState::isKeyDown(EvKeyCode::F24 - 1));
    EvKeyboardState::setKeyDown(512, true); // out of range: ignored
    EXPECT_FALSE(EvKeyboardState::isKeyDown(512));
    EXPECT_FALSE(EvKeyboardState::isKeyDown(-1));
    EvKeyboardState::setKeyDown(EvKeyCode::F24, false);
    EvKeyboardState::setKeyDown(511, false);
    EXPECT_FALSE(EvKeyboardState::isKeyDown(EvKeyCode::F24));
}

} // namespace
} // namespace Zr
