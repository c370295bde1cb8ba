// UiGroup: a container that gathers related widgets under one name, so that they can be found
// together with UiContainer::findGroup.
#pragma once

#include "uiContainer.h"

namespace Zr {

class PiWidgetGroup;

class UiGroup : public UiContainer {
public:
    static RCShdPtr<UiGroup> create(UiContainer* parent, LiString const& name,
                                    UiResTable const* table = nullptr);

    // What plug-ins see of the group: a new UiWidgetGroupAdapter (holding the group) on each
    // call; group kinds with an interface of their own override it. Not to be confused with
    // UiContainer::getInterface, the stored widget interface, which this hides: a group's
    // widget interface is retrieveInterface.
    virtual RCShdPtr<PiWidgetGroup> getInterface();

protected:
    using UiContainer::UiContainer;
};

} // namespace Zr
