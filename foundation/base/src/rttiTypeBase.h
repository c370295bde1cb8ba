// RttiTypeBase: a run-time type record with a number, a name and the types it derives from;
// RttiType<Tag>, the same record kept apart per family of types; RttiEx, the failures of the
// type registries.
#pragma once

#include "exBase.h"
#include "liString.h"

#include <iosfwd>
#include <vector>

namespace Zr {

struct RttiEx {
    // A type registered under a name that is taken.
    ZR_DECLARE_EXCEPTION(ExAlreadyExists, ExBase);
    // A name that no registered type has.
    ZR_DECLARE_EXCEPTION(ExNotFound, ExBase);
};

class RttiTypeBase {
public:
    RttiTypeBase(int id, LiString name);
    virtual ~RttiTypeBase();
    RttiTypeBase(RttiTypeBase const&) = delete;
    RttiTypeBase& operator=(RttiTypeBase const&) = delete;

    int getId() const { return _id; }
    LiString const& getName() const { return _name; }

    // Makes `ancestor`, and everything it derives from, ancestors of this type.
    void addAncestor(RttiTypeBase const& ancestor);
    // Every type this one derives from, at any depth; the nearest first.
    std::vector<RttiTypeBase const*> const& getAncestors() const { return _ancestors; }
    // Whether this type derives from `type`.
    bool isAncestor(RttiTypeBase const& type) const;
    // Whether this type is `type` or derives from it.
    bool isA(RttiTypeBase const& type) const { return this == &type || isAncestor(type); }

    // One line: the number, the name and the ancestors' names.
    void dump(std::ostream& os) const;

private:
    int _id;
    LiString _name;
    std::vector<RttiTypeBase const*> _ancestors;
};

// A type of the family `Tag`: types of different families are never compared by mistake.
template <class Tag>
class RttiType : public RttiTypeBase {
public:
    using RttiTypeBase::RttiTypeBase;
};

} // namespace Zr
