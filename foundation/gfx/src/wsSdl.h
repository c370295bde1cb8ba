// WsSdl: starts and stops the SDL window system: windows and their OpenGL contexts, input
// through WsEventQ, cursors, the clipboard, and what the display tells (size, refresh rate,
// visual).
#pragma once

#include <string>

namespace Zr {

class WsSdl {
public:
    // Opens the display and installs SDL behind WsWinMgr, WsEventQ, WsCursorRegistry and
    // WsClipboard; the calling thread becomes the one that reads input (the loop's). Returns
    // false, changing nothing, when ZR_NO_GRAPHICS asks for no graphics (SDL is then not
    // touched at all) or no display can be opened (getLastError says why). Calling it again
    // while active returns true.
    static bool initialize();
    // Puts the headless services back and closes SDL. Windows made through SDL must be gone.
    static void shutdown();
    static bool isActive();
    static std::string const& getLastError();
    // SDL's video driver in use ("x11", "offscreen", ...); empty while not active.
    static std::string getDriverName();
    // Whether the environment names a display or a driver (DISPLAY, WAYLAND_DISPLAY or
    // SDL_VIDEODRIVER, not empty).
    static bool isDisplayNamed();
    // When nothing names a display, selects SDL's offscreen driver, which draws into EGL pbuffers
    // with no server and without probing (and complaining about) every other driver first. Call it
    // before the packages start; returns whether it chose offscreen.
    static bool chooseOffscreenWithoutDisplay();
};

} // namespace Zr
