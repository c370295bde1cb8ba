// UiHotkey: matching a key event, and the text, XML and stream forms of a hotkey.
#include "uiHotkey.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <algorithm>
#include <cctype>
#include <istream>
#include <ostream>

namespace Zr {

namespace {

char const* const IncompleteText = "Error, unexpected end of resource specification ";

// The type words, looked up as exact words like a dictionary of relations.
struct TypeWord {
    UiHotkey::Type type;
    char const* word;
};
constexpr TypeWord typeWords[] = {{UiHotkey::Press, "Press"}, {UiHotkey::Release, "Release"}};

bool equalsIgnoringCase(std::string const& a, char const* b) {
    std::string const other(b);
    return a.size() == other.size() &&
           std::equal(a.begin(), a.end(), other.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

EvKeyboardState modifiersFromString(std::string const& text) {
    EvKeyboardState state;
    if (!state.fromString(text))
        throw EvUndefinedRelation(__FILE__, __LINE__, "Undefined modifier in \"" + text + "\"");
    return state;
}

} // namespace

UiExIncompleteHotkey::UiExIncompleteHotkey(char const* file, int line) : EvEx(file, line) {
    setReason(IncompleteText);
}

UiExIncompleteHotkey::UiExIncompleteHotkey(char const* file, int line, std::string const& reason)
    : EvEx(file, line) {
    setReason(reason);
}

UiExIncompleteHotkey::UiExIncompleteHotkey(char const* file, int line, XmlElement const& element)
    : EvEx(file, line) {
    setReason("Error, wrong resource specification for resource '" + element.getAttribute("Name") +
              "'.");
}

UiHotkey::UiHotkey(EvKeyEvent const& event)
    : _key(static_cast<EvKeyCode::KeyCode>(event.getTriggerKey())),
      _state(event.getKeyboardState()),
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

UiHotkey::Type UiHotkey::typeFromString(std::string const& word) {
    for (TypeWord const& t : typeWords)
        if (word == t.word)
            return t.type;
    throw EvUndefinedRelation(__FILE__, __LINE__, "Undefined hotkey type \"" + word + "\"");
}

std::string UiHotkey::typeToString(Type type) {
    for (TypeWord const& t : typeWords)
        if (type == t.type)
            return t.word;
    throw EvUndefinedRelation(__FILE__, __LINE__,
                              "Undefined hotkey type " + std::to_string(static_cast<int>(type)));
}

std::string UiHotkey::keyToString(int key) {
    return EvKeyCode::toString(key);
}

EvKeyCode::KeyCode UiHotkey::keyFromString(std::string const& name) {
    if (name.empty() || equalsIgnoringCase(name, EvKeyCode::toString(EvKeyCode::NoKey).c_str()))
        return EvKeyCode::NoKey;
    int key = EvKeyCode::fromString(name);
    if (key < 0)
        throw EvUndefinedRelation(__FILE__, __LINE__, "Undefined key name \"" + name + "\"");
    return static_cast<EvKeyCode::KeyCode>(key);
}

std::string UiHotkey::toString() const {
    std::string key = keyToString(_key);
    if (_state.getState() == 0)
        return key;
    return _state.toString() + getSeparator() + key;
}

std::string UiHotkey::typeToStr() const {
    return typeToString(_type);
}

void UiHotkey::parseString(std::string const& text, EvKeyboardState& state,
                           EvKeyCode::KeyCode& key) {
    std::string const& separator = getSeparator();
    std::size_t sep = text.rfind(separator);
    // "ctrl++" binds the "+" key: a separator at the very end is then the key itself, and the
    // one before it ends the modifiers.
    if (sep != std::string::npos && sep + separator.size() == text.size() && sep > 0)
        sep = text.rfind(separator, sep - 1);
    if (sep == std::string::npos || sep + separator.size() == text.size()) {
        key = keyFromString(text);
        return;
    }
    EvKeyCode::KeyCode const parsedKey = keyFromString(text.substr(sep + separator.size()));
    EvKeyboardState const parsedState = modifiersFromString(text.substr(0, sep));
    key = parsedKey;
    state = parsedState;
}

UiHotkey UiHotkey::fromString(std::string const& text, Type type) {
    EvKeyboardState state;
    EvKeyCode::KeyCode key = EvKeyCode::NoKey;
    parseString(text, state, key);
    return UiHotkey(key, state, type);
}

void UiHotkey::read(XmlElement const& element) {
    if (!element.hasAttribute("Key") || !element.hasAttribute("Type"))
        throw UiExIncompleteHotkey(__FILE__, __LINE__, element);
    EvKeyCode::KeyCode const key = keyFromString(element.getAttribute("Key"));
    EvKeyboardState const state = modifiersFromString(element.getAttribute("State"));
    Type const type = typeFromString(element.getAttribute("Type"));
    _key = key;
    _state = state;
    _type = type;
}

void UiHotkey::write(XmlWriter& writer) const {
    writer.writeAttrib("Key", keyToString(_key));
    if (_state.getState() != 0)
        writer.writeAttrib("State", _state.toString());
    writer.writeAttrib("Type", typeToStr());
}

void UiHotkey::read(std::istream& is) {
    std::string text, word;
    if (!(is >> text >> word))
        throw UiExIncompleteHotkey(__FILE__, __LINE__);
    Type const type = typeFromString(word);
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
