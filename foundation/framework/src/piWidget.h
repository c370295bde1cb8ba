// PiWidget: what a plug-in sees of a widget. The toolkit hands out adapters that forward these
// operations to the real widget; a plug-in never sees the toolkit's own classes.
#pragma once

#include "cbDispatcher.h"
#include "evEvent.h"
#include "gePoint2.h"
#include "rcBase.h"

#include <string>

namespace Zr {

class PiWidget : public RCObject {
public:
    // The callbacks open to plug-ins, in the order of the widget's own registration methods.
    // The underlying type is fixed so that any integer may travel as an EventType: values
    // outside this list are accepted and ignored.
    enum EventType : int {
        Destroy = 0,
        Enable = 1,
        Disable = 2,
        Lock = 3,
        Unlock = 4,
        Arm = 5,
        Disarm = 6,
        Map = 7,
        UnMap = 8,
        FocusIn = 9,
        FocusOut = 10,
        KbdFocusIn = 11,
        KbdFocusOut = 12,
        Mmove = 13,
        Resize = 14,
        Reposition = 15,
        GrabAcquired = 16,
        GrabLost = 17,
        KeyPress = 18,
        KeyRelease = 19,
        InputChar = 20,
        Activate = 21,
        Hotkey = 22
    };

    // Applies resources given as the text of a widget record's contents, such as
    // <Foreground><Color>Red</Color></Foreground>; bad resources are reported and skipped.
    virtual void changeResource(std::string const& text) = 0;
    virtual void display(bool on) = 0;
    virtual void show() = 0;
    virtual void hide() = 0;
    virtual bool isDisplayed() const = 0;
    virtual bool isMapped() const = 0;
    virtual void enable(bool enabled) = 0;
    virtual bool isEnabled() const = 0;
    virtual void lock() = 0;
    virtual void unlock() = 0;
    virtual bool isLocked() const = 0;
    // Whether a point in the coordinates of the widget's parent lies on the widget.
    virtual bool isInside(GePoint2<int> const& p) const = 0;
    virtual bool isOpaque() const = 0;
    // Whether `other` stands for the same widget as this one (two interfaces of one widget may
    // be distinct objects).
    virtual bool isSame(RCShdPtr<PiWidget const> const& other) const = 0;
    virtual std::string getName() const = 0;
    virtual void setName(std::string const& name) = 0;
    // Adds or removes a handler of one of the callbacks above; the handler stays the caller's.
    virtual void addCallback(EventType type, CbHandler<EvEvent>* handler) = 0;
    virtual void removeCallback(EventType type, CbHandler<EvEvent>* handler) = 0;

protected:
    PiWidget() = default;
    ~PiWidget() override;
};

} // namespace Zr
