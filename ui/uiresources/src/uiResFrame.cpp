// UiResFrame: the two forms of a frame name.
#include "uiResFrame.h"

#include "uiResText.h"
#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>
#include <string_view>

namespace Zr {

UiResFrame::UiResFrame(LiString const& name, char const* text) : UiResource(name) {
    if (!text)
        return;
    // Widgets make these by the thousand with plain names ("PushOut"): a single word needs no
    // token reader.
    std::string_view const plain(text);
    if (!plain.empty() && plain.find_first_of(" \t\n\r\"\\") == std::string_view::npos) {
        _frameType = LiString(plain);
        return;
    }
    std::istringstream is(text);
    read(is);
}

void UiResFrame::read(XmlElement const& element) {
    std::string type = element.getElementByTagName("Frame").getDataMB();
    if (type.empty())
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    _frameType = type;
}

void UiResFrame::read(std::istream& is) {
    std::string token;
    if (UiResText::readToken(is, token))
        _frameType = token;
}

void UiResFrame::write(XmlWriter& writer, bool) const {
    writer.writeTag("Frame", _frameType.str());
}

void UiResFrame::write(std::ostream& os, bool) const {
    UiResText::writeToken(os, _frameType.str());
}

} // namespace Zr
