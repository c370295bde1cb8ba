// The path of groups to a node.
#include "piPath.h"

#include "piGraphObject.h"

namespace Zr {

PiPath::~PiPath() = default;

RCShdPtr<PiPath> PiPath::copy() const {
    return makeShared<PiPath>(_elements);
}

RCShdPtr<PiGraphObject const> const& PiPath::getElement(int index) const {
    ZR_ASSERT(index >= 0 && index < getLength());
    return _elements[static_cast<std::size_t>(index)];
}

void PiPath::append(RCShdPtr<PiGraphObject const> const& object) {
    _elements.push_back(object);
}

bool PiPath::operator==(PiPath const& other) const {
    if (_elements.size() != other._elements.size())
        return false;
    for (std::size_t i = 0; i < _elements.size(); ++i)
        if (_elements[i].get() != other._elements[i].get())
            return false;
    return true;
}

} // namespace Zr
