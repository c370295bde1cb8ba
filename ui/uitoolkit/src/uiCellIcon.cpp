// UiCellIcon: loading, sizing and drawing the image of a cell.
#include "uiCellIcon.h"

#include "uiIconRegistry.h"

#include "smContext.h"
#include "smGl.h"
#include "smStateObject.h"

namespace Zr {

UiCellIcon::UiCellIcon(OsFilePath const& file) {
    _icon.setAlignment(1, 1);
    try {
        _icon.setImage(UiIconRegistry::getInstance().loadImage(file));
    } catch (ExBase const&) {
        // A missing or unreadable image leaves an empty cell: the row keeps its text.
    }
}

UiCellIcon::UiCellIcon(RCShdPtr<WsManagedImage> const& image) {
    _icon.setAlignment(1, 1);
    _icon.setImage(image);
}

UiCellIcon::~UiCellIcon() = default;

int UiCellIcon::getDesiredWidth() const {
    return _icon.getImage() ? _icon.getWidth() + 6 : 0;
}

void UiCellIcon::draw(DrawArgs const& args) {
    if (!_icon.getImage() || !args.state)
        return;
    // Icons carry alpha: blended over the row, whatever its highlight.
    SmStateObject blended;
    blended.inherit(*args.state)
        .enable(Gl::BLEND)
        .blendFunc(Gl::SRC_ALPHA, Gl::ONE_MINUS_SRC_ALPHA);
    if (SmContext* context = SmContext::getCurrentContext())
        context->applyStateObject(blended);
    _icon.setRect(args.rect);
    _icon.draw(0, 0);
}

} // namespace Zr
