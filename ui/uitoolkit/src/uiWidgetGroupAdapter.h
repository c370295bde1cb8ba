// UiWidgetGroupAdapter: the plug-in interface of a UiGroup: its name and its widgets.
#pragma once

#include "piWidgetGroup.h"

namespace Zr {

class UiGroup;

class UiWidgetGroupAdapter : public PiWidgetGroup {
public:
    // Holds the group by reference; the group holds no reference back.
    explicit UiWidgetGroupAdapter(RCShdPtr<UiGroup> const& group);

    std::string getName() const override;
    // The group's direct children, in stacking order, bottom first.
    int getNbWidgets() const override;
    RCShdPtr<PiWidget> getWidget(int index) const override;

    RCShdPtr<UiGroup> const& getUiGroup() const { return _group; }

protected:
    ~UiWidgetGroupAdapter() override;

private:
    RCShdPtr<UiGroup> _group;
};

} // namespace Zr
