// UiResAlign: alignment keywords and the two forms.
#include "uiResAlign.h"

#include "uiResNumberText.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <cstring>
#include <istream>
#include <ostream>
#include <sstream>
#include <string>

namespace Zr {

namespace {
char const* const Keywords[] = {"Left", "Center", "Right", "Top", "Bottom"};
}

UiResAlign::UiResAlign(LiString const& name, int h, int v, int marginH, int marginV)
    : UiResource(name), _alignmentH(h), _alignmentV(v), _marginH(marginH), _marginV(marginV) {}

UiResAlign::UiResAlign(LiString const& name, char const* text)
    : UiResource(name), _alignmentH(Center), _alignmentV(Center), _marginH(0), _marginV(0) {
    if (!text)
        return;
    std::istringstream is(text);
    read(is);
}

char const* UiResAlign::toString(int alignment) {
    if (alignment < Left || alignment > Bottom)
        return Keywords[Center];
    return Keywords[alignment];
}

int UiResAlign::fromString(char const* text) {
    if (text) {
        for (int i = Left; i <= Bottom; ++i) {
            if (std::strcmp(text, Keywords[i]) == 0)
                return i;
        }
    }
    return Center;
}

void UiResAlign::read(XmlElement const& element) {
    XmlElement align = element.getElementByTagName("Align");
    if (align.isNull())
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    if (align.hasAttribute("H"))
        _alignmentH = fromString(align.getAttribute("H").c_str());
    if (align.hasAttribute("V"))
        _alignmentV = fromString(align.getAttribute("V").c_str());
    // Margins are pixels, within the range of any coordinate.
    for (auto [name, value] : {std::pair{"MH", &_marginH}, {"MV", &_marginV}}) {
        std::string const text = align.getAttribute(name);
        if (!text.empty())
            *value = parseNumberIn(text, -MaxResourceCoordinate, MaxResourceCoordinate,
                                   std::string("margin ") + name);
    }
}

void UiResAlign::read(std::istream& is) {
    std::string h;
    std::string v;
    if (is >> h)
        _alignmentH = fromString(h.c_str());
    if (is >> v)
        _alignmentV = fromString(v.c_str());
    std::string margin;
    if (is >> margin)
        _marginH =
            parseNumberIn(margin, -MaxResourceCoordinate, MaxResourceCoordinate, "margin MH");
    if (is >> margin)
        _marginV =
            parseNumberIn(margin, -MaxResourceCoordinate, MaxResourceCoordinate, "margin MV");
}

void UiResAlign::write(XmlWriter& writer, bool) const {
    XmlWriter::ElementGuard guard(writer, "Align");
    writer.writeAttrib("H", toString(_alignmentH));
    writer.writeAttrib("V", toString(_alignmentV));
    if (_marginH != 0)
        writer.writeAttrib("MH", _marginH);
    if (_marginV != 0)
        writer.writeAttrib("MV", _marginV);
}

void UiResAlign::write(std::ostream& os, bool) const {
    os << toString(_alignmentH) << ' ' << toString(_alignmentV) << ' ' << _marginH << ' '
       << _marginV;
}

} // namespace Zr
