// UiPushedToggleIcon: a pushed toggle that shows an icon instead of its labels.
#pragma once

#include "uiIcon.h"
#include "uiPushedToggle.h"

namespace Zr {

class UiPushedToggleIcon : public UiPushedToggle, public UiIconProtocol {
public:
    static RCShdPtr<UiPushedToggleIcon> create(UiContainer* parent, LiString const& name,
                                               UiResTable const* table = nullptr);

    // Shows the image of that file (a relative path is taken in the icon directory); an
    // unreadable file raises WsImageEx::ExUnreadable and leaves the toggle without an image.
    void readImage(char const* path);
    void setImage(RCShdPtr<WsManagedImage> const& image);
    UiIcon& getIcon() { return _icon; }
    UiIcon const& getIcon() const { return _icon; }

    void iconChanged() override;
    void adjustCoords() override;

protected:
    UiPushedToggleIcon(UiContainer* parent, LiString const& name);
    ~UiPushedToggleIcon() override;

    void setDefaultResources(UiResSet& set) override;
    // The icon's resources go to the icon; every resource goes on to the toggle.
    void setResource(RCShdPtr<UiResource> const& resource) override;
    void drawContent() override;

private:
    UiIcon _icon;
};

} // namespace Zr
