// The translation of SDL's events: pointer (y flipped to grow upward), buttons with the
// buttons held after the event, scroll directions, keys to EvKeyCode, text to one
// EvCharEvent per code point, and the window events.
#include "wsSdlEventSource.h"
#include "wsX11Errors.h"

#include "evKeyCode.h"
#include "evKeyboardState.h"
#include "wsEventQ.h"
#include "wsEvents.h"
#include "wsSdlWinMgr.h"
#include "wsSdlWindow.h"

#include <SDL.h>

#include <unordered_map>

namespace Zr {

namespace {

std::unordered_map<SDL_Keycode, int> const& keyTable() {
    static std::unordered_map<SDL_Keycode, int> const table = [] {
        std::unordered_map<SDL_Keycode, int> t = {
            {SDLK_LSHIFT, EvKeyCode::Shift_L},
            {SDLK_RSHIFT, EvKeyCode::Shift_R},
            {SDLK_LCTRL, EvKeyCode::Control_L},
            {SDLK_RCTRL, EvKeyCode::Control_R},
            {SDLK_LALT, EvKeyCode::Alt_L},
            {SDLK_RALT, EvKeyCode::Alt_R},
            {SDLK_MODE, EvKeyCode::Alt_R},
            {SDLK_LGUI, EvKeyCode::Meta_L},
            {SDLK_RGUI, EvKeyCode::Meta_R},
            {SDLK_CAPSLOCK, EvKeyCode::CapsLock},
            {SDLK_TAB, EvKeyCode::Tab},
            {SDLK_RETURN, EvKeyCode::Return},
            {SDLK_RETURN2, EvKeyCode::Return},
            {SDLK_BACKSPACE, EvKeyCode::BackSpace},
            {SDLK_DELETE, EvKeyCode::Delete},
            {SDLK_INSERT, EvKeyCode::Insert},
            {SDLK_ESCAPE, EvKeyCode::Escape},
            {SDLK_SPACE, EvKeyCode::Space},
            {SDLK_PRINTSCREEN, EvKeyCode::Print},
            {SDLK_PAUSE, EvKeyCode::Pause},
            {SDLK_MENU, EvKeyCode::Menu},
            {SDLK_APPLICATION, EvKeyCode::Menu},
            {SDLK_SCROLLLOCK, EvKeyCode::ScrollLock},
            {SDLK_NUMLOCKCLEAR, EvKeyCode::NumLock},
            {SDLK_HOME, EvKeyCode::Home},
            {SDLK_END, EvKeyCode::End},
            {SDLK_PAGEUP, EvKeyCode::PageUp},
            {SDLK_PAGEDOWN, EvKeyCode::PageDown},
            {SDLK_LEFT, EvKeyCode::Left},
            {SDLK_RIGHT, EvKeyCode::Right},
            {SDLK_UP, EvKeyCode::Up},
            {SDLK_DOWN, EvKeyCode::Down},
            {SDLK_KP_PLUS, EvKeyCode::KP_Add},
            {SDLK_KP_MINUS, EvKeyCode::KP_Subtract},
            {SDLK_KP_MULTIPLY, EvKeyCode::KP_Multiply},
            {SDLK_KP_DIVIDE, EvKeyCode::KP_Divide},
            {SDLK_KP_PERIOD, EvKeyCode::KP_Decimal},
            {SDLK_KP_DECIMAL, EvKeyCode::KP_Decimal},
            {SDLK_KP_EQUALS, EvKeyCode::KP_Equal},
            {SDLK_KP_ENTER, EvKeyCode::KP_Enter},
            {SDLK_BACKQUOTE, EvKeyCode::Grave},
            {SDLK_COMMA, EvKeyCode::Comma},
            {SDLK_PERIOD, EvKeyCode::Period},
            {SDLK_MINUS, EvKeyCode::Minus},
            {SDLK_EQUALS, EvKeyCode::Equal},
            {SDLK_LEFTBRACKET, EvKeyCode::BracketLeft},
            {SDLK_RIGHTBRACKET, EvKeyCode::BracketRight},
            {SDLK_BACKSLASH, EvKeyCode::Backslash},
            {SDLK_SEMICOLON, EvKeyCode::Semicolon},
            {SDLK_QUOTE, EvKeyCode::Apostrophe},
            {SDLK_SLASH, EvKeyCode::Slash},
            {SDLK_LESS, EvKeyCode::Less},
            {SDLK_HELP, EvKeyCode::Help},
            {SDLK_UNDO, EvKeyCode::Undo},
            {SDLK_AGAIN, EvKeyCode::Redo},
            {SDLK_FIND, EvKeyCode::Find},
            {SDLK_CANCEL, EvKeyCode::Cancel},
            {SDLK_CLEAR, EvKeyCode::Clear},
            {SDLK_SELECT, EvKeyCode::Select},
            {SDLK_EXECUTE, EvKeyCode::Execute},
            // No PC key is labelled for name completion; the keypad's Tab stands for it.
            {SDLK_KP_TAB, EvKeyCode::Complete},
        };
        SDL_Keycode const keypad[] = {SDLK_KP_0, SDLK_KP_1, SDLK_KP_2, SDLK_KP_3, SDLK_KP_4,
                                      SDLK_KP_5, SDLK_KP_6, SDLK_KP_7, SDLK_KP_8, SDLK_KP_9};
        for (int i = 0; i < 10; ++i) {
            t[keypad[i]] = EvKeyCode::KP_0 + i;
            t[SDLK_0 + i] = EvKeyCode::Digit0 + i;
        }
        for (int i = 0; i < 26; ++i)
            t[SDLK_a + i] = EvKeyCode::A + i;
        SDL_Keycode const functionKeys[] = {
            SDLK_F1,  SDLK_F2,  SDLK_F3,  SDLK_F4,  SDLK_F5,  SDLK_F6,  SDLK_F7,  SDLK_F8,
            SDLK_F9,  SDLK_F10, SDLK_F11, SDLK_F12, SDLK_F13, SDLK_F14, SDLK_F15, SDLK_F16,
            SDLK_F17, SDLK_F18, SDLK_F19, SDLK_F20, SDLK_F21, SDLK_F22, SDLK_F23, SDLK_F24};
        for (int i = 0; i < 24; ++i)
            t[functionKeys[i]] = EvKeyCode::F1 + i;
        return t;
    }();
    return table;
}

unsigned toButtonBit(Uint8 sdlButton) {
    switch (sdlButton) {
    case SDL_BUTTON_LEFT:
        return EvPointerState::Left;
    case SDL_BUTTON_MIDDLE:
        return EvPointerState::Middle;
    case SDL_BUTTON_RIGHT:
        return EvPointerState::Right;
    default:
        return 0;
    }
}

// Decodes UTF-8, skipping malformed bytes.
template <class Fn>
void forEachCodePoint(char const* text, Fn fn) {
    auto const* p = reinterpret_cast<unsigned char const*>(text);
    while (*p) {
        unsigned char const lead = *p;
        int extra = lead < 0x80         ? 0
                    : (lead >> 5) == 6  ? 1
                    : (lead >> 4) == 14 ? 2
                    : (lead >> 3) == 30 ? 3
                                        : -1;
        if (extra < 0) {
            ++p;
            continue;
        }
        char32_t c = extra == 0 ? lead : lead & (0x3F >> extra);
        int i = 1;
        for (; i <= extra && (p[i] & 0xC0) == 0x80; ++i)
            c = (c << 6) | (p[i] & 0x3F);
        if (i <= extra) {
            p += i;
            continue;
        }
        p += extra + 1;
        fn(c);
    }
}

} // namespace

WsSdlEventSource::WsSdlEventSource()
    : _pumpThread(std::this_thread::get_id()), _wakeUpType(SDL_RegisterEvents(1)) {}

bool WsSdlEventSource::isPumpThread() const {
    return std::this_thread::get_id() == _pumpThread;
}

void WsSdlEventSource::pump() {
    // What SDL already holds comes first and costs no system call; the connection is read only
    // when that is empty, and then once: SDL_PollEvent would read it again for every event it
    // returns. Events still on the connection are younger than those queued, so order holds.
    if (!takeQueued()) {
        SDL_PumpEvents();
        takeQueued();
    }
    closeLostWindows();
}

bool WsSdlEventSource::takeQueued() {
    SDL_Event events[16];
    int n = 0;
    bool took = false;
    while ((n = SDL_PeepEvents(events, 16, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT)) > 0) {
        for (int i = 0; i < n; ++i) {
            // Wake-ups only say that our own queue has something: a stream of them from other
            // threads must not keep the connection from being read.
            took = took || events[i].type != _wakeUpType;
            translate(events[i]);
        }
    }
    return took;
}

void WsSdlEventSource::closeLostWindows() {
    std::vector<std::uint32_t> const lost = WsX11Errors::takeLostResources();
    if (lost.empty())
        return;
    if (WsSdlWinMgr* mgr = WsSdlWinMgr::getActive())
        for (std::uint32_t id : lost)
            if (WsSdlWindow* window = mgr->findByNativeId(id))
                window->handleLost();
}

void WsSdlEventSource::waitAndPump(int timeoutMs) {
    SDL_Event event;
    if (timeoutMs > 0 && SDL_WaitEventTimeout(&event, timeoutMs))
        translate(event);
    pump();
}

void WsSdlEventSource::wakeUp() {
    SDL_Event event{};
    event.type = _wakeUpType;
    SDL_PushEvent(&event);
}

int WsSdlEventSource::toKeyCode(std::int32_t sdlKey) {
    auto const& table = keyTable();
    auto it = table.find(sdlKey);
    return it == table.end() ? EvKeyCode::NoKey : it->second;
}

unsigned WsSdlEventSource::toModifiers(unsigned sdlMod) {
    EvKeyboardState state;
    state.enable(EvKeyboardState::Shift, (sdlMod & KMOD_SHIFT) != 0);
    state.enable(EvKeyboardState::Control, (sdlMod & KMOD_CTRL) != 0);
    state.enable(EvKeyboardState::Alt, (sdlMod & KMOD_ALT) != 0);
    state.enable(EvKeyboardState::Command, (sdlMod & KMOD_GUI) != 0);
    return state.getState();
}

void WsSdlEventSource::translate(SDL_Event const& event) {
    WsSdlWinMgr* mgr = WsSdlWinMgr::getActive();
    if (!mgr || event.type == _wakeUpType)
        return;
    auto windowOf = [mgr](Uint32 id) { return mgr->findBySdlId(id); };
    WsEventQ& queue = WsEventQ::getInstance();
    auto fillDevice = [this](EvDeviceEvent& e, WsSdlWindow& w, GePoint2<int> p) {
        e.setWindowId(w.getId());
        e.setWCoord(p);
        e.setKeyboardState(EvKeyboardState(_modifiers));
    };

    switch (event.type) {
    case SDL_QUIT:
        // SDL turns SIGINT and SIGTERM into SDL_QUIT (closing windows doesn't: that goes through
        // the toolkit's own close handling). A signal to stop is an order, not a question, so
        // the exit handlers are not asked.
        queue.postEvent(std::make_unique<WsExitEvent>(WsExitEvent::DontAskExitHandlers));
        break;
    case SDL_WINDOWEVENT: {
        WsSdlWindow* w = windowOf(event.window.windowID);
        if (!w)
            return;
        switch (event.window.event) {
        case SDL_WINDOWEVENT_SHOWN:
            w->handleShown();
            break;
        case SDL_WINDOWEVENT_HIDDEN:
            w->handleHidden();
            break;
        case SDL_WINDOWEVENT_EXPOSED:
            w->handleExposed();
            break;
        case SDL_WINDOWEVENT_MOVED:
        case SDL_WINDOWEVENT_SIZE_CHANGED:
            w->handleConfigured();
            break;
        case SDL_WINDOWEVENT_CLOSE:
            w->handleClose();
            break;
        case SDL_WINDOWEVENT_ENTER:
            w->handlePointerEnter();
            break;
        default:
            break;
        }
        break;
    }
    case SDL_MOUSEMOTION: {
        WsSdlWindow* w = windowOf(event.motion.windowID);
        if (!w || event.motion.which == SDL_TOUCH_MOUSEID)
            return;
        GePoint2<int> p = w->toWindowCoord(event.motion.x, event.motion.y);
        w->setPointerPosition(p);
        auto e = std::make_unique<EvPointerMoveEvent>();
        fillDevice(*e, *w, p);
        e->setPointerState(EvPointerState(_buttons));
        queue.postEvent(std::move(e));
        break;
    }
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP: {
        WsSdlWindow* w = windowOf(event.button.windowID);
        unsigned const bit = toButtonBit(event.button.button);
        if (!w || bit == 0 || event.button.which == SDL_TOUCH_MOUSEID)
            return;
        GePoint2<int> p = w->toWindowCoord(event.button.x, event.button.y);
        w->setPointerPosition(p);
        OPtr<EvPointerButtonEvent> e;
        if (event.type == SDL_MOUSEBUTTONDOWN) {
            _buttons |= bit;
            e = std::make_unique<EvPointerButtonDownEvent>();
        } else {
            _buttons &= ~bit;
            e = std::make_unique<EvPointerButtonUpEvent>();
        }
        fillDevice(*e, *w, p);
        // The buttons held once this event has happened.
        e->setPointerState(EvPointerState(_buttons));
        e->setTriggerButton(bit);
        e->setDoubleClick(event.button.clicks >= 2);
        queue.postEvent(std::move(e));
        break;
    }
    case SDL_MOUSEWHEEL: {
        WsSdlWindow* w = windowOf(event.wheel.windowID);
        if (!w || event.wheel.which == SDL_TOUCH_MOUSEID)
            return;
        int const sign = event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -1 : 1;
        int const dx = event.wheel.x * sign, dy = event.wheel.y * sign;
        auto postScroll = [&](int direction) {
            auto e = std::make_unique<EvPointerScrollEvent>();
            fillDevice(*e, *w, w->getPointerPosition());
            e->setPointerState(EvPointerState(_buttons));
            e->setScrollDirection(direction);
            queue.postEvent(std::move(e));
        };
        if (dy > 0)
            postScroll(EvPointerScrollEvent::Up);
        else if (dy < 0)
            postScroll(EvPointerScrollEvent::Down);
        if (dx > 0)
            postScroll(EvPointerScrollEvent::Right);
        else if (dx < 0)
            postScroll(EvPointerScrollEvent::Left);
        break;
    }
    case SDL_KEYDOWN:
    case SDL_KEYUP: {
        bool const down = event.type == SDL_KEYDOWN;
        _modifiers = toModifiers(event.key.keysym.mod);
        int const code = toKeyCode(event.key.keysym.sym);
        if (code != EvKeyCode::NoKey)
            EvKeyboardState::setKeyDown(code, down);
        WsSdlWindow* w = windowOf(event.key.windowID);
        if (!w || code == EvKeyCode::NoKey)
            return;
        if (down && event.key.repeat && !mgr->isKeyAutoRepeat())
            return;
        OPtr<EvKeyEvent> e;
        if (down)
            e = std::make_unique<EvKeyPressEvent>();
        else
            e = std::make_unique<EvKeyReleaseEvent>();
        fillDevice(*e, *w, w->getPointerPosition());
        e->setTriggerKey(code);
        queue.postEvent(std::move(e));
        break;
    }
    case SDL_TEXTINPUT: {
        WsSdlWindow* w = windowOf(event.text.windowID);
        if (!w)
            return;
        forEachCodePoint(event.text.text, [&](char32_t c) {
            auto e = std::make_unique<EvCharEvent>();
            fillDevice(*e, *w, w->getPointerPosition());
            e->setChar(c);
            queue.postEvent(std::move(e));
        });
        break;
    }
    default:
        break;
    }
}

} // namespace Zr
