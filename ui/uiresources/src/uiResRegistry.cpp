// UiResRegistry: the built-in prototypes and the look-up by tag.
#include "uiResRegistry.h"

#include "uiResAlign.h"
#include "uiResColor.h"
#include "uiResConstraint.h"
#include "uiResCoord.h"
#include "uiResDomain.h"
#include "uiResDouble.h"
#include "uiResFont.h"
#include "uiResFrame.h"
#include "uiResIcon.h"
#include "uiResInt.h"
#include "uiResMinMax.h"
#include "uiResText.h"

namespace Zr {

UiResRegistry& UiResRegistry::getInstance() {
    static UiResRegistry instance;
    return instance;
}

// Each prototype has an empty name and an empty or zero payload.
UiResRegistry::UiResRegistry() {
    registerType("Int", RCShdPtr<UiResource>(new UiResInt()));
    registerType("Double", RCShdPtr<UiResource>(new UiResDouble()));
    registerType("Text", RCShdPtr<UiResource>(new UiResText()));
    registerType("Align", RCShdPtr<UiResource>(new UiResAlign()));
    registerType("MinMax", RCShdPtr<UiResource>(new UiResMinMax()));
    registerType("Coord", RCShdPtr<UiResource>(new UiResCoord()));
    registerType("Constraint", RCShdPtr<UiResource>(new UiResConstraint()));
    registerType("Color", RCShdPtr<UiResource>(new UiResColor()));
    registerType("Frame", RCShdPtr<UiResource>(new UiResFrame()));
    registerType("Domain", RCShdPtr<UiResource>(new UiResDomain()));
    registerType("FontHandle", RCShdPtr<UiResource>(new UiResFont()));
    registerType("IconFile", RCShdPtr<UiResource>(new UiResIcon()));
}

void UiResRegistry::registerType(char const* tag, RCShdPtr<UiResource> const& prototype) {
    ZR_ASSERT(prototype);
    _prototypes[LiString(tag)] = prototype;
}

RCShdPtr<UiResource> UiResRegistry::getResource(char const* tag) const {
    auto it = _prototypes.find(LiString(tag));
    if (it == _prototypes.end())
        return {};
    return it->second->clone();
}

bool UiResRegistry::isRegisteredType(char const* tag) const {
    return _prototypes.find(LiString(tag)) != _prototypes.end();
}

} // namespace Zr
