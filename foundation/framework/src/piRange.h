// PiRange: what a plug-in sees of a range widget (a slider, a value editor, a progress bar): the
// widget operations plus the value, its limits, its display view and its change callbacks.
#pragma once

#include "piWidget.h"

namespace Zr {

class PiRange : public virtual PiWidget {
public:
    // A plug-in's mapping of the stored value to the number shown to the user and back.
    class ValueHandler : public RCObject {
    public:
        virtual double toDisplay(double value) const = 0;
        virtual double fromDisplay(double display) const = 0;
    };

    virtual double getValue() const = 0;
    // Returns the value stored, clamped to the limits when the widget clamps; with notify the
    // widget's value-changed callbacks run when the value changed.
    virtual double setValue(double value, bool notify) = 0;
    virtual double getDisplayValue() const = 0;
    virtual double setDisplayValue(double display, bool notify) = 0;
    virtual double getMinValue() const = 0;
    virtual double getMaxValue() const = 0;
    virtual void setRange(double min, double max, bool notify) = 0;
    // Null goes back to showing the stored value.
    virtual void setValueHandler(RCShdPtr<ValueHandler> const& handler) = 0;
    // The handler gets a UiValueChanged event holding the new value.
    virtual void addValueChangedCallback(CbHandler<EvEvent>* handler) = 0;
    virtual void removeValueChangedCallback(CbHandler<EvEvent>* handler) = 0;

protected:
    PiRange() = default;
    ~PiRange() override = default;
};

} // namespace Zr
