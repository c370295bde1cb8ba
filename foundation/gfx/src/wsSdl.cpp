// SDL start-up and shut-down: the OpenGL visual asked for (double-buffered, 8 stencil bits),
// the display's size and refresh rate, and the services that SDL stands behind.
#include "wsSdl.h"
#include "wsX11Errors.h"

#include "smGl.h"
#include "tmGfxMsc.h"
#include "wsClipboard.h"
#include "wsEventQ.h"
#include "wsScreen.h"
#include "wsSdlCursor.h"
#include "wsSdlEventSource.h"
#include "wsSdlWinMgr.h"
#include "wsTestGfx.h"
#include "wsWinMgr.h"

#include <SDL.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <thread>

namespace Zr {

namespace {

// The desktop's clipboard through SDL.
class WsSdlClipboard : public WsClipboardBackend {
public:
    void setText(std::string const& text) override { SDL_SetClipboardText(text.c_str()); }
    std::string getText() const override {
        char* text = SDL_GetClipboardText();
        std::string result = text ? text : "";
        SDL_free(text);
        return result;
    }
};

struct SdlState {
    bool active = false;
    std::string lastError;
    std::unique_ptr<WsSdlEventSource> events;
    std::unique_ptr<WsSdlClipboard> clipboard;
};

SdlState& state() {
    static SdlState s;
    return s;
}

void requestVisual() {
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 24);
    SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    // Fixed-function drawing needs a compatibility context.
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
}

void readDisplay() {
    SDL_Rect bounds;
    if (SDL_GetDisplayBounds(0, &bounds) == 0 && bounds.w > 0 && bounds.h > 0)
        WsScreen::getInstance().setSize({bounds.w, bounds.h});
    SDL_DisplayMode mode;
    double rate = TmGfxMsc::DEFAULT_RATE;
    if (SDL_GetCurrentDisplayMode(0, &mode) == 0 && mode.refresh_rate > 0)
        rate = mode.refresh_rate;
    TmGfxMsc::setRate(rate);
}

} // namespace

bool WsSdl::initialize() {
    SdlState& s = state();
    if (s.active)
        return true;
    s.lastError.clear();
    if (WsTestGfx::isNoGraphicsRequested()) {
        s.lastError = "No graphics requested (ZR_NO_GRAPHICS)";
        return false;
    }
    // A display that has just started (a virtual one under load) may refuse the first
    // connections for a moment: try a few times when one is named.
    int const attempts = std::getenv("DISPLAY") ? 5 : 1;
    // Closing the last window is the toolkit's business (exit handlers, WsWindowCloseEvent):
    // SDL must not add a quit event of its own.
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
    for (int attempt = 1;; ++attempt) {
        if (SDL_Init(SDL_INIT_VIDEO) == 0)
            break;
        s.lastError = SDL_GetError();
        SDL_Quit();
        if (attempt == attempts)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(100 * attempt));
    }
    if (std::string(SDL_GetCurrentVideoDriver()) == "x11")
        WsX11Errors::install();
    requestVisual();
    readDisplay();
    s.events = std::make_unique<WsSdlEventSource>();
    s.clipboard = std::make_unique<WsSdlClipboard>();
    WsWinMgr::getInstance().setBackend(std::make_unique<WsSdlWinMgr>());
    WsEventQ::getInstance().setEventSource(s.events.get());
    WsClipboard::getInstance().setBackend(s.clipboard.get());
    WsSdlCursor::registerSystemCursors();
    SDL_StartTextInput();
    s.active = true;
    return true;
}

void WsSdl::shutdown() {
    SdlState& s = state();
    if (!s.active)
        return;
    s.active = false;
    WsEventQ::getInstance().setEventSource(nullptr);
    WsClipboard::getInstance().setBackend(nullptr);
    WsSdlCursor::unregisterSystemCursors();
    if (WsSdlWinMgr* mgr = WsSdlWinMgr::getActive())
        if (&SmGl::get() == &mgr->getGlBackend())
            SmGl::setBackend(nullptr);
    WsWinMgr::getInstance().setBackend(nullptr);
    s.events.reset();
    s.clipboard.reset();
    SDL_StopTextInput();
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    SDL_Quit();
    // After SDL_Quit: closing the display reads the errors still on their way.
    WsX11Errors::uninstall();
}

bool WsSdl::isActive() {
    return state().active;
}

std::string WsSdl::getDriverName() {
    char const* name = state().active ? SDL_GetCurrentVideoDriver() : nullptr;
    return name ? name : "";
}

bool WsSdl::isDisplayNamed() {
    for (char const* name : {"DISPLAY", "WAYLAND_DISPLAY", "SDL_VIDEODRIVER"}) {
        char const* value = std::getenv(name);
        if (value && *value)
            return true;
    }
    return false;
}

bool WsSdl::chooseOffscreenWithoutDisplay() {
    if (isDisplayNamed())
        return false;
    setenv("SDL_VIDEODRIVER", "offscreen", 1);
    return true;
}

std::string const& WsSdl::getLastError() {
    return state().lastError;
}

} // namespace Zr
