// UiHotkey: its text, XML and stream forms, the failures of each, its order, and which key
// events it matches.
#include "support/exceptionReason.h"
#include "uiHotkey.h"

#include "xmlDocument.h"
#include "xmlWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>

using namespace Zr;

namespace {
template <class Event = EvKeyPressEvent>
Event press(int key, unsigned modifiers = 0) {
    Event e;
    e.setTriggerKey(key);
    e.setKeyboardState(EvKeyboardState(modifiers));
    return e;
}

constexpr unsigned Shift = EvKeyboardState::Shift;
constexpr unsigned Ctrl = EvKeyboardState::Control;
constexpr unsigned Alt = EvKeyboardState::Alt;

// The hotkey of the first child element of a one-element document.
UiHotkey readElement(std::string const& xml) {
    XmlDocument doc("<Domain Name=\"d\">" + xml + "</Domain>", "hotkeys");
    UiHotkey hotkey;
    hotkey.read(doc.getRoot().getChildren().at(0));
    return hotkey;
}
} // namespace

TEST(HotkeyText, RoundTripsWithAndWithoutModifiers) {
    UiHotkey tab(EvKeyCode::Tab, EvKeyboardState());
    EXPECT_EQ(tab.toString(), "Tab");
    UiHotkey shiftCtrlTab(EvKeyCode::Tab, EvKeyboardState(Shift | Ctrl));
    EXPECT_EQ(shiftCtrlTab.toString(), "shift+ctrl+Tab");
    EXPECT_EQ(UiHotkey::fromString("shift+ctrl+Tab"), shiftCtrlTab);
    EXPECT_EQ(UiHotkey::fromString("Ctrl+Shift+Tab"), shiftCtrlTab);
    EXPECT_EQ(UiHotkey::getSeparator(), "+");
    EXPECT_EQ(UiHotkey().toString(), "Unknown");
    EXPECT_TRUE(UiHotkey::fromString("Unknown").isEmpty());
}

TEST(HotkeyText, ParseStringTakesTheLastSeparatorAndKeepsThePlusKey) {
    int const plus = EvKeyCode::fromString("+");
    ASSERT_EQ(plus, EvKeyCode::KP_Add);

    // Each text parsed over an alt state: the key, and the state (left as given without a
    // modifier).
    struct {
        char const* text;
        int key;
        unsigned state;
    } const rows[] = {{"Ctrl++", plus, Ctrl},
                      {"+", plus, Alt},
                      {"F1", EvKeyCode::functionKey(1), Alt},
                      {"ctrl+-", EvKeyCode::Minus, Ctrl}};
    for (auto const& row : rows) {
        EvKeyboardState state(Alt);
        EvKeyCode::KeyCode key = EvKeyCode::NoKey;
        UiHotkey::parseString(row.text, state, key);
        EXPECT_EQ(key, row.key) << row.text;
        EXPECT_EQ(state.getState(), row.state) << row.text;
    }

    // The printed form of a "+" hotkey reads back.
    UiHotkey const ctrlPlus = UiHotkey::fromString("ctrl++");
    EXPECT_EQ(UiHotkey::fromString(ctrlPlus.toString()), ctrlPlus);
}

TEST(HotkeyText, UnknownNamesAreUndefinedRelationsAndChangeNothing) {
    EvKeyboardState state;
    EvKeyCode::KeyCode key = EvKeyCode::Tab;
    for (char const* text : {"shift+NoSuchKey", "hyper+Tab", "NoSuchKey", "ctrl+", "a+"}) {
        EXPECT_THROW(UiHotkey::parseString(text, state, key), EvUndefinedRelation) << text;
        EXPECT_EQ(key, EvKeyCode::Tab) << text;
        EXPECT_EQ(state.getState(), 0u) << text;
    }
}

TEST(HotkeyText, TypeWordsAreExact) {
    EXPECT_EQ(UiHotkey::typeFromString("Press"), UiHotkey::Press);
    EXPECT_EQ(UiHotkey::typeFromString("Release"), UiHotkey::Release);
    EXPECT_EQ(UiHotkey(EvKeyCode::Left, EvKeyboardState(), UiHotkey::Release).typeToStr(),
              "Release");
    EXPECT_THAT(
        TestSupport::reasonOf<EvUndefinedRelation>([&] { UiHotkey::typeFromString("Sometimes"); }),
        ::testing::HasSubstr("Sometimes"));
    EXPECT_THROW(UiHotkey::typeFromString("press"), EvUndefinedRelation);
}

TEST(HotkeyText, PointerButtonsAreKeysOfTheirOwn) {
    UiHotkey const middle = UiHotkey::fromString("MiddleClick");
    EXPECT_EQ(middle.getKey(), EvKeyCode::MiddleClick);
    EXPECT_EQ(UiHotkey::fromString("LeftClick").getKey(), 140);
    EXPECT_EQ(UiHotkey::fromString("RightClick").getKey(), 142);
    EXPECT_TRUE(UiHotkey::isClickKey(middle.getKey()));
    EXPECT_EQ(middle.toString(), "MiddleClick");
    EXPECT_EQ(UiHotkey::fromString("shift+leftclick").toString(), "shift+LeftClick");
    EXPECT_FALSE(UiHotkey::isClickKey(EvKeyCode::F1));
    EXPECT_FALSE(UiHotkey::isClickKey(EvKeyCode::Z));
}

TEST(HotkeyOrder, ByKeyThenModifiersThenType) {
    UiHotkey const a(EvKeyCode::Tab, EvKeyboardState(Ctrl), UiHotkey::Release);
    UiHotkey const b(EvKeyCode::Return, EvKeyboardState());
    UiHotkey const c(EvKeyCode::Return, EvKeyboardState(Shift));
    UiHotkey const d(EvKeyCode::Return, EvKeyboardState(Shift), UiHotkey::Release);
    UiHotkey const negative(EvKeyCode::KeyCode(-1), EvKeyboardState(Ctrl));
    EXPECT_TRUE(negative < UiHotkey());
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(b < c);
    EXPECT_TRUE(c < d);
    EXPECT_FALSE(d < c);
    EXPECT_FALSE(c < c);
    EXPECT_NE(c, d);
    std::set<UiHotkey> const ordered{d, c, b, a, negative, c};
    EXPECT_EQ(ordered.size(), 5u);
    EXPECT_EQ(*ordered.begin(), negative);
    EXPECT_EQ(*ordered.rbegin(), d);
}

TEST(HotkeyMatch, NeedsTheSameKeyModifiersAndDirection) {
    UiHotkey shiftTab(EvKeyCode::Tab, EvKeyboardState(Shift));
    EXPECT_TRUE(shiftTab.matches(press(EvKeyCode::Tab, Shift)));
    EXPECT_FALSE(shiftTab.matches(press(EvKeyCode::Tab)));
    EXPECT_FALSE(shiftTab.matches(press(EvKeyCode::Tab, Shift | Ctrl)));
    EXPECT_FALSE(shiftTab.matches(press(EvKeyCode::Return, Shift)));
    auto const release = press<EvKeyReleaseEvent>(EvKeyCode::Tab, Shift);
    EXPECT_FALSE(shiftTab.matches(release));
    EXPECT_TRUE(
        UiHotkey(EvKeyCode::Tab, EvKeyboardState(Shift), UiHotkey::Release).matches(release));
    EXPECT_EQ(UiHotkey(release),
              UiHotkey(EvKeyCode::Tab, EvKeyboardState(Shift), UiHotkey::Release));
    EXPECT_FALSE(UiHotkey().matches(press(0)));
}

TEST(HotkeyXml, ReadsKeyStateAndType) {
    EXPECT_EQ(readElement("<Hotkey Action='a' Key='Tab' State='shift' Type='Press'/>"),
              UiHotkey(EvKeyCode::Tab, EvKeyboardState(Shift)));
    EXPECT_EQ(readElement("<Hotkey Action='b' Key='return' State='Ctrl' Type='Release'/>"),
              UiHotkey(EvKeyCode::Return, EvKeyboardState(Ctrl), UiHotkey::Release));
    EXPECT_EQ(readElement("<Hotkey Action='c' Key='F5' Type='Press'/>"),
              UiHotkey(EvKeyCode::functionKey(5), EvKeyboardState()));
    // An empty key is no key: a binding that a domain drops.
    EXPECT_TRUE(readElement("<Hotkey Action='d' Key='' Type='Press'/>").isEmpty());
}

TEST(HotkeyXml, MissingKeyOrTypeIsIncompleteAndUnknownWordsUndefined) {
    XmlDocument doc("<Domain Name='d'>"
                    "<Hotkey Action='a' State='shift' Type='Press'/>"
                    "<Hotkey Action='b' Key='Tab'/>"
                    "<Hotkey Action='c' Key='Tab' Type='Sometimes'/>"
                    "<Hotkey Action='d' Key='NoSuchKey' Type='Press'/>"
                    "<Hotkey Action='e' Key='Tab' State='hyper' Type='Press'/>"
                    "</Domain>",
                    "hotkeys");
    auto const children = doc.getRoot().getChildren();
    UiHotkey const kept(EvKeyCode::Escape, EvKeyboardState(Alt), UiHotkey::Release);
    UiHotkey h = kept;
    for (int i : {0, 1}) {
        try {
            h.read(children[i]);
            FAIL() << "no exception for element " << i;
        } catch (EvEx const& e) { // UiExIncompleteHotkey is an event error
            EXPECT_EQ(e.getReason(), "Error, wrong resource specification for resource ''.");
            EXPECT_NE(dynamic_cast<UiExIncompleteHotkey const*>(&e), nullptr);
        }
    }
    for (int i : {2, 3, 4})
        EXPECT_THROW(h.read(children[i]), EvUndefinedRelation) << "element " << i;
    EXPECT_EQ(h, kept);
}

TEST(HotkeyXml, WritesStateOnlyWithModifiersAndReadsBack) {
    std::ostringstream xml;
    {
        XmlWriter writer(xml);
        XmlWriter::ElementGuard root(writer, "Domain");
        {
            XmlWriter::ElementGuard plain(writer, "Hotkey");
            UiHotkey(EvKeyCode::Delete, EvKeyboardState()).write(writer);
        }
        {
            XmlWriter::ElementGuard modified(writer, "Hotkey");
            UiHotkey(EvKeyCode::KeyCode(EvKeyCode::A + 2), EvKeyboardState(Shift | Ctrl),
                     UiHotkey::Release)
                .write(writer);
        }
    }
    std::string const text = xml.str();
    EXPECT_NE(text.find("Key=\"Delete\" Type=\"Press\""), std::string::npos) << text;
    EXPECT_NE(text.find("Key=\"C\" State=\"shift+ctrl\" Type=\"Release\""), std::string::npos)
        << text;
    XmlDocument back(text, "written");
    auto const children = back.getRoot().getChildren();
    ASSERT_EQ(children.size(), 2u);
    UiHotkey h;
    h.read(children[1]);
    EXPECT_EQ(h, UiHotkey(EvKeyCode::KeyCode(EvKeyCode::A + 2), EvKeyboardState(Shift | Ctrl),
                          UiHotkey::Release));
}

TEST(HotkeyStream, DumpReadsBackAndBadStreamsAreReported) {
    UiHotkey h(EvKeyCode::Escape, EvKeyboardState(Alt), UiHotkey::Release);
    std::stringstream s;
    h.dump(s);
    EXPECT_EQ(s.str(), "alt+Escape Release");
    UiHotkey back;
    back.read(s);
    EXPECT_EQ(back, h);

    std::istringstream truncated("ctrl+C");
    EXPECT_THROW(back.read(truncated), UiExIncompleteHotkey);
    std::istringstream badWord("ctrl+C Hold");
    EXPECT_THROW(back.read(badWord), EvUndefinedRelation);
    EXPECT_EQ(back, h);
}
