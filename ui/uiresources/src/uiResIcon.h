// UiResIcon: a resource holding an image of the interface ("IconFile"), shared through
// UiIconRegistry so that a file is read once however many widgets show it.
#pragma once

#include "uiResource.h"

#include "osFilePath.h"
#include "wsManagedImage.h"

namespace Zr {

// XML: <IconFile>cascade.tif</IconFile>, a path as a rule relative to the icon directory.
// Text: one token. Written with no image, both forms hold "<no file>".
class UiResIcon : public UiResource {
public:
    explicit UiResIcon(LiString const& name = {}, char const* text = nullptr);
    UiResIcon(LiString const& name, RCShdPtr<WsManagedImage> const& image);
    UiResIcon(UiResIcon const&) = default;
    ~UiResIcon() override = default;

    char const* getType() const override { return "IconFile"; }
    // An empty path raises ExIncompleteResource; a file that can't be read raises
    // WsImageEx::ExUnreadable. Both leave the image as it was.
    void read(XmlElement const& element) override;
    // An empty token leaves the image as it was.
    void read(std::istream& is) override;
    // XML holds the file's base name, so only files of the icon directory read back; the text
    // form holds the whole path.
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    // Shares the image.
    ZR_UI_RESOURCE_CLONE(UiResIcon)

    RCShdPtr<WsManagedImage> const& getImage() const { return _image; }
    void setImage(RCShdPtr<WsManagedImage> const& image) { _image = image; }
    // Takes the image of the file from UiIconRegistry.
    void loadIcon(OsFilePath const& path);
    // The path the image came from; asserts that it came through UiIconRegistry.
    OsFilePath getIconPath() const;

private:
    RCShdPtr<WsManagedImage> _image;
};

} // namespace Zr
