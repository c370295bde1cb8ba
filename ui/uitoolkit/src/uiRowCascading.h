// UiRowCascading: a row that owns a submenu, opened when the row is reached with the pointer or
// the key Right; closing the row, or taking its highlight away, closes the submenu.
#pragma once

#include "uiRow.h"

namespace Zr {

class UiPopupMenu;

class UiRowCascading : public UiRow {
public:
    UiRowCascading(RCShdPtr<UiPopupMenu> const& popup, LiString const& string, int id);
    ~UiRowCascading() override;

    void close() override;
    void setHighlight(bool highlighted) override;
    // Whether the submenu is open now.
    virtual bool isPopupDisplayed() const;

    RCShdPtr<UiPopupMenu> const& getPopup() const { return _popup; }

private:
    RCShdPtr<UiPopupMenu> _popup;
};

} // namespace Zr
