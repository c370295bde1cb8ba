// UiContainerAdapter: the plug-in interface of a container: the PiWidget operations plus its
// children and groups by name.
#pragma once

#include "piContainer.h"
#include "uiWidgetAdapter.h"

namespace Zr {

class UiContainer;

class UiContainerAdapter : public PiContainer, public UiWidgetAdapter {
public:
    explicit UiContainerAdapter(RCShdPtr<UiContainer> const& container);

    // The direct child of that name, through its own retrieveInterface; null if absent (or
    // once detached).
    RCShdPtr<PiWidget> getWidget(std::string const& name) const override;
    // The direct child group of that name, through UiGroup::getInterface; null if absent.
    RCShdPtr<PiWidgetGroup> getGroup(std::string const& name) const override;

    // Null once detached from a container that is gone.
    RCShdPtr<UiContainer> getUiContainer() const;

protected:
    ~UiContainerAdapter() override;
};

} // namespace Zr
