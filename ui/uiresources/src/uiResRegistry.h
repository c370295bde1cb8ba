// UiResRegistry: the prototypes of the resource types by tag, from which the table reader makes
// an empty resource for each type element it meets.
#pragma once

#include "uiResource.h"

#include <map>

namespace Zr {

class UiResRegistry {
public:
    // Comes up with the built-in types ("Int", "Double", "Text", "Align", "MinMax", "Coord",
    // "Constraint", "Color", "Frame", "Domain", "FontHandle", "IconFile") already registered.
    static UiResRegistry& getInstance();

    // Inserts or replaces the prototype of a tag.
    void registerType(char const* tag, RCShdPtr<UiResource> const& prototype);
    // A clone of the tag's prototype; null when the tag is unknown.
    RCShdPtr<UiResource> getResource(char const* tag) const;
    bool isRegisteredType(char const* tag) const;

private:
    UiResRegistry();
    UiResRegistry(UiResRegistry const&) = delete;
    UiResRegistry& operator=(UiResRegistry const&) = delete;

    std::map<LiString, RCShdPtr<UiResource>> _prototypes;
};

} // namespace Zr
