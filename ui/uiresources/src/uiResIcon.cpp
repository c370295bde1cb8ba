// UiResIcon: the two forms of an icon resource, through UiIconRegistry.
#include "uiResIcon.h"

#include "uiIconRegistry.h"
#include "uiResText.h"
#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

namespace {
char const* const NoFile = "<no file>";
} // namespace

UiResIcon::UiResIcon(LiString const& name, char const* text) : UiResource(name) {
    if (!text)
        return;
    std::istringstream is(text);
    read(is);
}

UiResIcon::UiResIcon(LiString const& name, RCShdPtr<WsManagedImage> const& image)
    : UiResource(name), _image(image) {}

void UiResIcon::loadIcon(OsFilePath const& path) {
    _image = UiIconRegistry::getInstance().loadImage(path);
}

OsFilePath UiResIcon::getIconPath() const {
    return UiIconRegistry::getInstance().getImagePath(_image);
}

void UiResIcon::read(XmlElement const& element) {
    std::string path = element.getElementByTagName("IconFile").getDataMB();
    if (path.empty())
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    loadIcon(OsFilePath(path));
}

void UiResIcon::read(std::istream& is) {
    std::string path;
    if (!UiResText::readToken(is, path) || path.empty())
        return;
    loadIcon(OsFilePath(path));
}

void UiResIcon::write(XmlWriter& writer, bool) const {
    writer.writeTag("IconFile", _image ? getIconPath().getBaseName() : std::string(NoFile));
}

void UiResIcon::write(std::ostream& os, bool) const {
    UiResText::writeToken(os, _image ? getIconPath().toString() : std::string(NoFile));
}

} // namespace Zr
