// DrCarrier: what a drag or the clipboard carries: a selection, and the location of the drop as
// fractions of the target's width and height.
#pragma once

#include "gePoint2.h"
#include "snSelection.h"

namespace Zr {

class DrCarrier : public RCObject {
public:
    // A null selection fails an assertion.
    static RCShdPtr<DrCarrier> create(RCShdPtr<SnSelection> const& selection);

    RCShdPtr<SnSelection> const& getSelection() const { return _selection; }

    void setLocation(GePoint2<float> const& location) { _location = location; }
    // (0, 0) until set.
    GePoint2<float> const& getLocation() const { return _location; }

    // True when the selection holds at least one item.
    bool hasData() const { return !_selection->isEmpty(); }

private:
    explicit DrCarrier(RCShdPtr<SnSelection> const& selection) : _selection(selection) {}

    RCShdPtr<SnSelection> _selection;
    GePoint2<float> _location;
};

} // namespace Zr
