// UiPushButtonIcon: the icon's resources, place and drawing.
#include "uiPushButtonIcon.h"

#include "uiIconDraw.h"
#include "uiResSet.h"

namespace Zr {

RCShdPtr<UiPushButtonIcon> UiPushButtonIcon::create(UiContainer* parent, LiString const& name,
                                                    UiResTable const* table) {
    RCShdPtr<UiPushButtonIcon> widget(new UiPushButtonIcon(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiPushButtonIcon::UiPushButtonIcon(UiContainer* parent, LiString const& name)
    : UiPushButton(parent, name), _icon(std::make_unique<UiIcon>(this)) {}

UiPushButtonIcon::~UiPushButtonIcon() = default;

void UiPushButtonIcon::setDefaultResources(UiResSet& set) {
    UiPushButton::setDefaultResources(set);
    UiIconDraw::setDefaultResources(set);
}

void UiPushButtonIcon::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    UiIconDraw::applyResource(*_icon, *resource);
    UiPushButton::setResource(resource);
}

void UiPushButtonIcon::setIcon(OPtr<UiIcon> icon) {
    if (!icon)
        return;
    _icon = std::move(icon);
    _icon->setOwner(this);
    adjustCoords();
    markForUpdate();
}

void UiPushButtonIcon::readImage(char const* path) {
    _icon->loadIcon(path);
    markForUpdate();
}

void UiPushButtonIcon::iconChanged() {
    markForUpdate();
}

void UiPushButtonIcon::adjustCoords() {
    UiPushButton::adjustCoords();
    GeRectangle<int> const canvas = getCanvas();
    _icon->setRect({0, canvas.width(), 0, canvas.height()});
}

void UiPushButtonIcon::drawContent() {
    // The image sits one pixel lower than its computed place, which centres it in the bevel.
    GeRectangle<int> const canvas = getCanvas();
    UiIconDraw::draw(*_icon, getDrawState(DrawStateByOpacity),
                     {canvas.x1 + _icon->getX(), canvas.y1 + _icon->getY() - 1}, isEnabled());
}

} // namespace Zr
