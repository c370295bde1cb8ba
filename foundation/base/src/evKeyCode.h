// EvKeyCode: the numbers of the keys that key events carry, with their names for hotkey files
// and dumps. Every number is below 512, the size of the table of keys held down.
#pragma once

#include <string>
#include <vector>

namespace Zr {

// The table. Numbers are stable: hotkey definitions and recorded events keep them, and the
// toolkit compares some of them directly (the arrows, Tab, Return, Escape, the keypad range and
// the pointer buttons).
//    0          no key ("Unknown")
//    1 -   8    Left Up Right Down Home End PageUp PageDown
//   10 -  21    Tab Return BackSpace Delete Insert Escape Space Print Pause Menu ScrollLock
//               NumLock
//   22 -  30    modifiers: Shift_L Shift_R Control_L Control_R Alt_L Alt_R Meta_L Meta_R, then
//               CapsLock (Meta is the Command key)
//   40 -  67    the keypad (isKeypad): 40 - 46 KP_Add KP_Subtract KP_Multiply KP_Divide
//               KP_Decimal KP_Equal KP_Enter (the second Enter key), 50 - 59 KP_0 .. KP_9
//   76 -  87    punctuation: Grave Comma Period Minus Equal BracketLeft BracketRight Backslash
//               Semicolon Apostrophe Slash Less (the extra key of ISO keyboards)
//   88 -  97    digits "0" .. "9"
//  100 - 108    Help Undo Redo Find Cancel Clear Select Execute Complete (name completion)
//  110 - 135    letters "A" .. "Z"
//  140 - 142    the pointer buttons as keys, for click hotkeys: LeftClick MiddleClick
//               RightClick
//  170 - 193    F1 .. F24
// fromString also takes a few common other spellings: Shift, Ctrl, Control, Alt, Meta,
// Command, Cmd, Enter, Esc, Del, Backspace, PgUp, Prior, PgDn, Next, KP_Enter's "Enter2", and
// the punctuation characters themselves ("-", "=", ",", ...).
class EvKeyCode {
public:
    enum KeyCode : int {
        NoKey = 0,
        Left = 1,
        Up = 2,
        Right = 3,
        Down = 4,
        Home = 5,
        End = 6,
        PageUp = 7,
        PageDown = 8,
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
        Shift_L = 22,
        Shift_R = 23,
        Control_L = 24,
        Control_R = 25,
        Alt_L = 26,
        Alt_R = 27,
        Meta_L = 28,
        Meta_R = 29,
        CapsLock = 30,
        KeypadFirst = 40, // the keypad's range: KeypadFirst <= code < KeypadEnd
        KP_Add = 40,
        KP_Subtract = 41,
        KP_Multiply = 42,
        KP_Divide = 43,
        KP_Decimal = 44,
        KP_Equal = 45,
        KP_Enter = 46,
        KP_0 = 50, // KP_1 .. KP_9 follow
        KeypadEnd = 68,
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
        Digit0 = 88, // Digit1 .. Digit9 follow
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
        LeftClick = 140,
        MiddleClick = 141,
        RightClick = 142,
        F1 = 170, // F2 .. F24 follow
        F24 = 193,
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
    static bool isKeypad(int code) { return code >= KeypadFirst && code < KeypadEnd; }
    // The pointer buttons as keys (LeftClick, MiddleClick, RightClick).
    static bool isPointerButton(int code) { return code >= LeftClick && code <= RightClick; }
    static KeyCode letter(char c); // 'a' or 'A' -> A; -1 for other characters
    static KeyCode digit(int d) { return KeyCode(d >= 0 && d <= 9 ? Digit0 + d : -1); }
    static KeyCode functionKey(int n) { return KeyCode(n >= 1 && n <= 24 ? F1 + n - 1 : -1); }

private:
    int _code = NoKey;
};

} // namespace Zr
