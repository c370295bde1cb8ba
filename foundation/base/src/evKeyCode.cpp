// The key name table and its look-ups.
#include "evKeyCode.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <unordered_map>

namespace Zr {

namespace {

struct KeyName {
    int code;
    char const* name;
};

constexpr KeyName fixedNames[] = {
    {EvKeyCode::Left, "Left"},
    {EvKeyCode::Up, "Up"},
    {EvKeyCode::Right, "Right"},
    {EvKeyCode::Down, "Down"},
    {EvKeyCode::Home, "Home"},
    {EvKeyCode::End, "End"},
    {EvKeyCode::PageUp, "PageUp"},
    {EvKeyCode::PageDown, "PageDown"},
    {EvKeyCode::Tab, "Tab"},
    {EvKeyCode::Return, "Return"},
    {EvKeyCode::BackSpace, "BackSpace"},
    {EvKeyCode::Delete, "Delete"},
    {EvKeyCode::Insert, "Insert"},
    {EvKeyCode::Escape, "Escape"},
    {EvKeyCode::Space, "Space"},
    {EvKeyCode::Print, "Print"},
    {EvKeyCode::Pause, "Pause"},
    {EvKeyCode::Menu, "Menu"},
    {EvKeyCode::ScrollLock, "ScrollLock"},
    {EvKeyCode::NumLock, "NumLock"},
    {EvKeyCode::Shift_L, "Shift_L"},
    {EvKeyCode::Shift_R, "Shift_R"},
    {EvKeyCode::Control_L, "Control_L"},
    {EvKeyCode::Control_R, "Control_R"},
    {EvKeyCode::Alt_L, "Alt_L"},
    {EvKeyCode::Alt_R, "Alt_R"},
    {EvKeyCode::Meta_L, "Meta_L"},
    {EvKeyCode::Meta_R, "Meta_R"},
    {EvKeyCode::CapsLock, "CapsLock"},
    {EvKeyCode::KP_Add, "KP_Add"},
    {EvKeyCode::KP_Subtract, "KP_Subtract"},
    {EvKeyCode::KP_Multiply, "KP_Multiply"},
    {EvKeyCode::KP_Divide, "KP_Divide"},
    {EvKeyCode::KP_Decimal, "KP_Decimal"},
    {EvKeyCode::KP_Equal, "KP_Equal"},
    {EvKeyCode::KP_Enter, "KP_Enter"},
    {EvKeyCode::Grave, "Grave"},
    {EvKeyCode::Comma, "Comma"},
    {EvKeyCode::Period, "Period"},
    {EvKeyCode::Minus, "Minus"},
    {EvKeyCode::Equal, "Equal"},
    {EvKeyCode::BracketLeft, "BracketLeft"},
    {EvKeyCode::BracketRight, "BracketRight"},
    {EvKeyCode::Backslash, "Backslash"},
    {EvKeyCode::Semicolon, "Semicolon"},
    {EvKeyCode::Apostrophe, "Apostrophe"},
    {EvKeyCode::Slash, "Slash"},
    {EvKeyCode::Less, "Less"},
    {EvKeyCode::Help, "Help"},
    {EvKeyCode::Undo, "Undo"},
    {EvKeyCode::Redo, "Redo"},
    {EvKeyCode::Find, "Find"},
    {EvKeyCode::Cancel, "Cancel"},
    {EvKeyCode::Clear, "Clear"},
    {EvKeyCode::Select, "Select"},
    {EvKeyCode::Execute, "Execute"},
    {EvKeyCode::Complete, "Complete"},
    {EvKeyCode::LeftClick, "LeftClick"},
    {EvKeyCode::MiddleClick, "MiddleClick"},
    {EvKeyCode::RightClick, "RightClick"},
};

constexpr KeyName otherSpellings[] = {
    {EvKeyCode::Shift_L, "Shift"},
    {EvKeyCode::Control_L, "Ctrl"},
    {EvKeyCode::Control_L, "Control"},
    {EvKeyCode::Alt_L, "Alt"},
    {EvKeyCode::Meta_L, "Meta"},
    {EvKeyCode::Meta_L, "Command"},
    {EvKeyCode::Meta_L, "Cmd"},
    {EvKeyCode::Return, "Enter"},
    {EvKeyCode::KP_Enter, "Enter2"},
    {EvKeyCode::Escape, "Esc"},
    {EvKeyCode::Delete, "Del"},
    {EvKeyCode::PageUp, "PgUp"},
    {EvKeyCode::PageUp, "Prior"},
    {EvKeyCode::PageDown, "PgDn"},
    {EvKeyCode::PageDown, "Next"},
    {EvKeyCode::Space, " "},
    {EvKeyCode::Grave, "`"},
    {EvKeyCode::Comma, ","},
    {EvKeyCode::Period, "."},
    {EvKeyCode::Minus, "-"},
    {EvKeyCode::Equal, "="},
    {EvKeyCode::BracketLeft, "["},
    {EvKeyCode::BracketRight, "]"},
    {EvKeyCode::Backslash, "\\"},
    {EvKeyCode::Semicolon, ";"},
    {EvKeyCode::Apostrophe, "'"},
    {EvKeyCode::Slash, "/"},
    {EvKeyCode::Less, "<"},
    // The keypad's plus is the one key that bears "+" on every layout.
    {EvKeyCode::KP_Add, "+"},
};

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

struct Tables {
    std::map<int, std::string> byCode;
    std::unordered_map<std::string, int> byLowerName;

    Tables() {
        for (auto const& k : fixedNames)
            add(k.code, k.name);
        for (int i = 0; i <= 9; ++i) {
            add(EvKeyCode::KP_0 + i, std::string("KP_").append(std::to_string(i)));
            add(EvKeyCode::Digit0 + i, std::to_string(i));
        }
        for (int i = 0; i < 26; ++i)
            add(EvKeyCode::A + i, std::string(1, static_cast<char>('A' + i)));
        for (int i = 1; i <= 24; ++i)
            add(EvKeyCode::F1 + i - 1, std::string("F").append(std::to_string(i)));
        for (auto const& k : otherSpellings)
            byLowerName.emplace(lowered(k.name), k.code);
    }
    void add(int code, std::string const& name) {
        byCode.emplace(code, name);
        byLowerName.emplace(lowered(name), code);
    }
};

// Built on first use and never destroyed: key names may be needed while other statics go.
Tables const& tables() {
    static Tables const* t = new Tables;
    return *t;
}

} // namespace

std::string EvKeyCode::toString(int code) {
    auto const& byCode = tables().byCode;
    auto it = byCode.find(code);
    return it == byCode.end() ? "Unknown" : it->second;
}

int EvKeyCode::fromString(std::string const& name) {
    auto const& byName = tables().byLowerName;
    auto it = byName.find(lowered(name));
    return it == byName.end() ? -1 : it->second;
}

std::vector<int> EvKeyCode::getAllCodes() {
    std::vector<int> codes;
    for (auto const& [code, name] : tables().byCode)
        codes.push_back(code);
    return codes;
}

EvKeyCode::KeyCode EvKeyCode::letter(char c) {
    unsigned char u = static_cast<unsigned char>(std::toupper(static_cast<unsigned char>(c)));
    return KeyCode(u >= 'A' && u <= 'Z' ? A + (u - 'A') : -1);
}

} // namespace Zr
