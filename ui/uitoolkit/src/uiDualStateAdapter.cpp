// UiDualStateAdapter: forwards the state to the widget.
#include "uiDualStateAdapter.h"

#include "uiDualState.h"

namespace Zr {

UiDualStateAdapter::UiDualStateAdapter(RCShdPtr<UiDualState> const& widget)
    : UiWidgetAdapter(RCShdPtr<UiWidget>(widget)) {}

UiDualStateAdapter::~UiDualStateAdapter() = default;

bool UiDualStateAdapter::getState() const {
    auto const* w = static_cast<UiDualState const*>(widget());
    return w && w->getState();
}

void UiDualStateAdapter::setState(bool state, bool notify) {
    if (auto* w = static_cast<UiDualState*>(widget()))
        w->setState(state, notify);
}

} // namespace Zr
