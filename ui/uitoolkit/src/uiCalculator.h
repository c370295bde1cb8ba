// UiCalculator: the calculator an application installs with UiApplication::setCalculator. The
// toolkit only opens it on a value; what it shows and how it computes is its own business.
#pragma once

#include "rcBase.h"

namespace Zr {

class UiCalculatable;

class UiCalculator : public RCObject {
public:
    // Value: compute a new number from the present one. Expression: edit the expression behind
    // the value.
    enum PopupMode { Value = 0, Expression = 1 };

    ~UiCalculator() override = default;
    // Opens the calculator on `calculatable`, which may be null. The base does nothing.
    virtual void popup(UiCalculatable* calculatable, PopupMode mode) {
        (void)calculatable;
        (void)mode;
    }
};

} // namespace Zr
