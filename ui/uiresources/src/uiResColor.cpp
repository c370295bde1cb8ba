// UiResColor: a colour by name through UiColorRegistry, or by value.
#include "uiResColor.h"

#include "uiColorRegistry.h"
#include "uiResNumberText.h"
#include "uiResText.h"
#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

UiResColor::UiResColor(LiString const& name, CoRgbColorTyped<float> const& color)
    : UiResource(name), _color(color) {}

UiResColor::UiResColor(LiString const& name, char const* text) : UiResource(name) {
    if (!text)
        return;
    std::istringstream is(text);
    read(is);
}

void UiResColor::read(XmlElement const& element) {
    XmlElement color = element.getElementByTagName("Color");
    if (color.isNull())
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    std::string colorName = color.getDataMB();
    if (!colorName.empty()) {
        UiColorRegistry const& registry = UiColorRegistry::getInstance();
        if (!registry.isRegisteredColor(colorName))
            throw UiResourceEx::UiColorEx::ExUnknownType(__FILE__, __LINE__, colorName);
        // A copy: registering the name anew later does not reach this resource.
        _color = registry.getColor(colorName);
        return;
    }
    CoRgbColorTyped<float> c;
    color.getAttribute("R", c.r);
    color.getAttribute("G", c.g);
    color.getAttribute("B", c.b);
    if (color.getAttribute("Format") == "Byte") {
        c.r *= 0.003921569f;
        c.g *= 0.003921569f;
        c.b *= 0.003921569f;
    }
    _color = c;
}

void UiResColor::read(std::istream& is) {
    // Three numbers, or one registry name.
    std::string first;
    if (!UiResText::readToken(is, first))
        return;
    float red = 0.f;
    if (parseNumber(first, red)) {
        _color.r = red;
        if (readNumber(is, _color.g))
            readNumber(is, _color.b);
        return;
    }
    UiColorRegistry const& registry = UiColorRegistry::getInstance();
    if (!registry.isRegisteredColor(first))
        throw UiResourceEx::UiColorEx::ExUnknownType(__FILE__, __LINE__, first);
    _color = registry.getColor(first);
}

void UiResColor::write(XmlWriter& writer, bool) const {
    XmlWriter::ElementGuard guard(writer, "Color");
    writer.writeAttrib("R", _color.r);
    writer.writeAttrib("G", _color.g);
    writer.writeAttrib("B", _color.b);
}

void UiResColor::write(std::ostream& os, bool) const {
    writeShortestNumber(os, _color.r);
    os << ' ';
    writeShortestNumber(os, _color.g);
    os << ' ';
    writeShortestNumber(os, _color.b);
}

} // namespace Zr
