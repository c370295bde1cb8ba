// UiGrabHandler: anything that can hold a pointer or keyboard grab and receive the events it
// captures. Widgets are grab handlers through their UiWidgetImp.
#pragma once

#include "zrBase.h"

namespace Zr {

class UiGrabHandler {
public:
    UiGrabHandler() = default;
    UiGrabHandler(UiGrabHandler const&) = delete;
    UiGrabHandler& operator=(UiGrabHandler const&) = delete;
    // Releases any grab the handler still holds.
    virtual ~UiGrabHandler();
    virtual void processEvent(EvEvent& event) = 0;
    // Where the handler's coordinate space lies in the window: events under a grab get it.
    virtual GePoint2<int> getProcessOrigin() const = 0;
    // With it set, an unprocessed event under a grab may go on to the top level's pointer
    // handlers.
    virtual void setAllowPtrHandlingInGrab(bool allow) { _allowPtrHandlingInGrab = allow; }
    virtual bool allowPtrHandlingInGrab() const { return _allowPtrHandlingInGrab; }
    virtual std::string getHandlerName() const = 0;

private:
    bool _allowPtrHandlingInGrab = false;
};

} // namespace Zr
