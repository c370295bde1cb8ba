// UiResCoord: the two forms of a rectangle, as origin and size.
#include "uiResCoord.h"

#include "uiResNumberText.h"
#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

namespace {
// One coordinate or size, whole and within MaxResourceCoordinate, so the rectangle's far
// corners never overflow.
int coordinate(std::string_view text, char const* which) {
    return parseNumberIn(text, -MaxResourceCoordinate, MaxResourceCoordinate,
                         std::string("coordinate ") + which);
}
} // namespace

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
    // A missing X or Y is 0; a missing W or H leaves the resource incomplete.
    int values[4] = {0, 0, 0, 0};
    char const* const names[4] = {"X", "Y", "W", "H"};
    for (int i = 0; i < 4; ++i) {
        std::string const text = coord.getAttribute(names[i]);
        if (!text.empty())
            values[i] = coordinate(text, names[i]);
    }
    auto const [x, y, w, h] = values;
    if (w == 0 || h == 0)
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    _coord = GeRectangle<int>::fromSize(x, y, w, h);
}

void UiResCoord::read(std::istream& is) {
    int values[4] = {0, 0, 0, 0};
    char const* const names[4] = {"X", "Y", "W", "H"};
    for (int i = 0; i < 4; ++i) {
        std::string word;
        if (!(is >> word))
            throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__);
        values[i] = coordinate(word, names[i]);
    }
    _coord = GeRectangle<int>::fromSize(values[0], values[1], values[2], values[3]);
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
