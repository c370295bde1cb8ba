// UiRowCascading: the submenu a row owns, and its closing.
#include "uiRowCascading.h"

#include "uiPopupMenu.h"

namespace Zr {

UiRowCascading::UiRowCascading(RCShdPtr<UiPopupMenu> const& popup, LiString const& string, int id)
    : UiRow(string, id, true), _popup(popup) {
    ZR_ASSERT_TEXT(!_popup.isNull(), "!popup.isNull()");
}

UiRowCascading::~UiRowCascading() {
    if (_popup && _popup->isOpen())
        _popup->close();
}

void UiRowCascading::close() {
    if (_popup->isOpen())
        _popup->close();
}

void UiRowCascading::setHighlight(bool highlighted) {
    UiRow::setHighlight(highlighted);
    if (!highlighted)
        close();
}

bool UiRowCascading::isPopupDisplayed() const {
    return _popup->isDisplayed();
}

} // namespace Zr
