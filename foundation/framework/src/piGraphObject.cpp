// The base of graph objects.
#include "piGraphObject.h"

namespace Zr {

PiGraphObject::~PiGraphObject() = default;

void PiGraphObject::setName(std::string name) {
    if (name == _name)
        return;
    willChange();
    _name = std::move(name);
}

bool PiGraphObject::areEqual(RCShdPtr<PiGraphObject const> const& a,
                             RCShdPtr<PiGraphObject const> const& b) {
    return a.get() == b.get();
}

} // namespace Zr
