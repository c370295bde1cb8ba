// UiWidgetAdapter: the forwarding of the plug-in operations to the widget, the mapping of the
// plug-in event types to the widget's callback lists, and UiWidget's side of the interface
// (retrieveInterface, fromInterface).
#include "uiWidgetAdapter.h"

#include "uiWidget.h"

#include <array>

namespace Zr {

namespace {

using Registration = void (UiWidget::*)(CbHandler<EvEvent>*);

// Indexed by PiWidget::EventType: the order of the widget's own add...Cb list.
constexpr std::array<Registration, 23> AddCallbacks = {
    &UiWidget::addDestroyCb,     &UiWidget::addEnableCb,       &UiWidget::addDisableCb,
    &UiWidget::addLockCb,        &UiWidget::addUnlockCb,       &UiWidget::addArmCb,
    &UiWidget::addDisarmCb,      &UiWidget::addMapCb,          &UiWidget::addUnMapCb,
    &UiWidget::addFocusInCb,     &UiWidget::addFocusOutCb,     &UiWidget::addKbdFocusInCb,
    &UiWidget::addKbdFocusOutCb, &UiWidget::addMmoveCb,        &UiWidget::addResizeCb,
    &UiWidget::addRepositionCb,  &UiWidget::addGrabAcquiredCb, &UiWidget::addGrabLostCb,
    &UiWidget::addKeyPressCb,    &UiWidget::addKeyReleaseCb,   &UiWidget::addInputCharCb,
    &UiWidget::addActivateCb,    &UiWidget::addHotkeyCb};

constexpr std::array<Registration, 23> RemoveCallbacks = {
    &UiWidget::removeDestroyCb,     &UiWidget::removeEnableCb,       &UiWidget::removeDisableCb,
    &UiWidget::removeLockCb,        &UiWidget::removeUnlockCb,       &UiWidget::removeArmCb,
    &UiWidget::removeDisarmCb,      &UiWidget::removeMapCb,          &UiWidget::removeUnMapCb,
    &UiWidget::removeFocusInCb,     &UiWidget::removeFocusOutCb,     &UiWidget::removeKbdFocusInCb,
    &UiWidget::removeKbdFocusOutCb, &UiWidget::removeMmoveCb,        &UiWidget::removeResizeCb,
    &UiWidget::removeRepositionCb,  &UiWidget::removeGrabAcquiredCb, &UiWidget::removeGrabLostCb,
    &UiWidget::removeKeyPressCb,    &UiWidget::removeKeyReleaseCb,   &UiWidget::removeInputCharCb,
    &UiWidget::removeActivateCb,    &UiWidget::removeHotkeyCb};

bool isOpenToPlugins(PiWidget::EventType type) {
    return type >= PiWidget::Destroy && type <= PiWidget::Hotkey;
}

} // namespace

UiWidgetAdapter::UiWidgetAdapter(RCShdPtr<UiWidget> const& widget) : _widget(widget.get()) {
    ZR_ASSERT_TEXT(!_widget.isNull(), "!_widget.isNull()");
}

UiWidgetAdapter::~UiWidgetAdapter() = default;

RCShdPtr<UiWidget> UiWidgetAdapter::getUiWidget() const {
    return RCShdPtr<UiWidget>(_widget.get());
}

void UiWidgetAdapter::giveBackReference() {
    // Never the last reference: the container's holders keep it.
    ZR_ASSERT(_widget.get()->getReferenceCount() > 1);
    _widget.get()->removeReference();
}

void UiWidgetAdapter::takeBackReference() {
    _widget.get()->addReference();
}

void UiWidgetAdapter::detach() {
    // The pointer is moved into storage that is never destroyed, so the dying container is not
    // counted down a second time.
    union Forget {
        RCBasePtr<UiWidget> ptr;
        ~Forget() {}
    } forget{std::move(_widget)};
    (void)forget;
}

// --- forwarding ----------------------------------------------------------------------------------
// A detached adapter's widget is gone: commands do nothing and queries answer false or "".

void UiWidgetAdapter::changeResource(std::string const& text) {
    if (UiWidget* w = _widget.get())
        w->changeResource(LiString(text));
}

void UiWidgetAdapter::display(bool on) {
    if (UiWidget* w = _widget.get())
        w->display(on);
}

void UiWidgetAdapter::show() {
    if (UiWidget* w = _widget.get())
        w->show();
}

void UiWidgetAdapter::hide() {
    if (UiWidget* w = _widget.get())
        w->hide();
}

bool UiWidgetAdapter::isDisplayed() const {
    return _widget && _widget.get()->isDisplayed();
}

bool UiWidgetAdapter::isMapped() const {
    return _widget && _widget.get()->isMapped();
}

void UiWidgetAdapter::enable(bool enabled) {
    if (UiWidget* w = _widget.get())
        w->enable(enabled);
}

bool UiWidgetAdapter::isEnabled() const {
    return _widget && _widget.get()->isEnabled();
}

void UiWidgetAdapter::lock() {
    if (UiWidget* w = _widget.get())
        w->lock(true);
}

void UiWidgetAdapter::unlock() {
    if (UiWidget* w = _widget.get())
        w->unlock();
}

bool UiWidgetAdapter::isLocked() const {
    return _widget && _widget.get()->isLocked();
}

bool UiWidgetAdapter::isInside(GePoint2<int> const& p) const {
    return _widget && _widget.get()->isInside(p);
}

bool UiWidgetAdapter::isOpaque() const {
    return _widget && _widget.get()->isOpaque();
}

bool UiWidgetAdapter::isSame(RCShdPtr<PiWidget const> const& other) const {
    auto const* adapter = dynamic_cast<UiWidgetAdapter const*>(other.get());
    return adapter && _widget && adapter->_widget.get() == _widget.get();
}

std::string UiWidgetAdapter::getName() const {
    return _widget ? _widget.get()->getName().str() : std::string();
}

void UiWidgetAdapter::setName(std::string const& name) {
    if (UiWidget* w = _widget.get())
        w->setName(LiString(name));
}

void UiWidgetAdapter::addCallback(EventType type, CbHandler<EvEvent>* handler) {
    if (UiWidget* w = _widget.get(); w && isOpenToPlugins(type))
        (w->*AddCallbacks[static_cast<std::size_t>(type)])(handler);
}

void UiWidgetAdapter::removeCallback(EventType type, CbHandler<EvEvent>* handler) {
    if (UiWidget* w = _widget.get(); w && isOpenToPlugins(type))
        (w->*RemoveCallbacks[static_cast<std::size_t>(type)])(handler);
}

// --- the widget's side -----------------------------------------------------------------------

RCShdPtr<PiWidget> UiWidget::retrieveInterface() {
    return RCShdPtr<PiWidget>(new UiWidgetAdapter(RCShdPtr<UiWidget>(this)));
}

RCShdPtr<UiWidget> UiWidget::fromInterface(RCShdPtr<PiWidget> const& iface) {
    auto const* adapter = dynamic_cast<UiWidgetAdapter const*>(iface.get());
    return adapter ? adapter->getUiWidget() : RCShdPtr<UiWidget>();
}

} // namespace Zr
