// UiPushButtonIcon: a push button that shows an icon instead of its label.
#pragma once

#include "uiIcon.h"
#include "uiPushButton.h"

namespace Zr {

class UiPushButtonIcon : public UiPushButton, public UiIconProtocol {
public:
    static RCShdPtr<UiPushButtonIcon> create(UiContainer* parent, LiString const& name,
                                             UiResTable const* table = nullptr);

    // Takes the icon and places it in the canvas; a null icon is ignored.
    void setIcon(OPtr<UiIcon> icon);
    UiIcon& getIcon() { return *_icon; }
    UiIcon const& getIcon() const { return *_icon; }
    // Shows the image of that file (a relative path is taken in the icon directory); an
    // unreadable file raises WsImageEx::ExUnreadable and leaves the button without an image.
    void readImage(char const* path);

    void iconChanged() override;
    void adjustCoords() override;

protected:
    UiPushButtonIcon(UiContainer* parent, LiString const& name);
    ~UiPushButtonIcon() override;

    void setDefaultResources(UiResSet& set) override;
    // The icon's resources go to the icon; every resource goes on to the button.
    void setResource(RCShdPtr<UiResource> const& resource) override;
    void drawContent() override;

private:
    OPtr<UiIcon> _icon;
};

} // namespace Zr
