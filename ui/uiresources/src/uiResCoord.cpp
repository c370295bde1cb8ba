// UiResCoord: the two forms of a rectangle, as origin and size.
#include "uiResCoord.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

UiResCoord::UiResCoord(LiString const& name, GeRectangle<int> const& coord)
    : UiResource(name), _coord(coord) {}

UiResCoord::UiResCoord(LiString const& name, char const* text) : UiResource(name) {
    if (!text)
        return;
    std::istringstream is(text);
    read(is);
}

void UiResCoord::read(XmlElement const& element) {
    XmlElement coord = element.getElementByTagName("Coord");
    if (coord.isNull())
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    int x = 0, y = 0, w = 0, h = 0;
    coord.getAttribute("X", x);
    coord.getAttribute("Y", y);
    coord.getAttribute("W", w);
    coord.getAttribute("H", h);
    if (w == 0 || h == 0)
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    _coord = GeRectangle<int>::fromSize(x, y, w, h);
}

void UiResCoord::read(std::istream& is) {
    int x = 0, y = 0, w = 0, h = 0;
    if (!(is >> x >> y >> w >> h))
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__);
    _coord = GeRectangle<int>::fromSize(x, y, w, h);
}

void UiResCoord::write(XmlWriter& writer, bool) const {
    XmlWriter::ElementGuard guard(writer, "Coord");
    writer.writeAttrib("X", _coord.x1);
    writer.writeAttrib("Y", _coord.y1);
    writer.writeAttrib("W", _coord.width());
    writer.writeAttrib("H", _coord.height());
}

void UiResCoord::write(std::ostream& os, bool) const {
    os << _coord.x1 << ' ' << _coord.y1 << ' ' << _coord.width() << ' ' << _coord.height();
}

} // namespace Zr
