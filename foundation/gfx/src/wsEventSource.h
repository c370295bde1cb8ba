// WsEventSource: what a window system plugs into WsEventQ so that the loop's blocking waits
// wait on the window system's input as well, and translate it into the queue.
#pragma once

namespace Zr {

class WsEventSource {
public:
    WsEventSource() = default;
    WsEventSource(WsEventSource const&) = delete;
    WsEventSource& operator=(WsEventSource const&) = delete;
    virtual ~WsEventSource();

    // Whether the calling thread is the one that may read the window system (the loop's).
    virtual bool isPumpThread() const = 0;
    // Posts to WsEventQ what the window system has ready, without waiting. Pump thread only.
    virtual void pump() = 0;
    // Waits up to `timeoutMs` milliseconds for input or a wakeUp, then pumps. Pump thread only.
    virtual void waitAndPump(int timeoutMs) = 0;
    // From any thread: ends the present waitAndPump, or the next one if none is in progress.
    virtual void wakeUp() = 0;
};

} // namespace Zr
