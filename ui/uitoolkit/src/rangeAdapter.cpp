// RangeAdapter: forwards the value, limits and handler to the range widget.
#include "rangeAdapter.h"

namespace Zr {

RangeAdapter::RangeAdapter(RCShdPtr<UiRange> const& range)
    : UiWidgetAdapter(RCShdPtr<UiWidget>(range)) {}

RangeAdapter::~RangeAdapter() = default;

UiRange* RangeAdapter::range() const {
    return static_cast<UiRange*>(widget());
}

double RangeAdapter::getValue() const {
    return range() ? range()->getValue() : 0.0;
}

double RangeAdapter::setValue(double value, bool notify) {
    return range() ? range()->setValue(value, notify) : 0.0;
}

double RangeAdapter::getDisplayValue() const {
    return range() ? range()->getDisplayValue() : 0.0;
}

double RangeAdapter::setDisplayValue(double display, bool notify) {
    return range() ? range()->setDisplayValue(display, notify) : 0.0;
}

double RangeAdapter::getMinValue() const {
    return range() ? range()->getMinValue() : 0.0;
}

double RangeAdapter::getMaxValue() const {
    return range() ? range()->getMaxValue() : 0.0;
}

void RangeAdapter::setRange(double min, double max, bool notify) {
    if (range())
        range()->setRange(min, max, notify);
}

void RangeAdapter::setValueHandler(RCShdPtr<PiRange::ValueHandler> const& handler) {
    if (!range())
        return;
    range()->setValueHandler(handler
                                 ? RCShdPtr<UiRange::ValueHandler>(new ValueHandlerAdapter(handler))
                                 : RCShdPtr<UiRange::ValueHandler>());
}

void RangeAdapter::addValueChangedCallback(CbHandler<EvEvent>* handler) {
    if (range())
        range()->addValueChangedCb(handler);
}

void RangeAdapter::removeValueChangedCallback(CbHandler<EvEvent>* handler) {
    if (range())
        range()->removeValueChangedCb(handler);
}

} // namespace Zr
