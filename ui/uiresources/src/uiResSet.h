// UiResSet: the ordered resources of one widget, at most one per name. The vector is the set:
// positions are kept when a resource is replaced, and lookups search it linearly.
#pragma once

#include "uiResource.h"

#include <vector>

namespace Zr {

class UiResSet {
public:
    UiResSet() = default;

    // Replaces the same-named resource in place unless it has the higher level (then `r` is
    // dropped); appends when the name is new. A null `r` is ignored.
    void set(RCShdPtr<UiResource> const& r);
    // Appends `r` only if its name is new. A null `r` is ignored.
    void add(RCShdPtr<UiResource> const& r);
    // add() of each resource of `other`, in order: what this set has stays, whatever its level.
    void merge(UiResSet const& other);
    // set() of each resource of `other`, in order.
    void mergeReplace(UiResSet const& other);

    // Null when absent.
    RCShdPtr<UiResource> find(LiString const& name) const;
    int size() const { return static_cast<int>(_resources.size()); }
    bool empty() const { return _resources.empty(); }
    std::vector<RCShdPtr<UiResource>> const& getResources() const { return _resources; }
    auto begin() const { return _resources.begin(); }
    auto end() const { return _resources.end(); }

private:
    int indexOf(LiString const& name) const;

    std::vector<RCShdPtr<UiResource>> _resources;
};

} // namespace Zr
