// EvKeyCode: the numbers of the keys that key events carry, with their names for hotkey files
// and dumps. Every number is below 512, the size of the table of keys held down.
#pragma once

#include <string>
#include <vector>

namespace Zr {

// The table. Numbers are stable: hotkey definitions and recorded events keep them.
//    0          no key ("Unknown")
//    1 -   9    modifiers: Shift_L Shift_R Control_L Control_R Alt_L Alt_R Meta_L Meta_R
//               CapsLock (Meta is the Command key)
//   10 -  21    Tab Return BackSpace Delete Insert Escape Space Print Pause Menu ScrollLock
//               NumLock
//   22 -  29    Home End PageUp PageDown Left Right Up Down
//   30 -  46    keypad: KP_0 .. KP_9, KP_Add KP_Subtract KP_Multiply KP_Divide KP_Decimal
//               KP_Equal KP_Enter (the second Enter key)
//   50 -  59    digits "0" .. "9"
//   76 -  87    punctuation: Grave Comma Period Minus Equal BracketLeft BracketRight Backslash
//               Semicolon Apostrophe Slash Less (the extra key of ISO keyboards)
//  100 - 108    Help Undo Redo Find Cancel Clear Select Execute Complete (name completion)
//  110 - 135    letters "A" .. "Z"
//  140 - 163    F1 .. F24
// fromString also takes a few common other spellings: Shift, Ctrl, Control, Alt, Meta,
// Command, Cmd, Enter, Esc, Del, Backspace, PgUp, Prior, PgDn, Next, KP_Enter's "Enter2", and
// the punctuation characters themselves ("-", "=", ",", ...).
class EvKeyCode {
public:
    enum Code : int {
        NoKey = 0,
        Shift_L = 1,
        Shift_R = 2,
        Control_L = 3,
        Control_R = 4,
        Alt_L = 5,
        Alt_R = 6,
        Meta_L = 7,
        Meta_R = 8,
        CapsLock = 9,
        Tab = 10,
        Return = 11,
        BackSpace = 12,
        Delete = 13,
        Insert = 14,
        Escape = 15,
        Space = 16,
        Print = 17,
        Pause = 18,
        Menu = 19,
        ScrollLock = 20,
        NumLock = 21,
        Home = 22,
        End = 23,
        PageUp = 24,
        PageDown = 25,
        Left = 26,
        Right = 27,
        Up = 28,
        Down = 29,
        KP_0 = 30, // KP_1 .. KP_9 follow
        KP_Add = 40,
        KP_Subtract = 41,
        KP_Multiply = 42,
        KP_Divide = 43,
        KP_Decimal = 44,
        KP_Equal = 45,
        KP_Enter = 46,
        Digit0 = 50, // Digit1 .. Digit9 follow
        Grave = 76,
        Comma = 77,
        Period = 78,
        Minus = 79,
        Equal = 80,
        BracketLeft = 81,
        BracketRight = 82,
        Backslash = 83,
        Semicolon = 84,
        Apostrophe = 85,
        Slash = 86,
        Less = 87,
        Help = 100,
        Undo = 101,
        Redo = 102,
        Find = 103,
        Cancel = 104,
        Clear = 105,
        Select = 106,
        Execute = 107,
        Complete = 108,
        A = 110, // B .. Z follow
        Z = 135,
        F1 = 140, // F2 .. F24 follow
        F24 = 163,
        MaxCode = 512 // every code is below this
    };

    EvKeyCode() = default;
    EvKeyCode(int code) : _code(code) {}
    int getCode() const { return _code; }
    operator int() const { return _code; }
    std::string toString() const { return toString(_code); }

    // The name of a code; "Unknown" for a number that names no key.
    static std::string toString(int code);
    // The code of a name, case-insensitively; -1 for an unknown name.
    static int fromString(std::string const& name);
    // Every code that has a name, ascending.
    static std::vector<int> getAllCodes();

    static bool isModifier(int code) { return code >= Shift_L && code <= Meta_R; }
    static bool isKeypad(int code) { return code >= KP_0 && code <= KP_Enter; }
    static int letter(char c); // 'a' or 'A' -> A; -1 for other characters
    static int digit(int d) { return d >= 0 && d <= 9 ? Digit0 + d : -1; }
    static int functionKey(int n) { return n >= 1 && n <= 24 ? F1 + n - 1 : -1; }

private:
    int _code = NoKey;
};

} // namespace Zr
