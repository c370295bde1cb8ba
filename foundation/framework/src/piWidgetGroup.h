// PiWidgetGroup: what a plug-in sees of a named group of widgets in a container.
#pragma once

#include "rcBase.h"

#include <string>

namespace Zr {

class PiWidget;

class PiWidgetGroup : public RCObject {
public:
    virtual std::string getName() const = 0;
    virtual int getNbWidgets() const = 0;
    // The interface of the index-th widget of the group, null outside 0 .. getNbWidgets() - 1.
    virtual RCShdPtr<PiWidget> getWidget(int index) const = 0;

protected:
    PiWidgetGroup() = default;
    ~PiWidgetGroup() override;
};

} // namespace Zr
