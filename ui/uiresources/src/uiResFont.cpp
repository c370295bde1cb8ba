// UiResFont: the two forms of a font handle, checked against the font registry.
#include "uiResFont.h"

#include "uiResText.h"
#include "wsFontRegistry.h"
#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

UiResFont::UiResFont(LiString const& name, char const* text) : UiResource(name) {
    if (!text)
        return;
    std::istringstream is(text);
    read(is);
}

void UiResFont::setHandle(std::string const& handle) {
    LiString const key(handle);
    WsFontRegistry& registry = WsFontRegistry::getInstance();
    if (!registry.isRegisteredFont(key))
        throw UiResourceEx::UiInvalidFontEx(__FILE__, __LINE__, key);
    // The registry's canonical description; loading the face waits until a widget draws.
    _fontName = LiString(registry.getFontName(key));
    _fontHandle = key;
}

void UiResFont::read(XmlElement const& element) {
    std::string handle = element.getElementByTagName("FontHandle").getDataMB();
    if (handle.empty())
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    setHandle(handle);
}

void UiResFont::read(std::istream& is) {
    std::string handle;
    if (!UiResText::readToken(is, handle) || handle.empty())
        throw UiResourceEx::ExInvalidStream(__FILE__, __LINE__);
    setHandle(handle);
}

void UiResFont::write(XmlWriter& writer, bool) const {
    writer.writeTag("FontHandle", _fontHandle.str());
}

void UiResFont::write(std::ostream& os, bool) const {
    UiResText::writeToken(os, _fontHandle.str());
}

} // namespace Zr
