// The arm stack's storage and its exit check.
#include "uiArmStack.h"

#include "exBase.h"

namespace Zr {

std::vector<UiArmStack::Entry>& UiArmStack::entries() {
    // The event loop's thread is the only user; the name matches the assertion texts.
    static std::vector<Entry> armedWidgets;
    return armedWidgets;
}

std::size_t UiArmStack::find(UiWidget const* widget) {
    auto const& armedWidgets = entries();
    for (std::size_t i = 0; i < armedWidgets.size(); ++i)
        if (armedWidgets[i]._widget == widget)
            return i;
    return armedWidgets.size();
}

void UiArmStack::push(UiWidget* widget, unsigned triggerButton) {
    auto& armedWidgets = entries();
    if (armedWidgets.size() == armedWidgets.capacity())
        armedWidgets.reserve(armedWidgets.capacity() + armedWidgets.capacity() / 2 + 4);
    armedWidgets.push_back({widget, triggerButton});
}

void UiArmStack::pop() {
    auto& armedWidgets = entries();
    if (!armedWidgets.empty())
        armedWidgets.pop_back();
}

void UiArmStack::forget(UiWidget const* widget) {
    for (Entry& e : entries())
        if (e._widget == widget)
            e._widget = nullptr;
}

void UiArmStack::checkEmpty() {
    ZR_ASSERT_TEXT(empty(), "ArmStack::empty()");
}

} // namespace Zr
