// The label resources of the widgets that show UiStrings.
#include "uiLabelString.h"

#include "uiResAlign.h"
#include "uiResFont.h"
#include "uiResSet.h"
#include "uiResText.h"
#include "uiString.h"

#include "wsFontRegistry.h"

namespace Zr::UiLabelString {

namespace {
// Resource names as LiStrings: comparing them checks the stored hashes first.
LiString const LabelStringName("LabelString");
LiString const LabelAlignName("LabelAlign");
LiString const LabelFontName("LabelFont");
} // namespace

void setDefaultResources(UiResSet& set, char const* align) {
    set.set(RCShdPtr<UiResource>(new UiResText("LabelString", "")));
    set.set(RCShdPtr<UiResource>(new UiResAlign("LabelAlign", align)));
    set.set(RCShdPtr<UiResource>(new UiResFont(
        "LabelFont", WsFontRegistry::getInstance().getDefaultFontHandle().str().c_str())));
}

bool applyResource(UiString& string, UiResource const& resource) {
    LiString const& name = resource.getNameRef();
    if (name == LabelStringName) {
        if (auto const* text = dynamic_cast<UiResText const*>(&resource))
            string.setString(text->getNbStrings() > 0 ? text->getString(0) : "");
        return true;
    }
    if (name == LabelAlignName) {
        if (auto const* align = dynamic_cast<UiResAlign const*>(&resource)) {
            string.setMargins(align->getMarginH(), align->getMarginV());
            string.setAlignment(align->getAlignmentH(), align->getAlignmentV());
        }
        return true;
    }
    if (name == LabelFontName) {
        if (auto const* font = dynamic_cast<UiResFont const*>(&resource))
            string.setFont(font->getFontHandle());
        return true;
    }
    return false;
}

} // namespace Zr::UiLabelString
