// The icon resources and the blended icon drawing of the icon widgets.
#include "uiIconDraw.h"

#include "uiIcon.h"
#include "uiIconRegistry.h"
#include "uiResAlign.h"
#include "uiResIcon.h"
#include "uiResSet.h"

#include "smContext.h"
#include "smGl.h"
#include "smStateObject.h"

namespace Zr::UiIconDraw {

void setDefaultResources(UiResSet& set) {
    set.set(RCShdPtr<UiResource>(new UiResIcon("Icon")));
    set.set(RCShdPtr<UiResource>(new UiResAlign("IconAlign", "Center Center 0 0")));
}

bool applyResource(UiIcon& icon, UiResource const& resource) {
    LiString const& name = resource.getNameRef();
    if (name == "Icon") {
        if (auto const* image = dynamic_cast<UiResIcon const*>(&resource))
            icon.setImage(image->getImage());
        return true;
    }
    if (name == "IconAlign") {
        if (auto const* align = dynamic_cast<UiResAlign const*>(&resource)) {
            icon.setMargins(align->getMarginH(), align->getMarginV());
            icon.setAlignment(align->getAlignmentH(), align->getAlignmentV());
        }
        return true;
    }
    return false;
}

void draw(UiIcon const& icon, SmStateObject const& state, GePoint2<int> position, bool enabled) {
    SmStateObject blended;
    blended.inherit(state).enable(Gl::BLEND).blendFunc(Gl::SRC_ALPHA, Gl::ONE_MINUS_SRC_ALPHA);
    if (SmContext* context = SmContext::getCurrentContext())
        context->applyStateObject(blended);
    UiIconRegistry::getInstance().draw(icon.getImage(), position, enabled);
}

} // namespace Zr::UiIconDraw
