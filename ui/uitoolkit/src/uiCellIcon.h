// UiCellIcon: a cell that shows an image of the icon directory, centred in its column.
#pragma once

#include "uiCell.h"
#include "uiIcon.h"

namespace Zr {

class UiCellIcon : public UiCell {
public:
    // A path relative to the icon directory, or absolute; an image that cannot be read leaves
    // the cell empty and 0 wide.
    explicit UiCellIcon(OsFilePath const& file);
    explicit UiCellIcon(RCShdPtr<WsManagedImage> const& image);
    ~UiCellIcon() override;

    void draw(DrawArgs const& args) override;
    // The image's width plus 6, 0 without an image.
    int getDesiredWidth() const override;

    UiIcon const& getIcon() const { return _icon; }

private:
    UiIcon _icon;
};

} // namespace Zr
