// UiGroup: a container that gathers related widgets under one name, so that they can be found
// together with UiContainer::findGroup.
#pragma once

#include "uiContainer.h"

namespace Zr {

class UiGroup : public UiContainer {
public:
    static RCShdPtr<UiGroup> create(UiContainer* parent, LiString const& name,
                                    UiResTable const* table = nullptr);

protected:
    using UiContainer::UiContainer;
};

} // namespace Zr
