// UiTransporter: runs one drag from its start to its drop or cancel under the pointer grab, with
// an image that follows the pointer, the drag cursors and the hover alarm that activates a
// target. UiTransporterPnS runs the pick-and-stick mode, from one click to the next.
// UiTransporterIcon is the image; UiTransporterRequestEvent what the alarm posts.
#pragma once

#include "zrBase.h"

#include "mtAlarmManager.h"
#include "uiDragAndDrop.h"
#include "uiGrabHandler.h"
#include "uiWidget.h"

#include <atomic>

namespace Zr {

class UiContainer;
class UiGestureRecogniser;
class UiTopLevel;
class UiWindow;
class WsManagedImage;

// The drag image: a widget named "TransporterIcon" at half opacity in the root of the window,
// drawn from the source's image.
class UiTransporterIcon : public UiWidget {
public:
    static RCShdPtr<UiTransporterIcon> create(UiContainer* parent,
                                              RCShdPtr<WsManagedImage> const& image);
    RCShdPtr<WsManagedImage> const& getImage() const { return _image; }

protected:
    UiTransporterIcon(UiContainer* parent, RCShdPtr<WsManagedImage> const& image);
    void postUserDraw(GeRectangle<int> const& region, GePoint2<int> const& origin) override;

private:
    RCShdPtr<WsManagedImage> _image;
};

// Posted from the alarm thread once the pointer has hovered long enough over a target that
// accepts activation; on the loop's thread it activates that target through the running
// transporter, if the hover that armed the alarm still goes on.
class UiTransporterRequestEvent : public EvRequestEvent {
public:
    ZR_EVENT_CLASS(UiTransporterRequestEvent)
    explicit UiTransporterRequestEvent(unsigned generation) : _generation(generation) {}
    unsigned getGeneration() const { return _generation; }
    void execute() override;

private:
    unsigned _generation;
};

// Cursors of a drag, from WsCursorRegistry: "Drag" while the place under the pointer refuses
// the drop, "Drop" while it would accept it, "Busy" while the drop is being taken.
class UiTransporter : public UiGrabHandler, public RCObject, public MtAlarmHandle::Callback {
public:
    static constexpr char const* RefusedCursor = "Drag";
    static constexpr char const* AcceptedCursor = "Drop";
    static constexpr char const* DropCursor = "Busy";
    // The alarm's name, and how long the pointer must rest on a target before it activates.
    static constexpr char const* AlarmName = "Activate Drag and Drop (UiTransporter)";
    static constexpr double ActivateDelaySeconds = 0.6;
    // The hotkey entry that cancels a running drag; bound to Escape unless a hotkey file
    // binds it to something else.
    static constexpr char const* CancelAction = "Cancel Drag and Drop";

    static RCShdPtr<UiTransporter> create();
    ~UiTransporter() override;

    // Whether a drag runs now, in either mode.
    static bool isTransporting();
    // The size in which a source should make its drag image: 48 by 48 pixels. The icon shows
    // the image in its own size.
    static GeVector2<int> getImageSize() { return {48, 48}; }

    // UiGrabHandler: every event of the pointer while the drag runs. Coordinates are the
    // window's.
    void processEvent(EvEvent& event) override;
    GePoint2<int> getProcessOrigin() const override { return {0, 0}; }
    std::string getHandlerName() const override { return "UiTransporter"; }

    // Starts a drag of `source`'s object for `event`, which `widget` (the source or one of its
    // children) received. The source's beginDrag gives the carrier; a drag without data ends
    // at once, taking no grab. Returns whether the drag runs. A drag still running on this
    // transporter is cancelled first. Asserts "sysEvent->getWindowId() != 0": only events of
    // the windowing layer start drags.
    virtual bool start(RCShdPtr<UiWidget> const& widget, EvEvent& event,
                       RCShdPtr<UiWidget> const& source);
    // The drop gesture was seen: the target takes the carrier if it accepts, else the source
    // hears of a cancel. Either way the drag ends.
    virtual void drop(EvEvent& event);
    // Ends the drag without a drop: the source hears of the cancel.
    virtual void cancel();
    // Hides the icon, gives the grab back and lets the target take the carrier.
    virtual void finish();
    // Ends the drag: cursor, grab, icon, cancel key, alarm and the application's record of it.
    virtual void end();

    // The hover alarm fired (alarm thread): posts the request.
    void alarm(MtAlarmHandle& handle) override;
    // The request's work on the loop's thread: activates the target if the alarm that posted
    // it still stands for the present hover.
    void activateTarget(unsigned generation);

    bool isRunning() const { return _running; }
    RCShdPtr<UiWidget> const& getSource() const { return _source; }
    RCShdPtr<UiWidget> const& getTarget() const { return _target; }
    UiDragAndDrop::Info* getInfo() const { return _info.get(); }
    RCShdPtr<UiTransporterIcon> const& getIcon() const { return _icon; }
    RCShdPtr<MtAlarmHandle> const& getAlarm() const { return _alarm; }
    bool isAlarmRegistered() const { return _alarm->isRegistered(); }

protected:
    UiTransporter();

    // Shared by both modes: the source's Info, the grab, the cursors, the registration.
    // A lost pointer grab ends the drag as a cancel; true when `event` was that loss.
    bool cancelOnGrabLost(EvEvent& event);
    bool startCommon(RCShdPtr<UiWidget> const& widget, EvEvent& event,
                     RCShdPtr<UiWidget> const& source, bool withIcon);
    // A pointer move: new target, icon, hover alarm, dragOver and cursor.
    void moveTo(EvPointerEvent& event);
    // Whether the target under the pointer takes the carrier.
    bool targetAccepts();
    void chooseCursor();
    void registerAlarm();
    void deregisterAlarm();
    void releaseGrab();
    // The place of window point `p` in the target's rectangle.
    void updateLocation(GePoint2<int> const& p);
    void onCancelKey(EvEvent& event);
    // The icon centred under the pointer at window point `p`, its top 10 pixels below it.
    void placeIcon(GePoint2<int> const& p);
    void removeIcon();
    // A drop by release: the widget that the starting press armed gets its release too.
    static void disarmPressed(RCShdPtr<UiWidget> const& pressed, EvEvent& event);

    RCShdPtr<MtAlarmHandle> _alarm;
    // Bumped, for all transporters, each time a hover alarm is deregistered: a request
    // posted before is then stale.
    static std::atomic<unsigned> _alarmGeneration;
    RCShdPtr<UiWidget> _source;
    // The widget that received the starting event; it may have been armed by the press.
    RCShdPtr<UiWidget> _pressed;
    RCShdPtr<UiWidget> _target;
    RCShdPtr<UiWindow> _window;
    RCShdPtr<UiDragAndDrop> _sourceDnd;
    RCShdPtr<UiDragAndDrop> _targetDnd;
    OPtr<UiDragAndDrop::Info> _info;
    RCShdPtr<UiTransporterIcon> _icon;
    OPtr<UiGestureRecogniser> _dropGesture;
    bool _showIcon = false;
    RCShdPtr<WsManagedImage> _image;
    bool _running = false;
    bool _grabbing = false;
    bool _releasing = false;
    bool _cursorPushed = false;
    UiTopLevel* _topLevel = nullptr;
    bool _previousDoubleDown = false;
    int _cancelEntry = 0;
    CbFunction<EvEvent> _cancelKey;
};

// Pick and stick: a press on the source picks the data; they stick to the pointer, with no
// icon, until the next press. A press over a target that accepts drops them there; over one that
// doesn't, the target may be activated and the data stay on the pointer. The cancel hotkey puts
// them down nowhere.
class UiTransporterPnS : public UiTransporter {
public:
    static RCShdPtr<UiTransporterPnS> create();

    void processEvent(EvEvent& event) override;
    std::string getHandlerName() const override { return "UiTransporterPnS"; }
    // Starts only when the source's object will pick and stick; sets the pick-and-stick flag.
    bool start(RCShdPtr<UiWidget> const& widget, EvEvent& event,
               RCShdPtr<UiWidget> const& source) override;
    void drop(EvEvent& event) override;
    void cancel() override;
    void end() override;

protected:
    UiTransporterPnS() = default;
};

} // namespace Zr
