// UiResConstraint: forwards both forms to UiConstraint.
#include "uiResConstraint.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

UiResConstraint::UiResConstraint(LiString const& name, UiConstraint const& constraint)
    : UiResource(name), _constraint(constraint) {}

UiResConstraint::UiResConstraint(LiString const& name, char const* text)
    : UiResource(name),
      _constraint(0.f, 0.f, 0.f, 0.f, UiConstraint::TypePixel, UiConstraint::TypePixel,
                  UiConstraint::TypePixel, UiConstraint::TypePixel, UiConstraint::TargetLow,
                  UiConstraint::TargetLow, UiConstraint::TargetLow, UiConstraint::TargetLow) {
    if (!text)
        return;
    std::istringstream is(text);
    _constraint.read(is);
}

void UiResConstraint::read(XmlElement const& element) {
    XmlElement constraint = element.getElementByTagName("Constraint");
    if (constraint.isNull())
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    _constraint.read(constraint);
}

void UiResConstraint::read(std::istream& is) {
    is >> _constraint;
}

void UiResConstraint::write(XmlWriter& writer, bool) const {
    XmlWriter::ElementGuard guard(writer, "Constraint");
    _constraint.write(writer);
}

void UiResConstraint::write(std::ostream& os, bool) const {
    os << _constraint;
}

} // namespace Zr
