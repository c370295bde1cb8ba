// The type record: ancestors and the dump line.
#include "rttiTypeBase.h"

#include <algorithm>
#include <ostream>

namespace Zr {

RttiTypeBase::RttiTypeBase(int id, LiString name) : _id(id), _name(std::move(name)) {}

RttiTypeBase::~RttiTypeBase() = default;

void RttiTypeBase::addAncestor(RttiTypeBase const& ancestor) {
    // The ancestors are kept flat, so that a query is one scan and never a walk up a chain.
    auto add = [this](RttiTypeBase const* t) {
        if (t != this && std::find(_ancestors.begin(), _ancestors.end(), t) == _ancestors.end())
            _ancestors.push_back(t);
    };
    add(&ancestor);
    for (RttiTypeBase const* t : ancestor._ancestors)
        add(t);
}

bool RttiTypeBase::isAncestor(RttiTypeBase const& type) const {
    return std::find(_ancestors.begin(), _ancestors.end(), &type) != _ancestors.end();
}

void RttiTypeBase::dump(std::ostream& os) const {
    os << _id << ' ' << _name;
    for (RttiTypeBase const* t : _ancestors)
        os << ' ' << t->getName();
    os << '\n';
}

} // namespace Zr
