// Keyboard modifier state and pointer button state carried by device events.
#pragma once

#include <compare>
#include <string>

namespace Zr {

class EvKeyboardState {
public:
    enum KeyModifierID : unsigned { None = 0, Shift = 1, Control = 2, Alt = 4, Command = 8 };

    EvKeyboardState() = default;
    explicit EvKeyboardState(unsigned state) : _state(state & 15u) {}

    bool isEnabled(KeyModifierID id) const { return (_state & id) != 0; }
    unsigned getState() const { return _state; }
    void setState(unsigned s) { _state = s & 15u; }
    void enable(KeyModifierID id, bool on = true) { _state = on ? (_state | id) : (_state & ~unsigned(id)); }
    void clear() { _state = 0; }
    int getNumberOfModifiersEnabled() const;

    // "shift+ctrl+alt+cmd" in that order; "none" for no modifier.
    std::string toString() const;
    // Reads the form of toString, case-insensitively, with '+' or blanks between names.
    // Returns false and leaves the state alone for an unknown name.
    bool fromString(std::string const& text);

    auto operator<=>(EvKeyboardState const&) const = default;

    // Whether a key is held now, as the windowing layer last reported it.
    static bool isKeyDown(int key);
    static void setKeyDown(int key, bool down);

private:
    unsigned _state = 0;
};

class EvPointerState {
public:
    enum ButtonID : unsigned { NoButton = 0, Left = 1, Middle = 2, Right = 4 };

    EvPointerState() = default;
    explicit EvPointerState(unsigned state) : _state(state) {}
    unsigned getState() const { return _state; }
    void setState(unsigned s) { _state = s; }
    bool isEnabled(ButtonID id) const { return (_state & id) != 0; }
    int getNumberOfButtonsEnabled() const;
    bool operator==(EvPointerState const&) const = default;

private:
    unsigned _state = 0;
};

} // namespace Zr
