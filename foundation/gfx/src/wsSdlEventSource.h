// WsSdlEventSource: SDL's input as the toolkit's events. WsEventQ's waits block in SDL on the
// loop's thread and post what SDL delivers; posts from other threads wake SDL's wait.
#pragma once

#include "wsEventSource.h"

#include <cstdint>
#include <thread>

union SDL_Event;

namespace Zr {

class WsSdlEventSource : public WsEventSource {
public:
    // The calling thread becomes the pump thread; SDL's video must be up.
    WsSdlEventSource();

    bool isPumpThread() const override;
    void pump() override;
    void waitAndPump(int timeoutMs) override;
    void wakeUp() override;
    // Reports the windows that X errors named as gone as closed.
    void closeLostWindows();
    // Translates the events SDL holds now, without reading the connection; whether any was
    // more than a wake-up.
    bool takeQueued();

    // The toolkit's key code (EvKeyCode) of an SDL key code; 0 for a key it doesn't know.
    static int toKeyCode(std::int32_t sdlKey);
    // EvKeyboardState bits of SDL's modifier bits.
    static unsigned toModifiers(unsigned sdlMod);

    // Turns one SDL event into the toolkit's events and callbacks.
    void translate(SDL_Event const& event);

private:
    std::thread::id _pumpThread;
    std::uint32_t _wakeUpType;
    // The buttons held, as EvPointerState bits, and the modifiers, from the events seen.
    unsigned _buttons = 0;
    unsigned _modifiers = 0;
};

} // namespace Zr
