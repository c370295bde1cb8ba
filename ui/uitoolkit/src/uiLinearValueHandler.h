// UiLinearValueHandler: the display value as a * value + b, and LinearHandlerFactory, which
// reads a and b from the attributes "A" and "B" of a resource table.
#pragma once

#include "uiRange.h"

namespace Zr {

class UiLinearValueHandler : public UiRange::ValueHandler {
public:
    UiLinearValueHandler(double a, double b) : _a(a), _b(b) {}

    double toDisplay(double value) const override;
    // A zero `a` is guarded, so the result stays finite.
    double fromDisplay(double display) const override;
    double getA() const { return _a; }
    double getB() const { return _b; }

private:
    double _a;
    double _b;
};

// <LinearValueHandler A="100" B="0"/>: A defaults to 1, B to 0. A value that is not wholly a
// finite number raises UiResourceEx::ExBadNumber.
class LinearHandlerFactory : public UiRange::ValueHandlerFactory {
public:
    RCShdPtr<UiRange::ValueHandler> create(XmlElement const& element) override;
};

} // namespace Zr
