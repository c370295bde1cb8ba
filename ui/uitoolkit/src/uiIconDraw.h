// Helpers of the widgets that show a UiIcon in place of a label: the icon resources and the
// blended drawing of the icon.
#pragma once

#include "gePoint2.h"

namespace Zr {

class SmStateObject;
class UiIcon;
class UiResSet;
class UiResource;

namespace UiIconDraw {

// Adds Icon (no image) and IconAlign ("Center Center 0 0").
void setDefaultResources(UiResSet& set);
// Applies Icon or IconAlign to `icon`; true when the resource was one of them. One of the
// wrong kind is ignored.
bool applyResource(UiIcon& icon, UiResource const& resource);
// Draws the icon's image at `position`, blended over what is there, starting from `state`.
void draw(UiIcon const& icon, SmStateObject const& state, GePoint2<int> position, bool enabled);

} // namespace UiIconDraw
} // namespace Zr
