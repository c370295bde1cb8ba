// UiDragAndDrop: what a widget can do as a drag source and a drop target. Every widget has one;
// the base object rests on a DrSrcSink and says no to everything until a client gives it a sink
// and enables dragging or dropping.
#pragma once

#include "zrBase.h"

#include "drCarrier.h"
#include "drSrcSink.h"

#include <string>
#include <vector>

namespace Zr {

class UiGrabHandler;
class UiWidget;
class WsManagedImage;

class UiDragAndDrop : public RCObject {
public:
    // One drag: the carrier with the data, the pointer's place in the target's rectangle (in
    // pixels from its lower-left corner), the source and the target widgets, and whether both
    // are in one window.
    class Info {
    public:
        explicit Info(RCShdPtr<DrCarrier> carrier) : _carrier(std::move(carrier)) {}

        RCShdPtr<DrCarrier> const& getCarrier() const { return _carrier; }
        GePoint2<int> const& getLocation() const { return _location; }
        void setLocation(GePoint2<int> const& location) { _location = location; }
        RCShdPtr<UiWidget> const& getSource() const { return _source; }
        void setSource(RCShdPtr<UiWidget> const& source) { _source = source; }
        RCShdPtr<UiWidget> const& getTarget() const { return _target; }
        void setTarget(RCShdPtr<UiWidget> const& target) { _target = target; }
        bool isLocal() const { return _local; }
        void setLocal(bool local) { _local = local; }
        // A carrier that holds data.
        bool isValidDrag() const { return _carrier && _carrier->hasData(); }

    private:
        RCShdPtr<DrCarrier> _carrier;
        GePoint2<int> _location;
        RCShdPtr<UiWidget> _source;
        RCShdPtr<UiWidget> _target;
        bool _local = false;
    };

    // Requests that change a flag on the loop's next turn, so that a callback of a running
    // drag can change what the drag sees without pulling the ground from under it.
    class SetDragEnabledRequest : public EvRequestEvent {
    public:
        ZR_EVENT_CLASS(SetDragEnabledRequest)
        SetDragEnabledRequest(RCShdPtr<UiDragAndDrop> target, bool on);
        void execute() override;

    private:
        RCShdPtr<UiDragAndDrop> _target;
        bool _on;
    };
    class SetDropEnabledRequest : public EvRequestEvent {
    public:
        ZR_EVENT_CLASS(SetDropEnabledRequest)
        SetDropEnabledRequest(RCShdPtr<UiDragAndDrop> target, bool on);
        void execute() override;

    private:
        RCShdPtr<UiDragAndDrop> _target;
        bool _on;
    };
    class SetActivateEnabledRequest : public EvRequestEvent {
    public:
        ZR_EVENT_CLASS(SetActivateEnabledRequest)
        SetActivateEnabledRequest(RCShdPtr<UiDragAndDrop> target, bool on);
        void execute() override;

    private:
        RCShdPtr<UiDragAndDrop> _target;
        bool _on;
    };

    static RCShdPtr<UiDragAndDrop> create();
    ~UiDragAndDrop() override;

    void setDragEnabled(bool on) { _dragEnabled = on; }
    bool isDragEnabled() const { return _dragEnabled; }
    void setDropEnabled(bool on) { _dropEnabled = on; }
    bool isDropEnabled() const { return _dropEnabled; }
    // Whether hovering over this target during a drag may activate it (open a tab, say).
    void setActivateEnabled(bool on) { _activateEnabled = on; }
    bool isActivateEnabled() const { return _activateEnabled; }
    // With it set, the hover activates once per entry into the target instead of again after
    // each pause while the pointer keeps moving on it.
    void setActivateOnDragEnterOnly(bool on) { _activateOnDragEnterOnly = on; }
    bool isActivateOnDragEnterOnly() const { return _activateOnDragEnterOnly; }
    void setDndSrcSink(RCShdPtr<DrSrcSink> const& srcSink) { _srcSink = srcSink; }
    RCShdPtr<DrSrcSink> const& getDndSrcSink() const { return _srcSink; }

    // --- the source side --------------------------------------------------------------------
    // Whether the gesture recognised on `widget` starts a drag: the sink's will-populate.
    virtual bool willDrag(EvEvent& event, RCShdPtr<UiWidget> const& widget);
    // A new carrier with an empty selection that the sink fills; the carrier's location is the
    // event's place in the widget's canvas, in pixels. Null without a sink.
    virtual OPtr<Info> beginDrag(EvEvent& event, RCShdPtr<UiWidget> const& widget);
    // The image that follows the pointer; false (no image) by default.
    virtual bool getDragAndDropImage(RCShdPtr<WsManagedImage>* image, Info& info);
    // Names of what is dragged, for a client that lists them; none by default.
    virtual std::vector<std::string> getDragAndDropNames(Info& info);

    // --- the target side ---------------------------------------------------------------------
    // Each move over the target, on entering and on leaving it. Nothing by default.
    virtual void dragOver(Info& info);
    virtual void dragEnter(Info& info);
    virtual void dragLeave(Info& info);
    // The four below first store in the carrier the location as a fraction of the target's
    // width and height ((0, 0) without a target), then ask the sink.
    // The source hears that its drag ended without a drop: the sink's operation-cancelled.
    virtual void cancelDragAndDrop(Info& info);
    // Whether the target takes the carrier: the sink's will-consume. False without a sink.
    virtual bool willAcceptDrop(Info& info);
    // The target takes the carrier: the sink's consume; returns whether it was used.
    virtual bool beginDrop(Info& info);
    // The source hears that its carrier was dropped and taken: the sink's drop-completed.
    virtual void dragAndDropComplete(Info& info);
    // Whether hovering activates the target; false by default.
    virtual bool willAcceptActivate(Info& info);
    // Hovering lasted: activate the target. `transporter` runs the drag. Nothing by default.
    virtual void activateWidget(Info& info, UiGrabHandler* transporter);

    // --- pick and stick ------------------------------------------------------------------------
    // Whether a press here picks the data up to stick to the pointer until the next click.
    // False by default.
    virtual bool willPickAndStick();
    // The picked data were put down nowhere: by default as cancelDragAndDrop.
    virtual void cancelPickAndStick(Info& info);
    // The picked data were dropped and taken: by default as dragAndDropComplete.
    virtual void pickAndStickComplete(Info& info);

    static void setPickAndStickActive(bool on) { _pickAndStickActive = on; }
    static bool isPickAndStickActive() { return _pickAndStickActive; }

    // Hands `carrier` to `target` as a drop at its lower-left corner would, without a drag
    // (a paste does this): true when the target's object accepted and took it.
    static bool consumeSelection(RCShdPtr<UiWidget> const& target,
                                 RCShdPtr<DrCarrier> const& carrier);

protected:
    UiDragAndDrop() = default;
    // Stores in the carrier the Info's location over the size of the target's rectangle.
    static void storeTargetFraction(Info& info);

private:
    bool _dragEnabled = false;
    bool _dropEnabled = false;
    bool _activateEnabled = false;
    bool _activateOnDragEnterOnly = false;
    RCShdPtr<DrSrcSink> _srcSink;
    static bool _pickAndStickActive;
};

} // namespace Zr
