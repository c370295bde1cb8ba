// UiIcon: an image of the interface placed by UiAlign, taken from UiIconRegistry and drawn
// through it.
#pragma once

#include "uiAlign.h"

#include "rcBase.h"
#include "wsManagedImage.h"

namespace Zr {

// What a UiIcon tells whoever shows it.
class UiIconProtocol {
public:
    virtual ~UiIconProtocol() = default;
    // Called when the icon's image has changed.
    virtual void iconChanged() = 0;
};

class UiIcon : public UiAlign {
public:
    explicit UiIcon(UiIconProtocol* owner = nullptr);
    UiIcon(UiIconProtocol* owner, RCShdPtr<WsManagedImage> const& image);
    UiIcon(UiIcon const& other) = default;
    UiIcon& operator=(UiIcon const& other) = default;
    ~UiIcon() override = default;

    // Takes the image and its full-resolution size (0 by 0 without one) and places it. With
    // `onlyIfChanged` the same pointer changes nothing but the size is still taken.
    void setImage(RCShdPtr<WsManagedImage> const& image, bool onlyIfChanged = false);
    RCShdPtr<WsManagedImage> const& getImage() const { return _image; }
    // Drops the image and takes the file's from UiIconRegistry (a relative path is taken in the
    // icon directory). An unreadable file raises WsImageEx::ExUnreadable and leaves no image.
    void loadIcon(char const* file);
    void setOwner(UiIconProtocol* owner) { _owner = owner; }

    // Draws the image at (originX + x, originY + y); without an image nothing is drawn.
    void draw(int originX, int originY);

private:
    void takeSize();

    UiIconProtocol* _owner = nullptr; // not owned
    RCShdPtr<WsManagedImage> _image;
};

} // namespace Zr
