// WsSdlInput: input made as SDL delivers it from a user, pushed onto SDL's queue, so that
// tests and benchmarks drive the whole road from SDL to WsEventQ. Positions are SDL's (y down
// from the window's top-left); keys and modifiers are SDL's numbers. Any thread may push.
#pragma once

#include <cstdint>
#include <string>

namespace Zr {

class WsWindow;

class WsSdlInput {
public:
    // SDL's numbers for the keys and buttons that tests use most (SDLK_*, KMOD_*, SDL_BUTTON_*).
    static constexpr std::int32_t KeyTab = 9, KeyReturn = 13, KeyEscape = 27, KeyMinus = '-',
                                  KeyA = 'a', KeyKpEnter = 0x40000058, KeyLShift = 0x400000E1,
                                  KeyKpTab = 0x400000BA;
    static constexpr unsigned ModShift = 0x0001, ModCtrl = 0x0040, ModAlt = 0x0100, ModGui = 0x0400;
    static constexpr int ButtonLeft = 1, ButtonMiddle = 2, ButtonRight = 3;

    // Each returns whether SDL took the event.
    static bool pushPointerMove(WsWindow& window, int x, int y);
    static bool pushPointerButton(WsWindow& window, int button, bool down, int x, int y,
                                  int clicks = 1);
    // Wheel steps: positive y away from the user, positive x to the right.
    static bool pushWheel(WsWindow& window, int dx, int dy);
    static bool pushKey(WsWindow& window, std::int32_t key, bool down, unsigned modifiers = 0,
                        bool repeat = false);
    // At most 31 bytes of UTF-8, as one SDL text event.
    static bool pushText(WsWindow& window, std::string const& utf8);
    // What the window manager sends when the user asks to close the window.
    static bool pushCloseRequest(WsWindow& window);
    static bool pushExpose(WsWindow& window);
    // What SDL makes of SIGINT and SIGTERM.
    static bool pushQuit();
};

} // namespace Zr
