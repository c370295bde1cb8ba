// UiIcon: sizing, placing and drawing an image.
#include "uiIcon.h"

#include "uiIconRegistry.h"

namespace Zr {

UiIcon::UiIcon(UiIconProtocol* owner) : _owner(owner) {}

UiIcon::UiIcon(UiIconProtocol* owner, RCShdPtr<WsManagedImage> const& image) : _owner(owner) {
    setImage(image, false);
}

void UiIcon::takeSize() {
    if (_image) {
        GeRectangle<int> const bounds = _image->getImage(true)->getBounds();
        _width = bounds.x2 - bounds.x1;
        _height = bounds.y2 - bounds.y1;
    } else {
        _width = 0;
        _height = 0;
    }
}

void UiIcon::setImage(RCShdPtr<WsManagedImage> const& image, bool onlyIfChanged) {
    bool const changed = image.get() != _image.get();
    if (changed || !onlyIfChanged)
        _image = image;
    takeSize();
    adjustPosition();
    if (changed && _owner)
        _owner->iconChanged();
}

void UiIcon::loadIcon(char const* file) {
    _image = {};
    _width = 0;
    _height = 0;
    setImage(UiIconRegistry::getInstance().loadImage(OsFilePath(file)), false);
}

void UiIcon::draw(int originX, int originY) {
    UiIconRegistry::getInstance().draw(_image, GePoint2<int>(_x + originX, _y + originY), true);
}

} // namespace Zr
