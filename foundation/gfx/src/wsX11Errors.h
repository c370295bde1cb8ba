// WsX11Errors: keeps errors of the X protocol from ending the program. Xlib's own handler
// prints the error and exits, so a request that names a window gone a moment earlier (SDL's
// wake-up message racing a window's destruction, another client destroying one of ours)
// would end the program with status 1.
#pragma once

#include <cstdint>
#include <vector>

namespace Zr {

struct WsX11Errors {
    // Installs the handler; done when the windowing layer starts on an X display.
    static void install();
    // Restores the handler that was there before.
    static void uninstall();
    // Errors seen since install.
    static int getCount();
    // The X resources that errors named as gone, since the last call; the pump thread maps
    // them to its windows.
    static std::vector<std::uint32_t> takeLostResources();
    // Whether `window` still exists on `display` (an Xlib Display*): a round trip, for the rare
    // moments when a window may have gone under us.
    static bool windowExists(void* display, std::uint32_t window);
    // The X window and display behind an SDL_Window; false (and nothing set) on other drivers.
    static bool nativeWindow(void* sdlWindow, std::uint32_t& window, void*& display);
};

} // namespace Zr
