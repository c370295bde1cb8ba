// UiResConstraint: a resource holding one UiConstraint ("Constraint"); widgets take their
// placement from the one named "Layout".
#pragma once

#include "uiConstraint.h"
#include "uiResource.h"

namespace Zr {

// XML: a <Constraint> element holding X1, Y1, X2, Y2. Text: the constraint string.
class UiResConstraint : public UiResource {
public:
    UiResConstraint(LiString const& name, UiConstraint const& constraint);
    // Starts from an all-zero constraint, then reads `text` when it is not null.
    explicit UiResConstraint(LiString const& name = {}, char const* text = nullptr);
    UiResConstraint(UiResConstraint const&) = default;
    ~UiResConstraint() override = default;

    char const* getType() const override { return "Constraint"; }
    void read(XmlElement const& element) override;
    void read(std::istream& is) override;
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResConstraint)

    UiConstraint getConstraint() const { return _constraint; }
    void setConstraint(UiConstraint const& constraint) { _constraint = constraint; }

private:
    UiConstraint _constraint;
};

} // namespace Zr
