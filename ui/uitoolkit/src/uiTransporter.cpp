// The transporters of drag and drop: start, the moves under the grab, drop, cancel and the end
// of a drag in the held mode and in pick and stick; the drag icon and the hover request.
#include "uiTransporter.h"

#include "uiApplication.h"
#include "uiArmStack.h"
#include "uiContainer.h"
#include "uiFocusPointer.h"
#include "uiGestureRecogniser.h"
#include "uiGrab.h"
#include "uiHotkey.h"
#include "uiHotkeyRegistry.h"
#include "uiIconRegistry.h"
#include "uiTopLevel.h"
#include "uiWindow.h"

#include "evKeyCode.h"
#include "wsCursorRegistry.h"
#include "wsManagedImage.h"

namespace Zr {

namespace {

// Set while a drag runs, in either mode.
bool transporting = false;

RCShdPtr<WsCursor> cursorNamed(char const* name) {
    return WsCursorRegistry::getInstance().getCursor(name);
}

} // namespace

std::atomic<unsigned> UiTransporter::_alarmGeneration{0};

// --- the icon ---------------------------------------------------------------------------------

RCShdPtr<UiTransporterIcon> UiTransporterIcon::create(UiContainer* parent,
                                                      RCShdPtr<WsManagedImage> const& image) {
    RCShdPtr<UiTransporterIcon> icon(new UiTransporterIcon(parent, image));
    icon->resInit(nullptr);
    icon->postInit();
    icon->setOpacity(0.5f);
    if (image)
        icon->setSize(image->getWidth(), image->getHeight(), false);
    return icon;
}

UiTransporterIcon::UiTransporterIcon(UiContainer* parent, RCShdPtr<WsManagedImage> const& image)
    : UiWidget(parent, "TransporterIcon"), _image(image) {
    setFocusable(false);
    setKeyboardFocusable(false);
}

void UiTransporterIcon::postUserDraw(GeRectangle<int> const&, GePoint2<int> const&) {
    // Drawn in the parent's canvas, where the rectangle lies.
    UiIconRegistry::getInstance().draw(_image, _rect.getMin(), true);
}

// --- the hover request ------------------------------------------------------------------------

void UiTransporterRequestEvent::execute() {
    if (!UiApplication::isInit())
        return;
    if (RCShdPtr<UiTransporter> transporter = UiApplication::getInstance().getCurrentTransporter())
        transporter->activateTarget(_generation);
}

// --- the held drag -----------------------------------------------------------------------------

RCShdPtr<UiTransporter> UiTransporter::create() {
    return RCShdPtr<UiTransporter>(new UiTransporter());
}

UiTransporter::UiTransporter()
    : _alarm(makeShared<MtAlarmHandle>(AlarmName)),
      _cancelKey([this](EvEvent& event) { onCancelKey(event); }) {
    _alarm->setDuration(ActivateDelaySeconds);
    _alarm->setRequestedRepeats(0);
    _alarm->setCallback(this);
}

UiTransporter::~UiTransporter() {
    if (_alarm->isRegistered())
        MtAlarmManager::getInstance().deregisterAlarm(_alarm);
    // The grab, if still held, goes with the grab handler's destructor.
}

bool UiTransporter::isTransporting() {
    return transporting;
}

bool UiTransporter::start(RCShdPtr<UiWidget> const& widget, EvEvent& event,
                          RCShdPtr<UiWidget> const& source) {
    if (!startCommon(widget, event, source, true))
        return false;
    // A quick drag passes its threshold with the pointer already over another widget: the
    // starting move is then its first move too, so that a release right there drops.
    if (auto* move = dynamic_cast<EvPointerMoveEvent*>(&event))
        if (UiFocusPointer::getInstance().getPointer() != source.get())
            moveTo(*move);
    return _running;
}

bool UiTransporter::startCommon(RCShdPtr<UiWidget> const& widget, EvEvent& event,
                                RCShdPtr<UiWidget> const& source, bool withIcon) {
    auto* sysEvent = dynamic_cast<EvSystemInterfaceEvent*>(&event);
    ZR_ASSERT_TEXT(sysEvent != nullptr && sysEvent->getWindowId() != 0,
                   "sysEvent->getWindowId() != 0");
    RCShdPtr<UiTransporter> keep(this);
    if (_running)
        cancel();
    if (!source || !source->getDndObject())
        return false;

    RCShdPtr<UiDragAndDrop> sourceDnd = source->getDndObject();
    OPtr<UiDragAndDrop::Info> info = sourceDnd->beginDrag(event, source);
    _dropGesture = std::make_unique<UiGestureDrop>();
    if (!info || !info->isValidDrag())
        return false; // nothing to carry: no grab, no drag

    UiApplication& app = UiApplication::getInstance();
    transporting = true;
    _running = true;
    _info = std::move(info);
    _source = source;
    _pressed = widget;
    _sourceDnd = sourceDnd;
    _target = source;
    _targetDnd = sourceDnd;
    _window = app.getCurrentWindow();
    _info->setSource(source);
    _info->setTarget(source);
    _info->setLocal(true);
    if (auto* device = dynamic_cast<EvDeviceEvent*>(&event))
        updateLocation(device->getWCoord());

    _showIcon = false;
    _image = nullptr;
    if (withIcon) {
        RCShdPtr<WsManagedImage> image;
        if (_sourceDnd->getDragAndDropImage(&image, *_info) && image) {
            _image = image;
            _showIcon = true;
        }
    }

    _grabbing = UiGrab::pointer().grab(this);
    if (auto* topLevel = dynamic_cast<UiTopLevel*>(_window.get())) {
        _topLevel = topLevel;
        topLevel->setPtrHandlingInGrab(true);
        _previousDoubleDown = app.getAllowDoubleDownEvent();
        app.setAllowDoubleDownEvent(true);
    }

    app.pushOverrideCursor(cursorNamed(RefusedCursor));
    _cursorPushed = true;
    chooseCursor();

    app.registerTransporter(this);

    UiHotkeyRegistry& hotkeys = UiHotkeyRegistry::getInstance();
    _cancelEntry = hotkeys.getEntry("/Global", CancelAction);
    if (_cancelEntry == 0)
        _cancelEntry = hotkeys.addEntry("/Global", CancelAction,
                                        UiHotkey(EvKeyCode::Escape, EvKeyboardState()));
    hotkeys.addHotkeyHandler(_cancelEntry, &_cancelKey);
    return _running;
}

bool UiTransporter::cancelOnGrabLost(EvEvent& event) {
    if (!dynamic_cast<EvGrabLostEvent*>(&event))
        return false;
    // Someone else took the pointer: the drag can't go on.
    if (!_releasing) {
        _grabbing = false;
        cancel();
    }
    return true;
}

void UiTransporter::processEvent(EvEvent& event) {
    RCShdPtr<UiTransporter> keep(this);
    if (!_running)
        return;
    if (cancelOnGrabLost(event))
        return;
    if (!dynamic_cast<EvDeviceEvent*>(&event))
        return;
    if (_dropGesture && _dropGesture->feed(event)) {
        _dropGesture->reset();
        event.setProcessed();
        drop(event);
        return;
    }
    if (auto* move = dynamic_cast<EvPointerMoveEvent*>(&event)) {
        moveTo(*move);
        return;
    }
    // Other buttons while the drag is held reach us and go no further.
    if (dynamic_cast<EvPointerButtonEvent*>(&event))
        event.setProcessed();
}

void UiTransporter::moveTo(EvPointerEvent& event) {
    RCShdPtr<UiWidget> candidate(UiFocusPointer::getInstance().getPointer());
    GePoint2<int> const p = event.getWCoord();
    if (_showIcon)
        placeIcon(p);

    bool entered = false;
    if (candidate != _target) {
        if (_targetDnd)
            _targetDnd->dragLeave(*_info);
        _target = candidate;
        _targetDnd = candidate ? candidate->getDndObject() : RCShdPtr<UiDragAndDrop>();
        _info->setTarget(candidate);
        _info->setLocal(candidate && candidate->getWindow() == _source->getWindow());
        updateLocation(p);
        if (_targetDnd)
            _targetDnd->dragEnter(*_info);
        deregisterAlarm();
        entered = true;
    }
    if (!_running)
        return; // a callback ended the drag
    updateLocation(p);

    if (_targetDnd && _targetDnd->isActivateEnabled() && _targetDnd->willAcceptActivate(*_info)) {
        if (!_alarm->isRegistered() && (entered || !_targetDnd->isActivateOnDragEnterOnly()))
            registerAlarm();
    } else {
        deregisterAlarm();
    }
    if (_targetDnd)
        _targetDnd->dragOver(*_info);
    if (_running)
        chooseCursor();
}

void UiTransporter::updateLocation(GePoint2<int> const& p) {
    if (!_info)
        return;
    if (_target) {
        GeRectangle<int> r = _target->getScreenRect();
        _info->setLocation(GePoint2<int>(p.x - r.x1, p.y - r.y1));
    } else {
        _info->setLocation(p);
    }
}

bool UiTransporter::targetAccepts() {
    return _targetDnd && _info && _targetDnd->isDropEnabled() && _targetDnd->willAcceptDrop(*_info);
}

void UiTransporter::chooseCursor() {
    if (!_cursorPushed)
        return;
    UiApplication::getInstance().replaceOverrideCursor(
        cursorNamed(targetAccepts() ? AcceptedCursor : RefusedCursor));
}

void UiTransporter::placeIcon(GePoint2<int> const& p) {
    if (!_window || !_image)
        return;
    RCShdPtr<UiContainer> const& root = _window->getRootContainer();
    if (!root)
        return;
    GeRectangle<int> canvas = root->getScreenCanvas();
    int const w = _image->getWidth();
    int const h = _image->getHeight();
    int const x1 = p.x - canvas.x1 - w / 2;
    int const y2 = p.y - canvas.y1 - 10;
    GeRectangle<int> rect{x1, x1 + w, y2 - h, y2};
    if (!_icon) {
        // A new last child: in front of everything else in the root.
        _icon = UiTransporterIcon::create(root.get(), _image);
        _icon->setRect(rect);
        _icon->show();
        return;
    }
    _icon->setRect(rect);
}

void UiTransporter::removeIcon() {
    if (!_icon)
        return;
    RCShdPtr<UiTransporterIcon> icon = std::move(_icon);
    if (UiContainer* parent = icon->getParent())
        parent->removeChild(RCShdPtr<UiWidget>(icon.get()));
}

void UiTransporter::registerAlarm() {
    MtAlarmManager::getInstance().registerAlarm(_alarm);
}

void UiTransporter::deregisterAlarm() {
    ++_alarmGeneration;
    if (_alarm->isRegistered())
        MtAlarmManager::getInstance().deregisterAlarm(_alarm);
}

void UiTransporter::alarm(MtAlarmHandle&) {
    // On the alarm thread: only post.
    unsigned const generation = _alarmGeneration.load();
    UiApplication::getInstance().postRequest(
        std::make_unique<UiTransporterRequestEvent>(generation));
}

void UiTransporter::activateTarget(unsigned generation) {
    if (!_running || !transporting || generation != _alarmGeneration.load() || !_targetDnd ||
        !_info)
        return;
    RCShdPtr<UiTransporter> keep(this);
    RCShdPtr<UiDragAndDrop> target = _targetDnd;
    target->activateWidget(*_info, this);
}

void UiTransporter::drop(EvEvent& event) {
    RCShdPtr<UiTransporter> keep(this);
    if (!_running)
        return;
    deregisterAlarm();
    RCShdPtr<UiWidget> pressed = _pressed;
    // Held here: a callback may drop the transporter's own references.
    RCShdPtr<UiWidget> target = _target;
    RCShdPtr<UiDragAndDrop> sourceDnd = _sourceDnd;
    if (auto* device = dynamic_cast<EvDeviceEvent*>(&event))
        updateLocation(device->getWCoord());
    if (_cursorPushed)
        UiApplication::getInstance().replaceOverrideCursor(cursorNamed(DropCursor));
    if (targetAccepts()) {
        finish();
        sourceDnd->dragAndDropComplete(*_info);
    } else {
        sourceDnd->cancelDragAndDrop(*_info);
    }
    end();
    disarmPressed(pressed, event);
}

void UiTransporter::cancel() {
    RCShdPtr<UiTransporter> keep(this);
    if (!_running)
        return;
    deregisterAlarm();
    RCShdPtr<UiDragAndDrop> sourceDnd = _sourceDnd;
    if (sourceDnd && _info)
        sourceDnd->cancelDragAndDrop(*_info);
    end();
}

void UiTransporter::finish() {
    if (_icon)
        _icon->hide();
    releaseGrab();
    RCShdPtr<UiDragAndDrop> targetDnd = _targetDnd;
    if (targetDnd && _info)
        targetDnd->beginDrop(*_info);
}

void UiTransporter::end() {
    RCShdPtr<UiTransporter> keep(this);
    bool const wasRunning = _running;
    _running = false;
    transporting = false;
    deregisterAlarm();
    UiApplication& app = UiApplication::getInstance();
    if (_cursorPushed) {
        _cursorPushed = false;
        app.popOverrideCursor();
    }
    releaseGrab();
    removeIcon();
    if (_cancelEntry != 0) {
        UiHotkeyRegistry::getInstance().removeHotkeyHandler(_cancelEntry, &_cancelKey);
        _cancelEntry = 0;
    }
    if (wasRunning)
        app.deregisterTransporter(this);
    _dropGesture.reset();
    _info.reset();
    _source = nullptr;
    _pressed = nullptr;
    _target = nullptr;
    _sourceDnd = nullptr;
    _targetDnd = nullptr;
    _window = nullptr;
    _image = nullptr;
    _showIcon = false;
}

void UiTransporter::releaseGrab() {
    if (_grabbing) {
        _grabbing = false;
        _releasing = true;
        UiGrab::pointer().release(this);
        _releasing = false;
    }
    if (_topLevel) {
        _topLevel->setPtrHandlingInGrab(false);
        UiApplication::getInstance().setAllowDoubleDownEvent(_previousDoubleDown);
        _topLevel = nullptr;
    }
}

void UiTransporter::onCancelKey(EvEvent& event) {
    if (!_running)
        return;
    event.setProcessed();
    cancel();
}

void UiTransporter::disarmPressed(RCShdPtr<UiWidget> const& pressed, EvEvent& event) {
    auto* up = dynamic_cast<EvPointerButtonUpEvent*>(&event);
    if (!up || !pressed || !UiArmStack::contains(pressed.get()))
        return;
    // The release that the press armed it for, whatever button the drag ended with.
    unsigned const button = UiArmStack::at(UiArmStack::find(pressed.get()))._triggerButton;
    EvPointerButtonUpEvent release(*up);
    release.setProcessed(false);
    release.setTriggerButton(button);
    release.setOrigin(pressed->getProcessOrigin());
    pressed->disarm(release);
}

// --- pick and stick ------------------------------------------------------------------------

RCShdPtr<UiTransporterPnS> UiTransporterPnS::create() {
    return RCShdPtr<UiTransporterPnS>(new UiTransporterPnS());
}

bool UiTransporterPnS::start(RCShdPtr<UiWidget> const& widget, EvEvent& event,
                             RCShdPtr<UiWidget> const& source) {
    if (!source || !source->getDndObject() || !source->getDndObject()->willPickAndStick())
        return false;
    if (!startCommon(widget, event, source, false))
        return false;
    UiDragAndDrop::setPickAndStickActive(true);
    return true;
}

void UiTransporterPnS::processEvent(EvEvent& event) {
    RCShdPtr<UiTransporter> keep(this);
    if (!_running)
        return;
    if (cancelOnGrabLost(event))
        return;
    if (auto* down = dynamic_cast<EvPointerButtonDownEvent*>(&event)) {
        event.setProcessed();
        drop(*down);
        return;
    }
    if (auto* move = dynamic_cast<EvPointerMoveEvent*>(&event)) {
        moveTo(*move);
        return;
    }
    // The release of the picking press, and of presses that didn't drop, stop here.
    if (dynamic_cast<EvPointerButtonUpEvent*>(&event))
        event.setProcessed();
}

void UiTransporterPnS::drop(EvEvent& event) {
    RCShdPtr<UiTransporter> keep(this);
    if (!_running)
        return;
    if (auto* device = dynamic_cast<EvDeviceEvent*>(&event))
        updateLocation(device->getWCoord());
    if (targetAccepts()) {
        deregisterAlarm();
        RCShdPtr<UiDragAndDrop> sourceDnd = _sourceDnd;
        UiApplication::getInstance().replaceOverrideCursor(cursorNamed(DropCursor));
        finish();
        sourceDnd->pickAndStickComplete(*_info);
        end();
        return;
    }
    // Not taken here: the target may open up, and the data stay on the pointer.
    RCShdPtr<UiDragAndDrop> targetDnd = _targetDnd;
    if (targetDnd && targetDnd->isActivateEnabled() && targetDnd->willAcceptActivate(*_info))
        targetDnd->activateWidget(*_info, this);
}

void UiTransporterPnS::cancel() {
    RCShdPtr<UiTransporter> keep(this);
    if (!_running)
        return;
    deregisterAlarm();
    RCShdPtr<UiDragAndDrop> sourceDnd = _sourceDnd;
    if (sourceDnd && _info)
        sourceDnd->cancelPickAndStick(*_info);
    end();
}

void UiTransporterPnS::end() {
    UiTransporter::end();
    UiDragAndDrop::setPickAndStickActive(false);
}

} // namespace Zr
