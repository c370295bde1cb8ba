// UiResSet: set, add and the two merges, which share resources rather than copy them.
#include "uiResSet.h"

namespace Zr {

int UiResSet::indexOf(LiString const& name) const {
    for (std::size_t i = 0; i < _resources.size(); ++i) {
        if (_resources[i]->getNameRef() == name)
            return static_cast<int>(i);
    }
    return -1;
}

void UiResSet::set(RCShdPtr<UiResource> const& r) {
    if (!r)
        return;
    int i = indexOf(r->getNameRef());
    if (i < 0) {
        _resources.push_back(r);
        return;
    }
    if (_resources[i]->getLevel() <= r->getLevel())
        _resources[i] = r;
}

void UiResSet::add(RCShdPtr<UiResource> const& r) {
    if (!r)
        return;
    if (indexOf(r->getNameRef()) < 0)
        _resources.push_back(r);
}

void UiResSet::merge(UiResSet const& other) {
    if (&other == this)
        return;
    for (RCShdPtr<UiResource> const& r : other._resources)
        add(r);
}

void UiResSet::mergeReplace(UiResSet const& other) {
    if (&other == this)
        return;
    for (RCShdPtr<UiResource> const& r : other._resources)
        set(r);
}

RCShdPtr<UiResource> UiResSet::find(LiString const& name) const {
    int i = indexOf(name);
    return i < 0 ? RCShdPtr<UiResource>() : _resources[i];
}

} // namespace Zr
