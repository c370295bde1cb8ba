// The events of the windowing layer: exposure, configuration, mapping and closing of a window,
// and the exit event that ends the application's loop.
#pragma once

#include "evEvent.h"
#include "geRectangle.h"

#include <iosfwd>

namespace Zr {

// A part of a window must be painted again; the region is in window coordinates.
class WsExposeEvent : public EvSystemInterfaceEvent {
public:
    ZR_EVENT_CLASS(WsExposeEvent)
    WsExposeEvent() = default;
    WsExposeEvent(WsWindowId id, GeRectangle<int> const& region) : _region(region) {
        setWindowId(id);
    }
    GeRectangle<int> const& getRegion() const { return _region; }
    void setRegion(GeRectangle<int> const& r) { _region = r; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    GeRectangle<int> _region;
};

// The window moved or changed size; the region is its new geometry.
class WsConfigureEvent : public EvSystemInterfaceEvent {
public:
    ZR_EVENT_CLASS(WsConfigureEvent)
    WsConfigureEvent() = default;
    WsConfigureEvent(WsWindowId id, GeRectangle<int> const& region) : _windowRegion(region) {
        setWindowId(id);
    }
    GeRectangle<int> const& getWindowRegion() const { return _windowRegion; }
    void setWindowRegion(GeRectangle<int> const& r) { _windowRegion = r; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    GeRectangle<int> _windowRegion;
};

class WsMapNotifyEvent : public EvSystemInterfaceEvent {
public:
    ZR_EVENT_CLASS(WsMapNotifyEvent)
    WsMapNotifyEvent() = default;
    explicit WsMapNotifyEvent(WsWindowId id) { setWindowId(id); }
};

class WsUnmapNotifyEvent : public EvSystemInterfaceEvent {
public:
    ZR_EVENT_CLASS(WsUnmapNotifyEvent)
    WsUnmapNotifyEvent() = default;
    explicit WsUnmapNotifyEvent(WsWindowId id) { setWindowId(id); }
};

// The user asked to close the window (its close button or the window manager).
class WsWindowCloseEvent : public EvSystemInterfaceEvent {
public:
    ZR_EVENT_CLASS(WsWindowCloseEvent)
    WsWindowCloseEvent() = default;
    explicit WsWindowCloseEvent(WsWindowId id) { setWindowId(id); }
};

// Ends the application's loop. Mode 0 asks the exit handlers first; mode 1 is posted by
// code that has asked them already, or that must not let them refuse.
class WsExitEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(WsExitEvent)
    enum ExitHandlingMode : int { AskExitHandlers = 0, DontAskExitHandlers = 1 };

    explicit WsExitEvent(ExitHandlingMode mode = AskExitHandlers) : _mode(mode) {}
    // The numeric form, as the loop's callers write it: WsExitEvent(1).
    explicit WsExitEvent(int mode);
    ExitHandlingMode getExitHandlingMode() const { return _mode; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    ExitHandlingMode _mode;
};

} // namespace Zr
