// Key codes: the numbers the toolkit compares, and name round trips over the whole table.
#include "evKeyCode.h"
#include "evKeyboardState.h"

#include <gtest/gtest.h>

#include <set>

namespace Zr {
namespace {

TEST(EvKeyCodeTest, FixedNumbersKeepTheirNames) {
    EXPECT_EQ(EvKeyCode::Tab, 10);
    EXPECT_EQ(EvKeyCode::Return, 11);
    EXPECT_EQ(EvKeyCode::Escape, 15);
    EXPECT_EQ(EvKeyCode::KP_Enter, 46);
    EXPECT_EQ(EvKeyCode::Minus, 79);
    EXPECT_EQ(EvKeyCode::Complete, 108);
    EXPECT_EQ(EvKeyCode::toString(10), "Tab");
    EXPECT_EQ(EvKeyCode::toString(11), "Return");
    EXPECT_EQ(EvKeyCode::toString(15), "Escape");
    EXPECT_EQ(EvKeyCode::toString(46), "KP_Enter");
    EXPECT_EQ(EvKeyCode::toString(79), "Minus");
    EXPECT_EQ(EvKeyCode::toString(108), "Complete");
}

TEST(EvKeyCodeTest, EveryNameRoundTripsInAnyCase) {
    std::vector<int> codes = EvKeyCode::getAllCodes();
    // 9 modifiers, 12 editing, 8 navigation, 17 keypad, 10 digits, 12 punctuation, 9 commands,
    // 26 letters, 24 function keys.
    EXPECT_EQ(codes.size(), 127u);
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
    EXPECT_TRUE(EvKeyCode::isModifier(EvKeyCode::Meta_R));
    EXPECT_FALSE(EvKeyCode::isModifier(EvKeyCode::CapsLock));
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
