// UiResColor: a colour by name through UiColorRegistry, or by value.
#include "uiResColor.h"

#include "uiColorRegistry.h"
#include "uiResNumberText.h"
#include "uiResText.h"
#include "xmlElement.h"
#include "xmlWriter.h"

#include <algorithm>
#include <cctype>
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
    // Components are 0 to 1, or 0 to 255 with Format="Byte"; a missing one is 0.
    bool const bytes = color.getAttribute("Format") == "Byte";
    float const max = bytes ? 255.f : 1.f;
    CoRgbColorTyped<float> c;
    float* const components[3] = {&c.r, &c.g, &c.b};
    char const* const names[3] = {"R", "G", "B"};
    for (int i = 0; i < 3; ++i) {
        std::string const text = color.getAttribute(names[i]);
        if (!text.empty())
            *components[i] = parseNumberIn(text, 0.f, max, std::string("component ") + names[i]);
        // 255 * 0.003921569 rounds just above 1: kept at 1, so the colour reads back.
        if (bytes)
            *components[i] = std::min(*components[i] * 0.003921569f, 1.f);
    }
    _color = c;
}

void UiResColor::read(std::istream& is) {
    // Three numbers, or one registry name.
    std::string first;
    if (!UiResText::readToken(is, first))
        return;
    float red = 0.f;
    if (parseNumber(first, red) || std::isdigit(static_cast<unsigned char>(first[0])) ||
        first[0] == '-' || first[0] == '+' || first[0] == '.') {
        // Three components from 0 to 1.
        CoRgbColorTyped<float> c;
        c.r = parseNumberIn(first, 0.f, 1.f, "component R");
        std::string word;
        if (!(is >> word))
            throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__);
        c.g = parseNumberIn(word, 0.f, 1.f, "component G");
        if (!(is >> word))
            throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__);
        c.b = parseNumberIn(word, 0.f, 1.f, "component B");
        _color = c;
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
