// Helpers shared by the widgets that show one or two UiStrings as labels: the default label
// resources and their application to a string.
#pragma once

#include "rcBase.h"

namespace Zr {

class UiResSet;
class UiResource;
class UiString;

namespace UiLabelString {

// Adds LabelString (empty), LabelAlign (`align`) and LabelFont (the registry's default font).
void setDefaultResources(UiResSet& set, char const* align);
// Applies LabelString, LabelAlign or LabelFont to `string`; true when the resource was one of
// them. A label resource of the wrong kind is ignored.
bool applyResource(UiString& string, UiResource const& resource);

} // namespace UiLabelString
} // namespace Zr
