// PiContainer: what a plug-in sees of a widget with children: its children and groups by name.
#pragma once

#include "piWidget.h"
#include "piWidgetGroup.h"

namespace Zr {

// PiWidget is a virtual base, so that an adapter deriving from both this interface and a
// widget adapter holds one PiWidget and one reference count.
class PiContainer : public virtual PiWidget {
public:
    // The interface of the direct child of that name; null when there is none.
    virtual RCShdPtr<PiWidget> getWidget(std::string const& name) const = 0;
    // The group of that name among the direct children; null when there is none.
    virtual RCShdPtr<PiWidgetGroup> getGroup(std::string const& name) const = 0;

protected:
    PiContainer() = default;
    ~PiContainer() override;
};

} // namespace Zr
