// UiDualState: the state with its change requests, the labels, the resources, and the press,
// release, move and key handling that flips the state.
#include "uiDualState.h"

#include "uiCalculatable.h"
#include "uiDualStateAdapter.h"
#include "uiFocusPointer.h"
#include "uiGrab.h"
#include "uiLabelString.h"
#include "uiResFont.h"
#include "uiResInt.h"
#include "uiResSet.h"
#include "uiWidgetEvent.h"
#include "uiWidgetRttiType.h"

#include "evKeyCode.h"
#include "smContext.h"
#include "smGl.h"

namespace Zr {

// The dispatchers and the handlers bound to the widget; the labels report to it.
class UiDualStateImp : public UiStringProtocol {
public:
    explicit UiDualStateImp(UiDualState* owner)
        : _owner(owner), arm(owner, &UiDualState::onArm), disarm(owner, &UiDualState::onDisarm),
          activate(owner, &UiDualState::onActivate), mmove(owner, &UiDualState::onMmove),
          keyPress(owner, &UiDualState::onKeyPress) {}

    void stringPositionChanged(int id) override { _owner->stringChanged(id); }

    UiDualState* _owner;
    bool requestedState = false;
    bool stateBeforeArm = false;
    bool inRelease = false;
    CbDispatcher<EvEvent> stateCb;
    CbDispatcher<EvEvent> changeRequestCb;
    CbDispatcher<RCShdPtr<UiCalculatable> const> contextCb;
    RCShdPtr<UiCalculatable> calculatable;
    CbMethod<UiDualState, EvEvent> arm;
    CbMethod<UiDualState, EvEvent> disarm;
    CbMethod<UiDualState, EvEvent> activate;
    CbMethod<UiDualState, EvEvent> mmove;
    CbMethod<UiDualState, EvEvent> keyPress;
};

namespace {
// The pointer button that asks for a context menu rather than a press.
constexpr unsigned ContextButton = 4;
// The resource name as a LiString: comparing it checks the stored hashes first.
LiString const StateName("State");
} // namespace

RCShdPtr<UiDualState> UiDualState::create(UiContainer* parent, LiString const& name,
                                          UiResTable const* table) {
    RCShdPtr<UiDualState> widget(new UiDualState(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiDualState::UiDualState(UiContainer* parent, LiString const& name)
    : UiWidget(parent, name),
      _dualImp(std::make_unique<UiDualStateImp>(this)), _labels{UiString(_dualImp.get(), 0),
                                                                UiString(_dualImp.get(), 1)} {
    addArmCb(&_dualImp->arm);
    addDisarmCb(&_dualImp->disarm);
    addActivateCb(&_dualImp->activate);
    addMmoveCb(&_dualImp->mmove);
    addKeyPressCb(&_dualImp->keyPress);
}

UiDualState::~UiDualState() = default;

// --- state ---------------------------------------------------------------------------------

void UiDualState::setState(bool state, bool notify) {
    bool const old = _state;
    _dualImp->requestedState = state;
    _state = state;
    UiStateChanged event(makeSender());
    event.setState(_state);
    _dualImp->changeRequestCb.call(event);
    if (_dualImp->requestedState != _state) {
        // Refused. After a press has flipped the state already, `old` is the new state and
        // its negation the state from before the press; from code, the negation is the new
        // state, which stays: only the callbacks are skipped.
        _state = !old;
    } else if (notify) {
        _dualImp->stateCb.call(event);
    }
    stateChanged();
}

void UiDualState::rejectChangeRequest() {
    _dualImp->requestedState = !_dualImp->requestedState;
}

void UiDualState::addStateCb(CbHandler<EvEvent>* h) {
    _dualImp->stateCb.addHandler(h);
}

void UiDualState::removeStateCb(CbHandler<EvEvent>* h) {
    _dualImp->stateCb.removeHandler(h);
}

void UiDualState::addChangeRequestCb(CbHandler<EvEvent>* h) {
    _dualImp->changeRequestCb.addHandler(h);
}

void UiDualState::removeChangeRequestCb(CbHandler<EvEvent>* h) {
    _dualImp->changeRequestCb.removeHandler(h);
}

// --- context menu --------------------------------------------------------------------------

void UiDualState::addContextHandler(CbHandler<RCShdPtr<UiCalculatable> const>* h) {
    _dualImp->contextCb.addHandler(h);
}

void UiDualState::removeContextHandler(CbHandler<RCShdPtr<UiCalculatable> const>* h) {
    _dualImp->contextCb.removeHandler(h);
}

void UiDualState::addContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>*) {}

void UiDualState::removeContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>*) {}

void UiDualState::setCalculatable(RCShdPtr<UiCalculatable> const& calculatable) {
    _dualImp->calculatable = calculatable;
}

// --- labels --------------------------------------------------------------------------------

void UiDualState::stringChanged(int id) {
    if ((id != 0) == _state)
        markForUpdate();
}

UiString& UiDualState::getLabel(int id) {
    return _labels[id == 1 ? 1 : 0];
}

UiString const& UiDualState::getLabel(int id) const {
    return _labels[id == 1 ? 1 : 0];
}

void UiDualState::setLabel(int id, char const* text) {
    ZR_ASSERT_TEXT(id == 0 || id == 1, "id == 0 || id == 1");
    _labels[id].setString(text);
}

void UiDualState::setLabels(char const* off, char const* on) {
    setLabel(0, off);
    setLabel(1, on);
}

void UiDualState::setFont(LiString const& fontName) {
    UiResFont font("LabelFont", fontName.c_str());
    for (UiString& label : _labels)
        UiLabelString::applyResource(label, font);
}

void UiDualState::adjustCoords() {
    UiWidget::adjustCoords();
    GeRectangle<int> const canvas = getCanvas();
    for (UiString& label : _labels)
        label.setRect({0, canvas.width(), 0, canvas.height()});
}

// --- resources -----------------------------------------------------------------------------

void UiDualState::setDefaultResources(UiResSet& set) {
    UiWidget::setDefaultResources(set);
    UiLabelString::setDefaultResources(set, "Center Center 5 1");
}

void UiDualState::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    if (resource->getNameRef() == StateName) {
        auto const* value = dynamic_cast<UiResInt const*>(resource.get());
        if (value && value->getNbValues() == 1)
            setState(value->getValue(0) != 0, true);
        return;
    }
    for (UiString& label : _labels)
        UiLabelString::applyResource(label, *resource);
    UiWidget::setResource(resource);
}

RCShdPtr<PiWidget> UiDualState::retrieveInterface() {
    return RCShdPtr<PiWidget>(new UiDualStateAdapter(RCShdPtr<UiDualState>(this)));
}

// --- drawing -------------------------------------------------------------------------------

void UiDualState::drawLabel(UiString const& label, CoRgbColor const& color) const {
    if (SmContext* context = SmContext::getCurrentContext())
        context->applyStateObject(getDrawState(DrawStateByOpacity));
    SmGl::color3fv(color.data());
    if (!label.getFont())
        return;
    GeRectangle<int> const canvas = getCanvas();
    UiString copy(label);
    copy.draw(canvas.x1, canvas.y1);
}

bool UiDualState::hasPointerFocusNow() const {
    // The widget under the pointer: while a grab holds the pointer focus, this is what follows
    // the pointer (and what a key press sets).
    return UiFocusPointer::getInstance().getPointer() == this;
}

// --- pointer and keys ----------------------------------------------------------------------

void UiDualState::onArm(EvEvent& event) {
    auto const* press = dynamic_cast<EvPointerButtonEvent const*>(&event);
    if (press && press->getTriggerButton() == ContextButton) {
        // Locked or not: a locked toggle still offers its value's context menu. A copy, so
        // that a handler that replaces the calculatable leaves the others the same one.
        if (RCShdPtr<UiCalculatable> const calculatable = _dualImp->calculatable)
            _dualImp->contextCb.call(calculatable);
        return;
    }
    if (isLocked())
        return;
    if (_stateChangedOnArm) {
        _dualImp->stateBeforeArm = _state;
        _state = !_state;
    }
    UiGrab::pointer().grab(getEventHandler());
}

void UiDualState::onDisarm(EvEvent& event) {
    if (isLocked())
        return;
    if (!UiGrab::pointer().release(getEventHandler()))
        return;
    // In the flip-on-release mode a release outside flips the state too, silently.
    if (!_stateChangedOnArm)
        _state = !_state;
    if (!hasPointerFocusNow())
        return;
    bool const saved = _dualImp->inRelease;
    _dualImp->inRelease = true;
    activate(event);
    _dualImp->inRelease = saved;
}

void UiDualState::onActivate(EvEvent&) {
    if (isLocked())
        return;
    // A release has flipped the state already; an activation from code or a hotkey flips it
    // here.
    if (_dualImp->inRelease)
        setState(_state, true);
    else
        setState(!_state, true);
}

void UiDualState::onMmove(EvEvent&) {
    if (!isArmed() || isLocked() || !_stateChangedOnArm)
        return;
    // The widget shows the state a release would give: the new one inside, the old outside.
    bool const inside = hasPointerFocusNow();
    bool const flipped = _state != _dualImp->stateBeforeArm;
    if (inside != flipped) {
        _state = !_state;
        stateChanged();
        markForUpdate();
    }
}

void UiDualState::onKeyPress(EvEvent& event) {
    auto const* key = dynamic_cast<EvKeyPressEvent const*>(&event);
    if (!key ||
        (key->getTriggerKey() != EvKeyCode::Return && key->getTriggerKey() != EvKeyCode::KP_Enter))
        return;
    RCShdPtr<UiWidget> self = makeSender();
    UiFocusPointer::getInstance().updatePointer(this, false);
    UiFocusPointer::getInstance().updateFocus(this);
    EvPointerButtonDownEvent down;
    arm(down);
    disarm();
}

RttiType<WidgetRttiType> const& UiDualState::getNodeType() const {
    return UiWidgetTypes::DualState::getType();
}

} // namespace Zr
