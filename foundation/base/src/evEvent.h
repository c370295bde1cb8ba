// EvEvent and its family: everything that passes through the event loop, from pointer and key
// events of the windowing layer to deferred requests and focus notices.
#pragma once

#include "coRgbColor.h"
#include "dtTime.h"
#include "evKeyboardState.h"
#include "geRectangle.h"
#include "rcBase.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <type_traits>
#include <vector>

namespace Zr {

class EvEvent {
public:
    EvEvent() = default;
    EvEvent(EvEvent const&) = default;
    EvEvent& operator=(EvEvent const&) = default;
    virtual ~EvEvent() = default;

    bool isProcessed() const { return _processed; }
    void setProcessed(bool p = true) { _processed = p; }

    virtual char const* getClassName() const { return "EvEvent"; }
    // The families of pointer, key and window-system events this event belongs to, as bits:
    // a dispatch tests them with evCast, a virtual call, where a dynamic_cast across the
    // shared libraries would compare type names.
    static constexpr unsigned Kinds = 0;
    virtual unsigned getKinds() const { return Kinds; }
    virtual OPtr<EvEvent> clone() const { return std::make_unique<EvEvent>(*this); }
    // Writes the class name and the fields; read takes the fields back in the same order.
    virtual void dump(std::ostream& os) const;
    virtual void read(std::istream& is);

private:
    bool _processed = false;
};

// Gives an event class its name and a clone of its own type.
#define ZR_EVENT_CLASS(Name)                                                                       \
    unsigned getKinds() const override {                                                           \
        return Kinds;                                                                              \
    }                                                                                              \
    char const* getClassName() const override {                                                    \
        return #Name;                                                                              \
    }                                                                                              \
    ::Zr::OPtr<::Zr::EvEvent> clone() const override {                                             \
        return std::make_unique<Name>(*this);                                                      \
    }

// Gives an event family its own kind bit; evCast<Name> then recognises it and its subclasses.
#define ZR_EVENT_KIND(Name, Base, Bit)                                                             \
    using KindClass = Name;                                                                        \
    static constexpr unsigned KindBit = Bit;                                                       \
    static constexpr unsigned Kinds = Base::Kinds | Bit;

class EvDefaultEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(EvDefaultEvent)
};

// A deferred piece of work run on the loop's thread. The queue holds it until its target time.
class EvRequestEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(EvRequestEvent)
    void setTargetTime(DtTimeIndex t) { _targetTime = t; }
    DtTimeIndex getTargetTime() const { return _targetTime; }
    // The loop calls process; the default runs execute.
    virtual void process() { execute(); }
    virtual void execute() {}

private:
    DtTimeIndex _targetTime{0};
};

// Identifies a window of the windowing layer; 0 is no window.
using WsWindowId = std::uintptr_t;

// The base of everything that comes from the windowing layer. The origin is where the
// receiver's coordinate space lies in the window: coordinates are read relative to it.
class EvSystemInterfaceEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(EvSystemInterfaceEvent)
    ZR_EVENT_KIND(EvSystemInterfaceEvent, EvEvent, 1u)
    WsWindowId getWindowId() const { return _windowId; }
    void setWindowId(WsWindowId id) { _windowId = id; }
    GePoint2<int> getOrigin() const { return _origin; }
    void setOrigin(GePoint2<int> const& o) { _origin = o; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    WsWindowId _windowId = 0;
    GePoint2<int> _origin;
};

// A device event keeps its position in window coordinates; getCoord gives it relative to the
// origin, so rebasing the origin moves the event into a widget's coordinate space.
class EvDeviceEvent : public EvSystemInterfaceEvent {
public:
    ZR_EVENT_CLASS(EvDeviceEvent)
    ZR_EVENT_KIND(EvDeviceEvent, EvSystemInterfaceEvent, 2u)
    GePoint2<int> getCoord() const { return _wcoord - (getOrigin() - GePoint2<int>()); }
    void setCoord(GePoint2<int> const& c) { _wcoord = c + (getOrigin() - GePoint2<int>()); }
    GePoint2<int> getWCoord() const { return _wcoord; }
    void setWCoord(GePoint2<int> const& c) { _wcoord = c; }
    EvKeyboardState const& getKeyboardState() const { return _keyboardState; }
    void setKeyboardState(EvKeyboardState const& s) { _keyboardState = s; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    GePoint2<int> _wcoord;
    EvKeyboardState _keyboardState;
};

class EvPointerEvent : public EvDeviceEvent {
public:
    ZR_EVENT_CLASS(EvPointerEvent)
    ZR_EVENT_KIND(EvPointerEvent, EvDeviceEvent, 4u)
    EvPointerState const& getPointerState() const { return _pointerState; }
    void setPointerState(EvPointerState const& s) { _pointerState = s; }
    float getPenPressure() const { return _penPressure; }
    void setPenPressure(float p) { _penPressure = p; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    EvPointerState _pointerState;
    float _penPressure = 1.0f;
};

class EvPointerButtonEvent : public EvPointerEvent {
public:
    ZR_EVENT_CLASS(EvPointerButtonEvent)
    ZR_EVENT_KIND(EvPointerButtonEvent, EvPointerEvent, 8u)
    // Bit mask: 1 left, 2 middle, 4 right.
    unsigned getTriggerButton() const { return _triggerButton; }
    void setTriggerButton(unsigned b) { _triggerButton = b; }
    bool isDoubleClick() const { return _doubleClick; }
    void setDoubleClick(bool d) { _doubleClick = d; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    unsigned _triggerButton = 0;
    bool _doubleClick = false;
};

class EvPointerButtonDownEvent : public EvPointerButtonEvent {
public:
    ZR_EVENT_CLASS(EvPointerButtonDownEvent)
    ZR_EVENT_KIND(EvPointerButtonDownEvent, EvPointerButtonEvent, 16u)
};

class EvPointerButtonUpEvent : public EvPointerButtonEvent {
public:
    ZR_EVENT_CLASS(EvPointerButtonUpEvent)
    ZR_EVENT_KIND(EvPointerButtonUpEvent, EvPointerButtonEvent, 32u)
    EvPointerButtonUpEvent() = default;
    // The release matching a press: same window, place, button and modifiers.
    explicit EvPointerButtonUpEvent(EvPointerButtonDownEvent const& down);
};

// A move may carry the path of earlier moves that the loop folded into it.
class EvPointerMoveEvent : public EvPointerEvent {
public:
    ZR_EVENT_CLASS(EvPointerMoveEvent)
    ZR_EVENT_KIND(EvPointerMoveEvent, EvPointerEvent, 64u)
    std::vector<GePoint2<int>> const& getCompressedCoords() const { return _compressedCoords; }
    std::vector<float> const& getCompressedPressures() const { return _compressedPressures; }
    void prependCompressedData(std::vector<GePoint2<int>> const& coords,
                               std::vector<float> const& pressures);

private:
    std::vector<GePoint2<int>> _compressedCoords;
    std::vector<float> _compressedPressures;
};

class EvPointerScrollEvent : public EvPointerEvent {
public:
    ZR_EVENT_CLASS(EvPointerScrollEvent)
    ZR_EVENT_KIND(EvPointerScrollEvent, EvPointerEvent, 128u)
    enum Direction : int { Up = 1, Down = 2, Left = 4, Right = 8 };
    // 1 and 2 vertical, 4 and 8 horizontal.
    int getScrollDirection() const { return _direction; }
    void setScrollDirection(int d) { _direction = d; }

private:
    int _direction = 0;
};

class EvKeyboardEvent : public EvDeviceEvent {
public:
    ZR_EVENT_CLASS(EvKeyboardEvent)
    ZR_EVENT_KIND(EvKeyboardEvent, EvDeviceEvent, 256u)
};

class EvKeyEvent : public EvKeyboardEvent {
public:
    ZR_EVENT_CLASS(EvKeyEvent)
    ZR_EVENT_KIND(EvKeyEvent, EvKeyboardEvent, 512u)
    int getTriggerKey() const { return _triggerKey; }
    void setTriggerKey(int k) { _triggerKey = k; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    int _triggerKey = 0;
};

class EvKeyPressEvent : public EvKeyEvent {
public:
    ZR_EVENT_CLASS(EvKeyPressEvent)
    ZR_EVENT_KIND(EvKeyPressEvent, EvKeyEvent, 1024u)
};

class EvKeyReleaseEvent : public EvKeyEvent {
public:
    ZR_EVENT_CLASS(EvKeyReleaseEvent)
    ZR_EVENT_KIND(EvKeyReleaseEvent, EvKeyEvent, 2048u)
};

// Text input: one character as a code point, with its UTF-8 form.
class EvCharEvent : public EvKeyboardEvent {
public:
    ZR_EVENT_CLASS(EvCharEvent)
    ZR_EVENT_KIND(EvCharEvent, EvKeyboardEvent, 4096u)
    EvCharEvent() = default;
    explicit EvCharEvent(char32_t c) : _char(c) {}
    char32_t getChar() const { return _char; }
    void setChar(char32_t c) { _char = c; }
    std::string getUtf8() const;

private:
    char32_t _char = 0;
};

// A key event recognised as the hotkey entry `entry`.
class EvHotkeyEvent : public EvKeyEvent {
public:
    ZR_EVENT_CLASS(EvHotkeyEvent)
    ZR_EVENT_KIND(EvHotkeyEvent, EvKeyEvent, 8192u)
    EvHotkeyEvent() = default;
    EvHotkeyEvent(EvKeyboardEvent const& from, int entry);
    int getEntry() const { return _entry; }
    void setEntry(int e) { _entry = e; }

private:
    int _entry = -1;
};

// Notices about devices: grabs and focus. Device type 1 is the pointer, 2 the keyboard.
class EvDeviceManagementEvent : public EvSystemInterfaceEvent {
public:
    ZR_EVENT_CLASS(EvDeviceManagementEvent)
    int getDeviceType() const { return _deviceType; }
    void setDeviceType(int t) { _deviceType = t; }

private:
    int _deviceType = 0;
};

#define ZR_DEVICE_NOTICE(Name)                                                                     \
    class Name : public EvDeviceManagementEvent {                                                  \
    public:                                                                                        \
        ZR_EVENT_CLASS(Name)                                                                       \
    }
ZR_DEVICE_NOTICE(EvGrabAcquiredEvent);
ZR_DEVICE_NOTICE(EvGrabLostEvent);
ZR_DEVICE_NOTICE(EvFocusInEvent);
ZR_DEVICE_NOTICE(EvFocusOutEvent);
ZR_DEVICE_NOTICE(EvKbdFocusInEvent);
ZR_DEVICE_NOTICE(EvKbdFocusOutEvent);
#undef ZR_DEVICE_NOTICE

// Sent to user draw callbacks: where the widget's space lies and the region being painted.
class EvDrawEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(EvDrawEvent)
    EvDrawEvent() = default;
    EvDrawEvent(GePoint2<int> const& origin, GeRectangle<int> const& region)
        : _origin(origin), _region(region) {}
    GePoint2<int> getOrigin() const { return _origin; }
    GeRectangle<int> const& getDrawRegion() const { return _region; }
    void setSender(RCObject* s) { _sender = s; }
    RCObject* getSender() const { return _sender; }

private:
    GePoint2<int> _origin;
    GeRectangle<int> _region;
    RCObject* _sender = nullptr;
};

class EvTooltipEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(EvTooltipEvent)
    EvTooltipEvent() = default;
    EvTooltipEvent(GePoint2<int> const& point, std::string text, GeRectangle<int> const& region)
        : _point(point), _text(std::move(text)), _region(region) {}
    GePoint2<int> getPoint() const { return _point; }
    std::string const& getTooltip() const { return _text; }
    GeRectangle<int> const& getRegion() const { return _region; }

private:
    GePoint2<int> _point;
    std::string _text;
    GeRectangle<int> _region;
};

// The event as T if it belongs to T's family (T or a subclass), else null: dynamic_cast for the
// families that carry a kind bit.
template <class T>
T* evCast(EvEvent* e) {
    static_assert(std::is_same_v<typename T::KindClass, T>, "evCast needs a family with a kind");
    return e && (e->getKinds() & T::KindBit) ? static_cast<T*>(e) : nullptr;
}
template <class T>
T* evCast(EvEvent& e) {
    return evCast<T>(&e);
}
template <class T>
T const* evCast(EvEvent const& e) {
    return evCast<T>(const_cast<EvEvent*>(&e));
}

} // namespace Zr
