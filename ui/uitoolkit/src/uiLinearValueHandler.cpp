// UiLinearValueHandler and the factory that reads it from a resource table.
#include "uiLinearValueHandler.h"

#include "uiResNumberText.h"

#include "numUtil.h"
#include "xmlElement.h"

#include <limits>

namespace Zr {

double UiLinearValueHandler::toDisplay(double value) const {
    return value * _a + _b;
}

double UiLinearValueHandler::fromDisplay(double display) const {
    return (display - _b) / guard(_a);
}

namespace {

// The attribute `name` as a finite double, or `fallback` when the element has none.
double attribute(XmlElement const& element, char const* name, double fallback) {
    if (!element.hasAttribute(name))
        return fallback;
    double const max = std::numeric_limits<double>::max();
    return parseNumberIn(element.getAttributeView(name), -max, max,
                         std::string("attribute ") + name + " of LinearValueHandler");
}

} // namespace

RCShdPtr<UiRange::ValueHandler> LinearHandlerFactory::create(XmlElement const& element) {
    double const a = attribute(element, "A", 1.0);
    double const b = attribute(element, "B", 0.0);
    return RCShdPtr<UiRange::ValueHandler>(new UiLinearValueHandler(a, b));
}

} // namespace Zr
