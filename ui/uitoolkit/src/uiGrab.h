// UiGrab: the pointer grab and the keyboard grab. While a handler holds one, it gets the
// device's events ahead of focus and position.
#pragma once

#include "uiGrabHandler.h"

namespace Zr {

class UiGrab {
public:
    enum DeviceType { Pointer = 1, Keyboard = 2 };

    static UiGrab& pointer();
    static UiGrab& keyboard();

    // Takes the grab from whoever holds it (who gets EvGrabLostEvent and the release callbacks)
    // and gives it to `handler` (EvGrabAcquiredEvent and the grab callbacks). A null handler
    // returns false; the holder grabbing again returns true and fires nothing.
    bool grab(UiGrabHandler* handler);
    // Returns false unless `handler` holds the grab.
    bool release(UiGrabHandler* handler);
    void clear();
    UiGrabHandler* getCurrent() const { return _current; }
    DeviceType getDeviceType() const { return _deviceType; }

    void registerGrabCb(CbHandler<UiGrab const*>* h) { _grabCbs.addHandler(h); }
    void unregisterGrabCb(CbHandler<UiGrab const*>* h) { _grabCbs.removeHandler(h); }
    void registerReleaseCb(CbHandler<UiGrab const*>* h) { _releaseCbs.addHandler(h); }
    void unregisterReleaseCb(CbHandler<UiGrab const*>* h) { _releaseCbs.removeHandler(h); }

private:
    friend struct UiGrabInstances;
    friend class UiGrabHandler;
    explicit UiGrab(DeviceType type) : _deviceType(type) {}
    // Takes the grab away from the holder: it gets EvGrabLostEvent, then the release callbacks.
    void takeFromCurrent();
    // For a holder being destroyed: the grab goes without an event to it, the release
    // callbacks still run.
    void forgetHandler(UiGrabHandler* handler);
    // Both instances, or null once they have been destroyed at exit.
    static UiGrab* findInstance(DeviceType type);

    DeviceType _deviceType;
    UiGrabHandler* _current = nullptr;
    CbDispatcher<UiGrab const*> _grabCbs;
    CbDispatcher<UiGrab const*> _releaseCbs;
};

} // namespace Zr
