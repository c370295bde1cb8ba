// UiDragAndDrop: what a widget can do as a drag source and a drop target. Every widget has one;
// the base object says no to everything until a client enables dragging.
#pragma once

#include "zrBase.h"

#include <functional>

namespace Zr {

class UiWidget;

class UiDragAndDrop : public RCObject {
public:
    static RCShdPtr<UiDragAndDrop> create();

    void setDragEnabled(bool on) { _dragEnabled = on; }
    bool isDragEnabled() const { return _dragEnabled; }
    void setDropEnabled(bool on) { _dropEnabled = on; }
    bool isDropEnabled() const { return _dropEnabled; }
    void setActivateEnabled(bool on) { _activateEnabled = on; }
    bool isActivateEnabled() const { return _activateEnabled; }
    void setActivateOnDragEnterOnly(bool on) { _activateOnDragEnterOnly = on; }
    bool isActivateOnDragEnterOnly() const { return _activateOnDragEnterOnly; }

    // Whether the press recognised on `widget` starts a drag. Without a source there is none.
    virtual bool willDrag(EvEvent& event, RCShdPtr<UiWidget> const& widget);
    // Whether this object drags in the pick-and-stick mode: one click picks, the next drops.
    virtual bool isPickAndStick() const { return false; }

    static void setPickAndStickActive(bool on) { _pickAndStickActive = on; }
    static bool isPickAndStickActive() { return _pickAndStickActive; }

    // Starting a drag: the transporter that runs it installs itself here. `widget` got the
    // event, `carrier` is the widget whose object drags. Without a starter nothing starts.
    using TransporterStarter =
        std::function<void(UiWidget& widget, EvEvent& event, UiWidget& carrier, bool pickAndStick)>;
    static void setTransporterStarter(TransporterStarter starter);
    static void startTransporter(UiWidget& widget, EvEvent& event, UiWidget& carrier,
                                 bool pickAndStick);

protected:
    UiDragAndDrop() = default;
    ~UiDragAndDrop() override = default;

private:
    bool _dragEnabled = false;
    bool _dropEnabled = false;
    bool _activateEnabled = false;
    bool _activateOnDragEnterOnly = false;
    static bool _pickAndStickActive;
};

} // namespace Zr
