// RangeAdapter: the plug-in interface of a range widget; ValueHandlerAdapter: a plug-in's value
// handler seen as the widget's own.
#pragma once

#include "piRange.h"
#include "uiRange.h"
#include "uiWidgetAdapter.h"

namespace Zr {

class RangeAdapter : public PiRange, public UiWidgetAdapter {
public:
    explicit RangeAdapter(RCShdPtr<UiRange> const& range);

    // Once the widget is gone the getters give 0 and the setters do nothing.
    double getValue() const override;
    double setValue(double value, bool notify) override;
    double getDisplayValue() const override;
    double setDisplayValue(double display, bool notify) override;
    double getMinValue() const override;
    double getMaxValue() const override;
    void setRange(double min, double max, bool notify) override;
    void setValueHandler(RCShdPtr<PiRange::ValueHandler> const& handler) override;
    void addValueChangedCallback(CbHandler<EvEvent>* handler) override;
    void removeValueChangedCallback(CbHandler<EvEvent>* handler) override;

protected:
    ~RangeAdapter() override;

private:
    UiRange* range() const;
};

// Forwards both conversions to the plug-in's handler; a null one raises ExNullPtr when used.
class ValueHandlerAdapter : public UiRange::ValueHandler {
public:
    explicit ValueHandlerAdapter(RCShdPtr<PiRange::ValueHandler> const& inner) : _inner(inner) {}
    double toDisplay(double value) const override { return _inner->toDisplay(value); }
    double fromDisplay(double display) const override { return _inner->fromDisplay(display); }

private:
    RCShdPtr<PiRange::ValueHandler> _inner;
};

} // namespace Zr
