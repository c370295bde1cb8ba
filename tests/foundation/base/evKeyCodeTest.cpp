// Key codes: the numbers the toolkit compares, name round trips over the whole table, and the
// keyboard state's text.
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
        {EvKeyCode::Shift_L, 22, "Shift_L"},
        {EvKeyCode::KP_0 + 9, 59, "KP_9"},
        {EvKeyCode::digit(0), 88, "0"},
        {EvKeyCode::digit(7), 95, "7"},
        {EvKeyCode::A, 110, "A"},
        {EvKeyCode::letter('z'), 135, "Z"},
        {EvKeyCode::functionKey(1), 170, "F1"},
        {EvKeyCode::functionKey(24), 193, "F24"},
    };
    for (Fixed const& f : fixed) {
        EXPECT_EQ(f.code, f.number) << f.name;
        EXPECT_EQ(EvKeyCode::toString(f.number), f.name);
        EXPECT_EQ(EvKeyCode::fromString(f.name), f.number) << f.name;
    }
    EXPECT_EQ(EvKeyCode(EvKeyCode::Tab).toString(), "Tab");
}

TEST(EvKeyCodeTest, KeypadIsFortyToSixtySevenAndOnlyThreeArePointerButtons) {
    for (int code = -1; code < EvKeyCode::MaxCode; ++code) {
        EXPECT_EQ(EvKeyCode::isKeypad(code), code >= 40 && code < 68) << code;
        EXPECT_EQ(EvKeyCode::isPointerButton(code), code >= 140 && code <= 142) << code;
    }
    // Every keypad key's name lies in that range, and no other key does.
    for (int code : EvKeyCode::getAllCodes())
        EXPECT_EQ(EvKeyCode::toString(code).rfind("KP_", 0) == 0, EvKeyCode::isKeypad(code))
            << EvKeyCode::toString(code);
    EXPECT_TRUE(EvKeyCode::isModifier(EvKeyCode::Shift_L));
    EXPECT_TRUE(EvKeyCode::isModifier(EvKeyCode::Meta_R));
    EXPECT_FALSE(EvKeyCode::isModifier(EvKeyCode::CapsLock));
    EXPECT_FALSE(EvKeyCode::isModifier(EvKeyCode::NumLock));
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
        EXPECT_TRUE(names.insert(name).second) << "duplicate name " << name;
        std::string lower, upper;
        for (char c : name) {
            lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            upper += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        }
        for (std::string const& spelling : {name, lower, upper})
            EXPECT_EQ(EvKeyCode::fromString(spelling), code) << spelling;
    }
}

TEST(EvKeyCodeTest, OtherSpellingsHelpersAndUnknowns) {
    std::pair<char const*, int> const spellings[] = {
        {"ctrl", EvKeyCode::Control_L},
        {"Command", EvKeyCode::Meta_L},
        {"Enter", EvKeyCode::Return},
        {"esc", EvKeyCode::Escape},
        {"-", EvKeyCode::Minus},
        {"nosuchkey", -1},
        {"", -1},
    };
    for (auto const& [text, code] : spellings)
        EXPECT_EQ(EvKeyCode::fromString(text), code) << text;
    for (int code : {0, 47, -3, 511})
        EXPECT_EQ(EvKeyCode::toString(code), "Unknown") << code;
    EXPECT_EQ(EvKeyCode::letter('q'), EvKeyCode::fromString("Q"));
    EXPECT_EQ(EvKeyCode::letter('1'), -1);
    EXPECT_EQ(EvKeyCode::functionKey(25), -1);
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
    EvKeyboardState::setKeyDown(512, true); // out of range: ignored
    EXPECT_TRUE(EvKeyboardState::isKeyDown(EvKeyCode::F24));
    EXPECT_TRUE(EvKeyboardState::isKeyDown(511));
    EXPECT_FALSE(EvKeyboardState::isKeyDown(EvKeyCode::F24 - 1));
    EXPECT_FALSE(EvKeyboardState::isKeyDown(512));
    EXPECT_FALSE(EvKeyboardState::isKeyDown(-1));
    EvKeyboardState::setKeyDown(EvKeyCode::F24, false);
    EvKeyboardState::setKeyDown(511, false);
    EXPECT_FALSE(EvKeyboardState::isKeyDown(EvKeyCode::F24));
}

} // namespace
} // namespace Zr
