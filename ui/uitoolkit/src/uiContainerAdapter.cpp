// UiContainerAdapter: the plug-in interface of a container; and UiContainer's stored interface
// (retrieveInterface, setInterface), with the reference hand-back that keeps the container and
// its stored adapter from holding each other alive.
#include "uiContainerAdapter.h"

#include "uiContainer.h"
#include "uiGroup.h"
#include "uiWidgetGroupAdapter.h"

namespace Zr {

UiContainerAdapter::UiContainerAdapter(RCShdPtr<UiContainer> const& container)
    : UiWidgetAdapter(RCShdPtr<UiWidget>(container)) {}

UiContainerAdapter::~UiContainerAdapter() = default;

RCShdPtr<UiContainer> UiContainerAdapter::getUiContainer() const {
    return dynamicCast<UiContainer>(getUiWidget());
}

RCShdPtr<PiWidget> UiContainerAdapter::getWidget(std::string const& name) const {
    auto* container = static_cast<UiContainer*>(widget());
    if (!container)
        return nullptr;
    RCShdPtr<UiWidget> child = container->findWidget(LiString(name));
    return child ? child->retrieveInterface() : RCShdPtr<PiWidget>();
}

RCShdPtr<PiWidgetGroup> UiContainerAdapter::getGroup(std::string const& name) const {
    auto* container = static_cast<UiContainer*>(widget());
    if (!container)
        return nullptr;
    RCShdPtr<UiGroup> group = container->findGroup(LiString(name));
    return group ? group->getInterface() : RCShdPtr<PiWidgetGroup>();
}

// --- the container's side --------------------------------------------------------------------

namespace {

// The adapter behind `iface` when it is an adapter of `container` itself. No reference to the
// container is taken: a dying container has none left to count.
UiWidgetAdapter* ownAdapter(RCShdPtr<PiWidget> const& iface, UiContainer const* container) {
    auto* adapter = dynamic_cast<UiWidgetAdapter*>(iface.get());
    return adapter && adapter->adapts(container) ? adapter : nullptr;
}

} // namespace

RCShdPtr<PiWidget> UiContainer::retrieveInterface() {
    if (!_interface)
        setInterface(RCShdPtr<PiWidget>(new UiContainerAdapter(RCShdPtr<UiContainer>(this))));
    return _interface;
}

void UiContainer::setInterface(RCShdPtr<PiWidget> const& iface) {
    if (iface.get() == _interface.get())
        return;
    RCShdPtr<PiWidget> previous = std::move(_interface);
    if (UiWidgetAdapter* adapter = ownAdapter(iface, this))
        adapter->giveBackReference();
    _interface = iface;
    // The previous adapter counts its container again; it goes (and lets go) with `previous`
    // unless a plug-in still holds it.
    if (UiWidgetAdapter* adapter = ownAdapter(previous, this))
        adapter->takeBackReference();
}

void UiContainer::releaseInterface() {
    if (UiWidgetAdapter* adapter = ownAdapter(_interface, this))
        adapter->detach();
    _interface = nullptr;
}

} // namespace Zr
