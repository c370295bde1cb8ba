// UiGrab: the two grab instances and the hand-over between holders; UiGrabHandler's release of
// its grabs when it goes away.
#include "uiGrab.h"

#include "lkSingleton.h"

namespace Zr {

// The pair of grabs, built together on first use and destroyed at exit.
struct UiGrabInstances {
    UiGrab pointer{UiGrab::Pointer};
    UiGrab keyboard{UiGrab::Keyboard};
};

UiGrab& UiGrab::pointer() {
    return LkSingleton<UiGrabInstances>::getInstance().pointer;
}

UiGrab& UiGrab::keyboard() {
    return LkSingleton<UiGrabInstances>::getInstance().keyboard;
}

UiGrab* UiGrab::findInstance(DeviceType type) {
    if (!LkSingleton<UiGrabInstances>::isInitialized())
        return nullptr;
    auto& both = LkSingleton<UiGrabInstances>::getInstance();
    return type == Pointer ? &both.pointer : &both.keyboard;
}

bool UiGrab::grab(UiGrabHandler* handler) {
    if (!handler)
        return false;
    if (_current == handler)
        return true;
    // A release callback may grab for itself: take the grab from each holder in turn.
    while (_current)
        takeFromCurrent();
    _current = handler;
    EvGrabAcquiredEvent acquired;
    acquired.setDeviceType(_deviceType);
    handler->processEvent(acquired);
    UiGrab const* self = this;
    _grabCbs.call(self);
    return true;
}

bool UiGrab::release(UiGrabHandler* handler) {
    if (!_current || _current != handler)
        return false;
    takeFromCurrent();
    return true;
}

void UiGrab::clear() {
    if (_current)
        takeFromCurrent();
}

void UiGrab::takeFromCurrent() {
    UiGrabHandler* old = _current;
    _current = nullptr;
    EvGrabLostEvent lost;
    lost.setDeviceType(_deviceType);
    old->processEvent(lost);
    UiGrab const* self = this;
    _releaseCbs.call(self);
}

void UiGrab::forgetHandler(UiGrabHandler* handler) {
    if (!handler || _current != handler)
        return;
    _current = nullptr;
    UiGrab const* self = this;
    _releaseCbs.call(self);
}

UiGrabHandler::~UiGrabHandler() {
    // The handler's own processEvent is gone by now, so it gets no grab-lost notice.
    for (auto type : {UiGrab::Pointer, UiGrab::Keyboard})
        if (UiGrab* grab = UiGrab::findInstance(type))
            grab->forgetHandler(this);
}

} // namespace Zr
