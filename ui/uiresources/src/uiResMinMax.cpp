// UiResMinMax: the two forms of a range.
#include "uiResMinMax.h"

#include "uiResNumberText.h"

#include "xmlElement.h"
#include "xmlWriter.h"

#include <istream>
#include <ostream>
#include <sstream>
#include <utility>

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
    // A missing attribute keeps its value; one that is there must be a number.
    for (auto [name, value] : {std::pair{"Min", &_min}, {"Max", &_max}, {"Step", &_step}}) {
        std::string const text = minMax.getAttribute(name);
        if (!text.empty())
            *value = parseWholeNumber<double>(text, name);
    }
}

void UiResMinMax::read(std::istream& is) {
    // Up to three numbers: min, max, step; words past them are reported.
    std::string word;
    for (auto [name, value] : {std::pair{"Min", &_min}, {"Max", &_max}, {"Step", &_step}}) {
        if (!(is >> word))
            return;
        *value = parseWholeNumber<double>(word, name);
    }
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
