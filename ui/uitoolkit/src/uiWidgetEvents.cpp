// UiWidget's event side: the drag interception, the type dispatch, arming and disarming on the
// process-wide arm stack, focus notices, scroll forwarding and the UiEvents trace.
#include "uiWidget.h"

#include "lgLog.h"
#include "lgMinorGroup.h"
#include "uiApplication.h"
#include "uiArmStack.h"
#include "uiContainer.h"
#include "uiFocusKeyboard.h"
#include "uiFrame.h"
#include "uiHotkeyRegistry.h"
#include "uiLogGroups.h"
#include "uiTransporter.h"
#include "uiWidgetImp.h"
#include "uiWindow.h"
#include "wsEvents.h"

#include <sstream>

namespace Zr {

namespace {

// The widget that is forwarding a scroll to its parents right now, so that a parent handing
// the scroll back down can't start a cycle.
UiWidget* scrollForwarder = nullptr;

LgMinorGroup* activeTraceGroup() {
    LgMinorGroup* group = UiLogGroups::uiEvents();
    return group && group->isActive(UiLogGroups::EventTraceMask) ? group : nullptr;
}

void writeTrace(LgMinorGroup& group, std::string const& text) {
    LgLog::writeLine(group, text);
}

// Disarms the top entry with a release of the button that armed it; a null entry is popped.
void disarmTop(EvPointerButtonUpEvent const& up) {
    UiArmStack::Entry top = UiArmStack::top();
    if (!top._widget) {
        UiArmStack::pop();
        return;
    }
    EvPointerButtonUpEvent release(up);
    release.setTriggerButton(top._triggerButton);
    top._widget->disarm(release);
}

} // namespace

// --- dispatch ------------------------------------------------------------------------------

void UiWidget::processEvent(EvEvent& event) {
    if (_disabled)
        return;
    if (interceptDrag(event))
        return;
    dispatchEvent(event);
}

bool UiWidget::interceptDrag(EvEvent& event) {
    UiWidget* carrier = nullptr;
    for (UiWidget* w = this; w; w = w->getParent()) {
        if (w->_imp->_dnd && w->_imp->_dnd->isDragEnabled()) {
            carrier = w;
            break;
        }
    }
    if (!carrier)
        return false;

    RCShdPtr<UiDragAndDrop> dnd = carrier->_imp->_dnd;
    bool pickAndStick = dnd->willPickAndStick();
    if (pickAndStick) {
        // Only a press picks; everything else goes on while nothing is picked.
        if (UiDragAndDrop::isPickAndStickActive() || !evCast<EvPointerButtonDownEvent>(event))
            return false;
    } else {
        UiGestureRecogniser* recogniser = carrier->_imp->_dragRecogniser.get();
        if (!recogniser || recogniser->isRecognised())
            return false;
        if (!recogniser->feed(event))
            return false;
    }

    RCShdPtr<UiWidget> carrierRef = carrier->makeSender();
    RCShdPtr<UiWidget> self = makeSender();
    UiApplication& app = UiApplication::getInstance();
    if (pickAndStick) {
        RCShdPtr<UiTransporter> transporter = app.getTransporterPnS();
        transporter->start(self, event, carrierRef);
    } else {
        // Reset first: a recogniser left triggered would let every later event through
        // without a drag, whatever happens in the start.
        carrier->_imp->_dragRecogniser->reset();
        if (dnd->willDrag(event, carrierRef)) {
            RCShdPtr<UiTransporter> transporter = app.getTransporter();
            transporter->start(self, event, carrierRef);
        }
    }
    return true;
}

void UiWidget::dispatchEvent(EvEvent& event) {
    // Pointer and key events, the frequent ones, are told apart by their kind bits; the
    // families are disjoint, so the order of the tests is free.
    if (evCast<EvDeviceEvent>(event)) {
        if (auto* e = evCast<EvPointerMoveEvent>(event))
            mmove(*e);
        else if (auto* up = evCast<EvPointerButtonUpEvent>(event))
            disarm(*up);
        else if (auto* down = evCast<EvPointerButtonDownEvent>(event))
            arm(*down);
        else if (auto* sc = evCast<EvPointerScrollEvent>(event))
            scroll(*sc);
        else if (auto* hk = evCast<EvHotkeyEvent>(event))
            hotkey(*hk);
        else if (auto* kp = evCast<EvKeyPressEvent>(event))
            keyPress(*kp);
        else if (auto* kr = evCast<EvKeyReleaseEvent>(event))
            keyRelease(*kr);
        else if (auto* ch = evCast<EvCharEvent>(event))
            inputChar(*ch);
        return;
    }
    if (dynamic_cast<WsExposeEvent*>(&event)) {
        ZR_ABORT("WsExposeEvent delivered to a widget: exposes go to windows only");
    } else if (auto* ga = dynamic_cast<EvGrabAcquiredEvent*>(&event)) {
        grabAcquired(*ga);
    } else if (auto* gl = dynamic_cast<EvGrabLostEvent*>(&event)) {
        grabLost(*gl);
    } else if (auto* fi = dynamic_cast<EvFocusInEvent*>(&event)) {
        focusIn(*fi);
    } else if (auto* fo = dynamic_cast<EvFocusOutEvent*>(&event)) {
        focusOut(*fo);
    } else if (auto* kfi = dynamic_cast<EvKbdFocusInEvent*>(&event)) {
        kbdFocusIn(*kfi);
    } else if (auto* kfo = dynamic_cast<EvKbdFocusOutEvent*>(&event)) {
        kbdFocusOut(*kfo);
    }
}

void UiWidget::activate(EvEvent& event) {
    if (LgMinorGroup* group = activeTraceGroup())
        writeTrace(*group, "Activate \"" + _name.str() + "\"");
    _imp->fire(UiWidgetImp::Activate, event);
    event.setProcessed();
}

void UiWidget::mmove(EvPointerMoveEvent& event) {
    _imp->fire(UiWidgetImp::Mmove, event);
}

void UiWidget::keyPress(EvKeyPressEvent& event) {
    _imp->fire(UiWidgetImp::KeyPress, event);
}

void UiWidget::keyRelease(EvKeyReleaseEvent& event) {
    _imp->fire(UiWidgetImp::KeyRelease, event);
}

void UiWidget::inputChar(EvCharEvent& event) {
    if (LgMinorGroup* group = activeTraceGroup())
        writeTrace(*group, "Char entry in \"" + _name.str() + "\": " + event.getUtf8());
    _imp->fire(UiWidgetImp::InputChar, event);
}

void UiWidget::hotkey(EvHotkeyEvent& event) {
    if (LgMinorGroup* group = activeTraceGroup())
        writeTrace(*group, "Hotkey handled by \"" + _name.str() + "\", path: " +
                               UiHotkeyRegistry::getInstance().getPath(event.getEntry()));
    _imp->fire(UiWidgetImp::Hotkey, event);
}

void UiWidget::scroll(EvPointerScrollEvent& event) {
    _imp->fire(UiWidgetImp::Scroll, event);
    if (!event.isProcessed() && getParent())
        forwardScroll(event);
}

void UiWidget::forwardScroll(EvPointerScrollEvent& event) {
    if (scrollForwarder == this)
        return;
    UiWidget* previous = scrollForwarder;
    if (!previous)
        scrollForwarder = this;
    // The parent reads coordinates in its own parent's canvas.
    UiContainer* parent = getParent();
    GePoint2<int> origin = event.getOrigin();
    GePoint2<int> canvasMin = parent->getCanvas().getMin();
    event.setOrigin({origin.x - canvasMin.x, origin.y - canvasMin.y});
    try {
        parent->scroll(event);
    } catch (...) {
        event.setOrigin(origin);
        scrollForwarder = previous;
        throw;
    }
    event.setOrigin(origin);
    scrollForwarder = previous;
}

void UiWidget::grabAcquired(EvGrabAcquiredEvent& event) {
    if (hasStateChangedHook())
        stateChanged();
    _imp->fire(UiWidgetImp::GrabAcquired, event);
}

void UiWidget::grabLost(EvGrabLostEvent& event) {
    if (hasStateChangedHook())
        stateChanged();
    _imp->fire(UiWidgetImp::GrabLost, event);
}

void UiWidget::focusIn(EvFocusInEvent& event) {
    applyCursor();
    _imp->fire(UiWidgetImp::FocusIn, event);
    if (_pointerFocus) {
        if (getWindow())
            clearMarks();
        markRegion(_rect);
    }
}

void UiWidget::focusOut(EvFocusOutEvent& event) {
    _imp->fire(UiWidgetImp::FocusOut, event);
}

void UiWidget::kbdFocusIn(EvKbdFocusInEvent& event) {
    KeyboardFocusType type =
        (UiFocusKeyboard::getInstance().getFocus() == this && _keyboardFocusable)
            ? HasKeyboardFocus
            : ContainsKeyboardFocus;
    if (type == _keyboardFocusType)
        return;
    RCShdPtr<UiFrame> before = getPreparedFrame();
    _keyboardFocusType = type;
    if (getPreparedFrame() != before) {
        if (getWindow())
            clearMarks();
        markRegion(_rect);
    }
    _imp->fire(UiWidgetImp::KbdFocusIn, event);
}

void UiWidget::kbdFocusOut(EvKbdFocusOutEvent& event) {
    if (_keyboardFocusType == NoKeyboardFocus)
        return;
    RCShdPtr<UiFrame> before = getPreparedFrame();
    _keyboardFocusType = NoKeyboardFocus;
    if (getPreparedFrame() != before) {
        if (getWindow())
            clearMarks();
        markRegion(_rect);
    }
    _imp->fire(UiWidgetImp::KbdFocusOut, event);
}

// --- arming --------------------------------------------------------------------------------

void UiWidget::disarmDownTo(EvPointerButtonUpEvent const& up) {
    std::size_t first = UiArmStack::find(this);
    // Each step removes the top entry, this widget's own included, so the walk ends once the
    // entry at the first occurrence is gone.
    while (first < UiArmStack::size() && UiArmStack::at(first)._widget == this)
        disarmTop(up);
}

void UiWidget::arm(EvPointerButtonDownEvent& down) {
    EvPointerButtonUpEvent up(down);
    if (UiArmStack::contains(this))
        disarmDownTo(up);
    else if (!UiArmStack::empty())
        disarmTop(up);
    UiArmStack::push(this, down.getTriggerButton());
    UiFocusKeyboard::getInstance().setFocus(this);
    traceButton("Arm \"", down);
    _imp->fire(UiWidgetImp::Arm, down);
}

void UiWidget::disarm(EvPointerButtonUpEvent& up) {
    if (UiArmStack::empty() || UiArmStack::top()._widget != this) {
        if (UiArmStack::contains(this))
            disarmDownTo(up);
        return;
    }
    unsigned const triggerButton = up.getTriggerButton();
    ZR_ASSERT_TEXT(UiArmStack::top()._triggerButton == triggerButton,
                   "armedWidgets.back()._triggerButton == triggerButton");
    UiArmStack::pop();
    traceButton("Disarm \"", up);
    _imp->fire(UiWidgetImp::Disarm, up);
}

void UiWidget::disarm() {
    EvPointerButtonUpEvent up;
    if (UiArmStack::contains(this))
        disarmDownTo(up);
}

void UiWidget::pushArm() {
    ZR_ASSERT_TEXT(isArmed(), "isArmed()");
    UiArmStack::push(nullptr, 0);
}

void UiWidget::transferArm() {
    ZR_ASSERT_TEXT(!UiArmStack::empty(), "!ArmStack::empty()");
    ZR_ASSERT_TEXT(!UiArmStack::contains(this),
                   "!ArmStack::disarm( this, EvPointerButtonUpEvent() )");
    unsigned button = UiArmStack::top()._triggerButton;
    UiArmStack::pop();
    UiArmStack::push(this, button);
    UiFocusKeyboard::getInstance().setFocus(this);
}

void UiWidget::veryDangerousDuplicateArm() {
    ZR_ASSERT_TEXT(!UiArmStack::empty(), "!ArmStack::empty()");
    ZR_ASSERT_TEXT(!UiArmStack::contains(this),
                   "!ArmStack::disarm( this, EvPointerButtonUpEvent() )");
    unsigned button = UiArmStack::top()._triggerButton;
    UiArmStack::push(this, button);
    UiFocusKeyboard::getInstance().setFocus(this);
}

bool UiWidget::isArmed() const {
    return !UiArmStack::empty() && UiArmStack::top()._widget == this;
}

UiGrabHandler* UiWidget::getEventHandler() const {
    return _imp.get();
}

GePoint2<int> UiWidget::getProcessOrigin() const {
    GePoint2<int> screen = getScreenCoord(true);
    return {screen.x - _rect.x1, screen.y - _rect.y1};
}

void UiWidget::setAllowPtrHandlingInGrab(bool allow) {
    _imp->setAllowPtrHandlingInGrab(allow);
}

// --- trace ---------------------------------------------------------------------------------

void UiWidget::traceButton(char const* what, EvPointerButtonEvent const& event) const {
    LgMinorGroup* group = activeTraceGroup();
    if (!group)
        return;
    std::ostringstream line;
    line << what << _name << "\", ";
    unsigned buttons = event.getTriggerButton();
    if (buttons & EvPointerState::Left)
        line << "[left ";
    if (buttons & EvPointerState::Middle)
        line << "[middle ";
    if (buttons & EvPointerState::Right)
        line << "[right ";
    if (!(buttons & (EvPointerState::Left | EvPointerState::Middle | EvPointerState::Right)))
        line << "[no ";
    line << "button";
    if (event.isDoubleClick())
        line << ", double-click";
    line << "]";
    GePoint2<int> coord = event.getCoord();
    GePoint2<int> wcoord = event.getWCoord();
    line << " at (" << coord.x << ", " << coord.y << "), window (" << wcoord.x << ", " << wcoord.y
         << ")";
    EvKeyboardState const& keys = event.getKeyboardState();
    int count = keys.getNumberOfModifiersEnabled();
    if (count > 0) {
        line << (count == 1 ? ", Modifier:" : ", Modifiers:");
        if (keys.isEnabled(EvKeyboardState::Shift))
            line << " shft";
        if (keys.isEnabled(EvKeyboardState::Control))
            line << " ctrl";
        if (keys.isEnabled(EvKeyboardState::Alt))
            line << " alt";
        if (keys.isEnabled(EvKeyboardState::Command))
            line << " cmd";
    }
    writeTrace(*group, line.str());
}

} // namespace Zr
