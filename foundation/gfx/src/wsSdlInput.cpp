// Synthesized SDL input for tests and benchmarks.
#include "wsSdlInput.h"

#include "wsSdlWindow.h"

#include <SDL.h>

#include <algorithm>
#include <cstring>

namespace Zr {

static_assert(WsSdlInput::KeyTab == SDLK_TAB && WsSdlInput::KeyReturn == SDLK_RETURN &&
              WsSdlInput::KeyEscape == SDLK_ESCAPE && WsSdlInput::KeyMinus == SDLK_MINUS &&
              WsSdlInput::KeyA == SDLK_a && WsSdlInput::KeyKpEnter == SDLK_KP_ENTER &&
              WsSdlInput::KeyLShift == SDLK_LSHIFT && WsSdlInput::KeyKpTab == SDLK_KP_TAB);
static_assert(WsSdlInput::ModShift == KMOD_LSHIFT && WsSdlInput::ModCtrl == KMOD_LCTRL &&
              WsSdlInput::ModAlt == KMOD_LALT && WsSdlInput::ModGui == KMOD_LGUI);
static_assert(WsSdlInput::ButtonLeft == SDL_BUTTON_LEFT &&
              WsSdlInput::ButtonMiddle == SDL_BUTTON_MIDDLE &&
              WsSdlInput::ButtonRight == SDL_BUTTON_RIGHT);

namespace {

Uint32 sdlIdOf(WsWindow& window) {
    auto* w = dynamic_cast<WsSdlWindow*>(&window);
    return w ? w->getSdlId() : 0;
}

bool push(SDL_Event& e) {
    return SDL_PushEvent(&e) == 1;
}

} // namespace

bool WsSdlInput::pushPointerMove(WsWindow& window, int x, int y) {
    SDL_Event e{};
    e.motion.type = SDL_MOUSEMOTION;
    e.motion.timestamp = SDL_GetTicks();
    e.motion.windowID = sdlIdOf(window);
    e.motion.x = x;
    e.motion.y = y;
    return push(e);
}

bool WsSdlInput::pushPointerButton(WsWindow& window, int button, bool down, int x, int y,
                                   int clicks) {
    SDL_Event e{};
    e.button.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
    e.button.timestamp = SDL_GetTicks();
    e.button.windowID = sdlIdOf(window);
    e.button.button = static_cast<Uint8>(button);
    e.button.state = down ? SDL_PRESSED : SDL_RELEASED;
    e.button.clicks = static_cast<Uint8>(clicks);
    e.button.x = x;
    e.button.y = y;
    return push(e);
}

bool WsSdlInput::pushWheel(WsWindow& window, int dx, int dy) {
    SDL_Event e{};
    e.wheel.type = SDL_MOUSEWHEEL;
    e.wheel.timestamp = SDL_GetTicks();
    e.wheel.windowID = sdlIdOf(window);
    e.wheel.x = dx;
    e.wheel.y = dy;
    e.wheel.direction = SDL_MOUSEWHEEL_NORMAL;
    return push(e);
}

bool WsSdlInput::pushKey(WsWindow& window, std::int32_t key, bool down, unsigned modifiers,
                         bool repeat) {
    SDL_Event e{};
    e.key.type = down ? SDL_KEYDOWN : SDL_KEYUP;
    e.key.timestamp = SDL_GetTicks();
    e.key.windowID = sdlIdOf(window);
    e.key.state = down ? SDL_PRESSED : SDL_RELEASED;
    e.key.repeat = repeat ? 1 : 0;
    e.key.keysym.sym = key;
    e.key.keysym.scancode = SDL_GetScancodeFromKey(key);
    e.key.keysym.mod = static_cast<Uint16>(modifiers);
    return push(e);
}

bool WsSdlInput::pushText(WsWindow& window, std::string const& utf8) {
    SDL_Event e{};
    e.text.type = SDL_TEXTINPUT;
    e.text.timestamp = SDL_GetTicks();
    e.text.windowID = sdlIdOf(window);
    std::size_t const n = std::min(utf8.size(), sizeof e.text.text - 1);
    std::memcpy(e.text.text, utf8.data(), n);
    e.text.text[n] = '\0';
    return push(e);
}

bool WsSdlInput::pushCloseRequest(WsWindow& window) {
    SDL_Event e{};
    e.window.type = SDL_WINDOWEVENT;
    e.window.timestamp = SDL_GetTicks();
    e.window.windowID = sdlIdOf(window);
    e.window.event = SDL_WINDOWEVENT_CLOSE;
    return push(e);
}

bool WsSdlInput::pushExpose(WsWindow& window) {
    SDL_Event e{};
    e.window.type = SDL_WINDOWEVENT;
    e.window.timestamp = SDL_GetTicks();
    e.window.windowID = sdlIdOf(window);
    e.window.event = SDL_WINDOWEVENT_EXPOSED;
    return push(e);
}

bool WsSdlInput::pushQuit() {
    SDL_Event e{};
    e.quit.type = SDL_QUIT;
    e.quit.timestamp = SDL_GetTicks();
    return push(e);
}

} // namespace Zr
