// UiResMinMax: the two forms of a range.
#include "uiResMinMax.h"

#include "uiResNumberText.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>

namespace Zr {

UiResMinMax::UiResMinMax(LiString const& name, double min, double max, double step)
    : UiResource(name), _min(min), _max(max), _step(step) {}

UiResMinMax::UiResMinMax(LiString const& name, char const* text)
    : UiResource(name), _min(0.0), _max(0.0), _step(0.0) {
    if (!text)
        return;
    std::istringstream is(text);
    read(is);
}

void UiResMinMax::read(XmlElement const& element) {
    XmlElement minMax = element.getElementByTagName("MinMax");
    if (minMax.isNull())
        throw UiResourceEx::ExIncompleteResource(__FILE__, __LINE__, element);
    minMax.getAttribute("Min", _min);
    minMax.getAttribute("Max", _max);
    minMax.getAttribute("Step", _step);
}

void UiResMinMax::read(std::istream& is) {
    if (readNumber(is, _min) && readNumber(is, _max))
        readNumber(is, _step);
}

void UiResMinMax::write(XmlWriter& writer, bool) const {
    XmlWriter::ElementGuard guard(writer, "MinMax");
    writer.writeAttrib("Min", _min);
    writer.writeAttrib("Max", _max);
    writer.writeAttrib("Step", _step);
}

void UiResMinMax::write(std::ostream& os, bool) const {
    writeShortestNumber(os, _min);
    os << ' ';
    writeShortestNumber(os, _max);
    os << ' ';
    writeShortestNumber(os, _step);
}

} // namespace Zr
