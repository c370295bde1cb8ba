// The shared part of the type registries: adding, finding, removing and the dump.
#include "rttiTypeRegistry.h"

#include <algorithm>
#include <ostream>

namespace Zr {

RttiTypeRegistryBase::RttiTypeRegistryBase(std::string familyName)
    : _familyName(std::move(familyName)) {}

RttiTypeRegistryBase::~RttiTypeRegistryBase() noexcept(false) {
    // A type still here would leave a dangling record in every class that holds it.
    ZR_ASSERT_TEXT(_types.empty(), "_types.empty()");
}

RttiTypeBase const& RttiTypeRegistryBase::add(std::unique_ptr<RttiTypeBase> type) {
    if (find(type->getName()))
        throw RttiEx::ExAlreadyExists(__FILE__, __LINE__,
                                      "Type already registered: " + type->getName().str());
    ++_nextId;
    _types.push_back(std::move(type));
    return *_types.back();
}

RttiTypeBase const* RttiTypeRegistryBase::find(LiString const& name) const {
    for (auto const& type : _types)
        if (type->getName() == name)
            return type.get();
    return nullptr;
}

RttiTypeBase const& RttiTypeRegistryBase::get(LiString const& name) const {
    RttiTypeBase const* type = find(name);
    if (!type)
        throw RttiEx::ExNotFound(__FILE__, __LINE__, "Type not registered: " + name.str());
    return *type;
}

void RttiTypeRegistryBase::deregisterType(LiString const& name) {
    auto it = std::find_if(_types.begin(), _types.end(),
                           [&name](auto const& type) { return type->getName() == name; });
    if (it == _types.end())
        throw RttiEx::ExNotFound(__FILE__, __LINE__, "Type not registered: " + name.str());
    _types.erase(it);
}

void RttiTypeRegistryBase::dump(std::ostream& os) const {
    os << "RttiTypeRegistry of " << _familyName << '\n';
    os << "Next type Id: " << _nextId << '\n';
    os << "Registered  types:" << '\n';
    os << "------------------------" << '\n';
    for (auto const& type : _types)
        type->dump(os);
}

} // namespace Zr
