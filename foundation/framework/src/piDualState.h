// PiDualState: what a plug-in sees of a two-state widget (a toggle, a pushed toggle): the
// widget operations plus its state.
#pragma once

#include "piWidget.h"

namespace Zr {

class PiDualState : public virtual PiWidget {
public:
    virtual bool getState() const = 0;
    // With notify, the widget's state callbacks run when the state is taken.
    virtual void setState(bool state, bool notify) = 0;

protected:
    PiDualState() = default;
    ~PiDualState() override = default;
};

} // namespace Zr
