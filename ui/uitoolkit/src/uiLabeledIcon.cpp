// UiLabeledIcon: the icon's resources and place, and its drawing, plain or scaled to fit.
#include "uiLabeledIcon.h"

#include "uiIconDraw.h"
#include "uiResFrame.h"
#include "uiResInt.h"
#include "uiResSet.h"

#include "gfxImageUtil.h"
#include "ixTile.h"
#include "smContext.h"
#include "smGl.h"
#include "smStateObject.h"

#include <algorithm>

namespace Zr {

RCShdPtr<UiLabeledIcon> UiLabeledIcon::create(UiContainer* parent, LiString const& name,
                                              UiResTable const* table) {
    RCShdPtr<UiLabeledIcon> widget(new UiLabeledIcon(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiLabeledIcon::UiLabeledIcon(UiContainer* parent, LiString const& name)
    : UiLabel(parent, name), _icon(this), _drawIcon(this, &UiLabeledIcon::drawIcon) {
    addUserDrawCb(&_drawIcon);
}

UiLabeledIcon::~UiLabeledIcon() = default;

void UiLabeledIcon::setDefaultResources(UiResSet& set) {
    UiLabel::setDefaultResources(set);
    UiIconDraw::setDefaultResources(set);
    set.set(RCShdPtr<UiResource>(new UiResInt("ZoomToFit", "0")));
    set.set(RCShdPtr<UiResource>(new UiResFrame(DefaultFrame, "None")));
}

void UiLabeledIcon::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    if (resource->getNameRef() == "ZoomToFit") {
        auto const* value = dynamic_cast<UiResInt const*>(resource.get());
        if (value && value->getNbValues() == 1)
            setZoomToFit(value->getValue(0) != 0);
        return;
    }
    UiIconDraw::applyResource(_icon, *resource);
    UiLabel::setResource(resource);
}

void UiLabeledIcon::readImage(char const* path) {
    _icon.loadIcon(path);
    markForUpdate();
}

void UiLabeledIcon::setZoomToFit(bool zoom) {
    _zoomToFit = zoom;
    markForUpdate();
}

float UiLabeledIcon::getFitScale() const {
    RCShdPtr<WsManagedImage> const& image = _icon.getImage();
    if (!image || image->getWidth() <= 0 || image->getHeight() <= 0)
        return 0.f;
    GeRectangle<int> const canvas = getCanvas();
    return std::max(float(canvas.height()) / float(image->getHeight()),
                    float(canvas.width()) / float(image->getWidth()));
}

void UiLabeledIcon::iconChanged() {
    markForUpdate();
}

void UiLabeledIcon::adjustCoords() {
    UiLabel::adjustCoords();
    GeRectangle<int> const canvas = getCanvas();
    _icon.setRect({0, canvas.width(), 0, canvas.height()});
}

void UiLabeledIcon::drawIcon(EvEvent&) {
    GeRectangle<int> const canvas = getCanvas();
    float const scale = _zoomToFit ? getFitScale() : 0.f;
    if (scale > 1.f) {
        RCShdPtr<WsManagedImage> const& image = _icon.getImage();
        if (SmContext* context = SmContext::getCurrentContext())
            context->applyStateObject(getDrawState(DrawStateByOpacity));
        GfxImageUtil::draw(image->getImage(), {image->getWidth(), image->getHeight()},
                           {canvas.x1, canvas.y1}, scale, true);
        return;
    }
    UiIconDraw::draw(_icon, getDrawState(DrawStateByOpacity),
                     {canvas.x1 + _icon.getX(), canvas.y1 + _icon.getY()}, isEnabled());
}

} // namespace Zr
