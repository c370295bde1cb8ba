// UiHotkey: one key binding as a value: a key code, the modifiers that must be held, and whether
// it fires on the press or the release. Hotkey tables and the hotkey registry are made of these.
#pragma once

#include "zrBase.h"

#include "evEventManager.h"
#include "evKeyCode.h"

#include <iosfwd>
#include <string>

namespace Zr {

class XmlElement;
class XmlWriter;

// A Hotkey element without its Key or Type attribute, or a stream that ends before a hotkey's
// type word. An element's reason names it: "Error, wrong resource specification for resource '"
// Name "'."; the plain reason, of a stream, is "Error, unexpected end of resource
// specification " (with the closing blank). Names that don't name a key, a modifier or a type raise
// EvUndefinedRelation.
class UiExIncompleteHotkey : public EvEx {
public:
    UiExIncompleteHotkey(char const* file, int line);
    UiExIncompleteHotkey(char const* file, int line, std::string const& reason);
    UiExIncompleteHotkey(char const* file, int line, XmlElement const& element);
    char const* getClassName() const override { return "UiExIncompleteHotkey"; }
    std::unique_ptr<ExBase> clone() const override {
        return std::make_unique<UiExIncompleteHotkey>(*this);
    }
    [[noreturn]] void raise() const override { throw *this; }
};

// Text form: the key's name alone ("Tab"), or the modifiers, "+", and the key's name
// ("shift+ctrl+Tab"); the modifiers read as EvKeyboardState::fromString takes them, so
// "Ctrl+Shift+Tab" is the same hotkey. A lone "+" or a form ending in "++" binds the "+" key
// (the keypad's plus). "Unknown", the name of key 0, and "" read as no key.
//
// XML form, as in the hotkey tables:
//     <Hotkey Action="Next Control" Key="Tab" State="shift" Type="Press"/>
// `Key` and `Type` are required; `State` is optional (absent means no modifier) and is written
// only when there is a modifier. `Type` is "Press" or "Release".
//
// A hotkey can name a pointer button as its key ("LeftClick", "MiddleClick", "RightClick", the
// key table's codes 140 to 142): such click hotkeys are bound like keys and never conflict.
class UiHotkey {
public:
    enum Type { Press = 0, Release = 1 };

    UiHotkey() = default;
    UiHotkey(EvKeyCode::KeyCode key, EvKeyboardState state, Type type = Press)
        : _key(key), _state(state), _type(type) {}
    // The hotkey that `event` would trigger: its key, its modifiers, press or release.
    explicit UiHotkey(EvKeyEvent const& event);
    UiHotkey(UiHotkey const&) = default;
    UiHotkey& operator=(UiHotkey const&) = default;
    virtual ~UiHotkey() = default;

    EvKeyCode::KeyCode getKey() const { return _key; }
    EvKeyboardState const& getKeyState() const { return _state; }
    Type getType() const { return _type; }
    // No key: the hotkey never matches.
    bool isEmpty() const { return _key == EvKeyCode::NoKey; }

    // Whether the event is this hotkey: same key, same modifiers exactly, and a press for a press
    // hotkey or a release for a release hotkey.
    bool matches(EvKeyEvent const& event) const;

    bool operator==(UiHotkey const& o) const {
        return _key == o._key && _state == o._state && _type == o._type;
    }
    bool operator!=(UiHotkey const& o) const { return !(*this == o); }
    // By key as a signed number, then modifiers, then type.
    bool operator<(UiHotkey const& o) const;

    // "Tab", "shift+Tab"; the type is not part of it.
    std::string toString() const;
    // "Press" or "Release".
    std::string typeToStr() const;
    static std::string const& getSeparator();
    // Splits a text form. With no separator, or one that is the last character (the key is
    // "+"), all of it is the key's name and `state` is left as given. Raises EvUndefinedRelation
    // for an unknown key or modifier name, leaving both arguments as they were.
    static void parseString(std::string const& text, EvKeyboardState& state,
                            EvKeyCode::KeyCode& key);
    // The hotkey of a text form such as "shift+Tab".
    static UiHotkey fromString(std::string const& text, Type type = Press);

    // The type of a word, "Press" or "Release" exactly; any other word raises EvUndefinedRelation.
    static Type typeFromString(std::string const& word);
    static std::string typeToString(Type type);
    // A key's name (EvKeyCode::toString); "Unknown" for a code that names nothing.
    static std::string keyToString(int key);
    // A key's code by name, case-insensitively; "" and "Unknown" give 0. Raises
    // EvUndefinedRelation for a name that names no key.
    static EvKeyCode::KeyCode keyFromString(std::string const& name);
    // Whether the key is a pointer button (EvKeyCode::LeftClick, MiddleClick or RightClick).
    static bool isClickKey(int key) { return EvKeyCode::isPointerButton(key); }

    // Reads the attributes of a Hotkey element. A missing Key or Type raises
    // UiExIncompleteHotkey, an unknown name EvUndefinedRelation; the hotkey is left as it was.
    void read(XmlElement const& element);
    // Writes Key, State (only with a modifier) and Type as attributes of the open element.
    void write(XmlWriter& writer) const;
    // The stream form: the text form and the type word, separated by a blank. A stream that
    // ends first raises UiExIncompleteHotkey.
    void read(std::istream& is);
    void dump(std::ostream& os) const;

private:
    EvKeyCode::KeyCode _key = EvKeyCode::NoKey;
    EvKeyboardState _state;
    Type _type = Press;
};

std::ostream& operator<<(std::ostream& os, UiHotkey const& hotkey);

} // namespace Zr
