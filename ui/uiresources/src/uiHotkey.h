// UiHotkey: one key binding as a value: a key code, the modifiers that must be held, and whether
// it fires on the press or the release. Hotkey tables and the hotkey registry are made of these.
#pragma once

#include "zrBase.h"

#include "evKeyCode.h"

#include <iosfwd>
#include <string>

namespace Zr {

class XmlElement;
class XmlWriter;

// A Hotkey element without a Key or Type attribute, or with a name that names no key.
ZR_DECLARE_EXCEPTION(UiExIncompleteHotkey, ExBase);

// Text form: the key's name alone ("Tab"), or the modifiers, "+", and the key's name
// ("shift+ctrl+Tab"); the modifiers read as EvKeyboardState::fromString takes them, so
// "Ctrl+Shift+Tab" is the same hotkey. A lone "+" or a form ending in "++" binds the "+" key.
//
// XML form, as in the hotkey tables:
//     <Hotkey Action="Next Control" Key="Tab" State="shift" Type="Press"/>
// `Key` is required. `State` is optional (absent means no modifier); `Modifiers` is accepted as
// another spelling of it. `Type` is "Press" or "Release"; written always, and read as "Press"
// when absent.
class UiHotkey {
public:
    enum Type { Press = 0, Release = 1 };

    UiHotkey() = default;
    UiHotkey(int key, EvKeyboardState state, Type type = Press)
        : _key(key), _state(state), _type(type) {}
    // The hotkey that `event` would trigger: its key, its modifiers, press or release.
    explicit UiHotkey(EvKeyEvent const& event);
    UiHotkey(UiHotkey const&) = default;
    UiHotkey& operator=(UiHotkey const&) = default;
    virtual ~UiHotkey() = default;

    int getKey() const { return _key; }
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
    // By key as a signed number, then modifiers, then type.
    bool operator<(UiHotkey const& o) const;

    std::string toString() const;
    std::string typeToStr() const;
    static std::string const& getSeparator();
    // Splits a text form. With no separator, or one that is the last character (the key is
    // "+"), all of it is the key's name and `state` is left as given. Throws
    // UiExIncompleteHotkey for an unknown key or modifier name.
    static void parseString(std::string const& text, EvKeyboardState& state, int& key);
    // The hotkey of a text form such as "shift+Tab".
    static UiHotkey fromString(std::string const& text, Type type = Press);

    // Reads the attributes of a Hotkey element; throws UiExIncompleteHotkey without a known Key.
    void read(XmlElement const& element);
    // Writes Key, State (only with a modifier) and Type as attributes of the open element.
    void write(XmlWriter& writer) const;
    // The stream form: the text form and the type word, separated by a blank.
    void read(std::istream& is);
    void dump(std::ostream& os) const;

private:
    int _key = EvKeyCode::NoKey;
    EvKeyboardState _state;
    Type _type = Press;
};

std::ostream& operator<<(std::ostream& os, UiHotkey const& hotkey);

} // namespace Zr
