// UiPushedToggleIcon: the icon's resources, place and drawing.
#include "uiPushedToggleIcon.h"

#include "uiIconDraw.h"
#include "uiResSet.h"

namespace Zr {

RCShdPtr<UiPushedToggleIcon> UiPushedToggleIcon::create(UiContainer* parent, LiString const& name,
                                                        UiResTable const* table) {
    RCShdPtr<UiPushedToggleIcon> widget(new UiPushedToggleIcon(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiPushedToggleIcon::UiPushedToggleIcon(UiContainer* parent, LiString const& name)
    : UiPushedToggle(parent, name), _icon(this) {}

UiPushedToggleIcon::~UiPushedToggleIcon() = default;

void UiPushedToggleIcon::setDefaultResources(UiResSet& set) {
    UiPushedToggle::setDefaultResources(set);
    UiIconDraw::setDefaultResources(set);
}

void UiPushedToggleIcon::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    UiIconDraw::applyResource(_icon, *resource);
    UiPushedToggle::setResource(resource);
}

void UiPushedToggleIcon::readImage(char const* path) {
    _icon.loadIcon(path);
    markForUpdate();
}

void UiPushedToggleIcon::setImage(RCShdPtr<WsManagedImage> const& image) {
    _icon.setImage(image);
}

void UiPushedToggleIcon::iconChanged() {
    markForUpdate();
}

void UiPushedToggleIcon::adjustCoords() {
    UiPushedToggle::adjustCoords();
    GeRectangle<int> const canvas = getCanvas();
    _icon.setRect({0, canvas.width(), 0, canvas.height()});
}

void UiPushedToggleIcon::drawContent() {
    GeRectangle<int> const canvas = getCanvas();
    UiIconDraw::draw(_icon, getDrawState(DrawStateByOpacity),
                     {canvas.x1 + _icon.getX(), canvas.y1 + _icon.getY()}, isEnabled());
}

} // namespace Zr
