// UiHotkey: matching a key event, and the text, XML and stream forms of a hotkey.
#include "uiHotkey.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>

namespace Zr {

namespace {
constexpr char const* PressWord = "Press";
constexpr char const* ReleaseWord = "Release";

int keyFromName(std::string const& name) {
    int key = EvKeyCode::fromString(name);
    if (key < 0)
        throw UiExIncompleteHotkey(__FILE__, __LINE__, "Error, unknown key name \"" + name + "\"");
    return key;
}

UiHotkey::Type typeFromWord(std::string const& word) {
    if (word.empty() || word == PressWord)
        return UiHotkey::Press;
    if (word == ReleaseWord)
        return UiHotkey::Release;
    throw UiExIncompleteHotkey(__FILE__, __LINE__, "Error, unknown hotkey type \"" + word + "\"");
}
} // namespace

UiHotkey::UiHotkey(EvKeyEvent const& event)
    : _key(event.getTriggerKey()), _state(event.getKeyboardState()),
      _type(dynamic_cast<EvKeyReleaseEvent const*>(&event) ? Release : Press) {}

bool UiHotkey::matches(EvKeyEvent const& event) const {
    return !isEmpty() && UiHotkey(event) == *this;
}

bool UiHotkey::operator<(UiHotkey const& o) const {
    if (_key != o._key)
        return _key < o._key;
    if (_state != o._state)
        return _state < o._state;
    return _type < o._type;
}

std::string const& UiHotkey::getSeparator() {
    static std::string const separator = "+";
    return separator;
}

std::string UiHotkey::toString() const {
    std::string key = EvKeyCode::toString(_key);
    if (_state.getState() == 0)
        return key;
    return _state.toString() + getSeparator() + key;
}

std::string UiHotkey::typeToStr() const {
    return _type == Release ? ReleaseWord : PressWord;
}

void UiHotkey::parseString(std::string const& text, EvKeyboardState& state, int& key) {
    std::size_t sep = text.rfind(getSeparator());
    // "Ctrl++" binds the "+" key: the last separator is then the key itself.
    if (sep != std::string::npos && sep + 1 == text.size() && sep > 0)
        sep = text.rfind(getSeparator(), sep - 1);
    if (sep == std::string::npos || sep + 1 == text.size()) {
        key = keyFromName(text);
        return;
    }
    std::string modifiers = text.substr(0, sep);
    int parsedKey = keyFromName(text.substr(sep + 1));
    EvKeyboardState parsed;
    if (!parsed.fromString(modifiers))
        throw UiExIncompleteHotkey(__FILE__, __LINE__,
                                   "Error, unknown modifier in hotkey \"" + text + "\"");
    key = parsedKey;
    state = parsed;
}

UiHotkey UiHotkey::fromString(std::string const& text, Type type) {
    EvKeyboardState state;
    int key = EvKeyCode::NoKey;
    parseString(text, state, key);
    return UiHotkey(key, state, type);
}

void UiHotkey::read(XmlElement const& element) {
    if (!element.hasAttribute("Key"))
        throw UiExIncompleteHotkey(__FILE__, __LINE__,
                                   "Error, unexpected end of resource specification ");
    int key = keyFromName(element.getAttribute("Key"));
    EvKeyboardState state;
    std::string modifiers = element.hasAttribute("State") ? element.getAttribute("State")
                                                          : element.getAttribute("Modifiers");
    if (!modifiers.empty() && !state.fromString(modifiers))
        throw UiExIncompleteHotkey(__FILE__, __LINE__,
                                   "Error, unknown modifier \"" + modifiers + "\"");
    Type type = typeFromWord(element.getAttribute("Type"));
    _key = key;
    _state = state;
    _type = type;
}

void UiHotkey::write(XmlWriter& writer) const {
    writer.writeAttrib("Key", EvKeyCode::toString(_key));
    if (_state.getState() != 0)
        writer.writeAttrib("State", _state.toString());
    writer.writeAttrib("Type", typeToStr());
}

void UiHotkey::read(std::istream& is) {
    std::string text, word;
    if (!(is >> text >> word))
        throw UiExIncompleteHotkey(__FILE__, __LINE__,
                                   "Error, unexpected end of resource specification ");
    Type type = typeFromWord(word);
    *this = fromString(text, type);
}

void UiHotkey::dump(std::ostream& os) const {
    os << toString() << " " << typeToStr();
}

std::ostream& operator<<(std::ostream& os, UiHotkey const& hotkey) {
    hotkey.dump(os);
    return os;
}

} // namespace Zr
