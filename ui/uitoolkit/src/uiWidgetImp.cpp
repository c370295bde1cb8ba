// UiWidgetImp: the widget's callback lists, created on first use, its teardown, and its role
// as the grab handler through which grabbed events reach the widget.
#include "uiWidgetImp.h"

#include "uiContainer.h"
#include "uiFocusKeyboard.h"
#include "uiFocusPointer.h"
#include "uiGrab.h"
#include "uiHotkeyRegistry.h"

#include <algorithm>

namespace Zr {

UiWidgetImp::Rare const& UiWidgetImp::rareOrNone() const {
    static Rare const none;
    return _rare ? *_rare : none;
}

UiWidgetImp::UiWidgetImp(UiWidget* widget) : _widget(widget) {}

UiWidgetImp::~UiWidgetImp() {
    teardown();
}

void UiWidgetImp::teardown() {
    if (_tornDown)
        return;
    _tornDown = true;
    _initPhase = 6;
    UiHotkeyRegistry::getInstance().removeWidget(_widget);
    EvDefaultEvent destroyed;
    fire(Destroy, destroyed);
    UiGrab::pointer().release(this);
    UiGrab::keyboard().release(this);
    UiFocusPointer::getInstance().forget(_widget);
    // Forgetting sends no events: the dying widget must not be offered focus-out notices.
    if (_widget->isKeyboardFocusable() && UiFocusKeyboard::getInstance().getFocus() == _widget)
        UiFocusKeyboard::getInstance().forget(_widget);
}

CbDispatcher<EvEvent>* UiWidgetImp::findDispatcher(Dispatcher d) const {
    for (auto const& entry : _dispatchers)
        if (entry.first == d)
            return entry.second.get();
    return nullptr;
}

void UiWidgetImp::addHandler(Dispatcher d, CbHandler<EvEvent>* h) {
    if (!h)
        return;
    if (auto* dispatcher = findDispatcher(d)) {
        dispatcher->addHandler(h);
        return;
    }
    auto dispatcher = std::make_unique<CbDispatcher<EvEvent>>();
    dispatcher->addHandler(h);
    _dispatchers.emplace_back(d, std::move(dispatcher));
}

void UiWidgetImp::insertHandler(Dispatcher d, CbHandler<EvEvent>* h) {
    if (!h)
        return;
    if (auto* dispatcher = findDispatcher(d)) {
        dispatcher->prependHandler(h);
        return;
    }
    addHandler(d, h);
}

void UiWidgetImp::removeHandler(Dispatcher d, CbHandler<EvEvent>* h) {
    // The list stays when it empties: a removal may happen while it is being called.
    if (auto* dispatcher = findDispatcher(d))
        dispatcher->removeHandler(h);
}

void UiWidgetImp::fire(Dispatcher d, EvEvent& event) {
    if (auto* dispatcher = findDispatcher(d))
        dispatcher->call(event);
}

int UiWidgetImp::getNbHandlers(Dispatcher d) const {
    auto* dispatcher = findDispatcher(d);
    return dispatcher ? dispatcher->getNbHandlers() : 0;
}

void UiWidgetImp::processEvent(EvEvent& event) {
    _widget->processEvent(event);
}

GePoint2<int> UiWidgetImp::getProcessOrigin() const {
    return _widget->getProcessOrigin();
}

std::string UiWidgetImp::getHandlerName() const {
    return _widget->getName().str();
}

} // namespace Zr
