// UiDualStateAdapter: the plug-in interface of a two-state widget.
#pragma once

#include "piDualState.h"
#include "uiWidgetAdapter.h"

namespace Zr {

class UiDualState;

class UiDualStateAdapter : public PiDualState, public UiWidgetAdapter {
public:
    explicit UiDualStateAdapter(RCShdPtr<UiDualState> const& widget);

    // False once detached.
    bool getState() const override;
    void setState(bool state, bool notify) override;

protected:
    ~UiDualStateAdapter() override;
};

} // namespace Zr
