// WsFontDescription: parsing and writing font descriptions.
#include "wsFontDescription.h"

#include "wsFontEx.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <vector>

namespace Zr {

namespace {
constexpr double MinPointSize = 1.0;
constexpr double MaxPointSize = 1000.0;

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

double parseSize(std::string_view text, std::string_view size) {
    auto bad = [&](std::string const& why) -> double {
        throw WsFontEx::ExBadDescription(__FILE__, __LINE__, std::string(text), why);
    };
    if (size.empty())
        return bad("missing point size");
    int dots = 0;
    for (char c : size) {
        if (c == '.')
            ++dots;
        else if (c < '0' || c > '9')
            return bad("point size \"" + std::string(size) + "\" is not a number");
    }
    if (dots > 1 || size.front() == '.' || size.back() == '.')
        return bad("point size \"" + std::string(size) + "\" is not a number");
    double value = 0.0;
    auto const [end, ec] = std::from_chars(size.data(), size.data() + size.size(), value);
    if (ec != std::errc() || end != size.data() + size.size())
        return bad("point size \"" + std::string(size) + "\" is not a number");
    if (value < MinPointSize || value > MaxPointSize)
        return bad("point size " + std::string(size) + " is outside 1 to 1000");
    return value;
}
} // namespace

WsFontDescription WsFontDescription::parse(std::string_view text) {
    auto bad = [&](std::string const& why) {
        throw WsFontEx::ExBadDescription(__FILE__, __LINE__, std::string(text), why);
    };
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    for (;;) {
        std::size_t const colon = text.find(':', start);
        fields.push_back(
            text.substr(start, colon == std::string_view::npos ? colon : colon - start));
        if (colon == std::string_view::npos)
            break;
        start = colon + 1;
    }
    if (fields.size() < 2 || fields.size() > 3)
        bad("expected \"Family:Style:Size\" or \"Family:Size\"");
    WsFontDescription d;
    std::string_view const family = fields.front();
    if (family.empty())
        bad("missing family");
    if (isBlank(family.front()) || isBlank(family.back()))
        bad("blank around the family");
    d.family = family;
    if (fields.size() == 3) {
        std::string_view const style = fields[1];
        if (style == "Regular")
            d.style = Regular;
        else if (style == "Bold")
            d.style = Bold;
        else if (style == "Italic")
            d.style = Italic;
        else if (style == "BoldItalic")
            d.style = BoldItalic;
        else
            bad("unknown style \"" + std::string(style) +
                "\" (Regular, Bold, Italic or BoldItalic)");
    }
    d.pointSize = std::round(parseSize(text, fields.back()) * 10.0) / 10.0;
    return d;
}

std::string WsFontDescription::toString() const {
    double const tenths = std::round(pointSize * 10.0);
    char size[32];
    if (std::fmod(tenths, 10.0) == 0.0)
        std::snprintf(size, sizeof size, "%.0f", tenths / 10.0);
    else
        std::snprintf(size, sizeof size, "%.1f", tenths / 10.0);
    return family + ":" + getStyleName(style) + ":" + size;
}

char const* WsFontDescription::getStyleName(Style style) {
    switch (style) {
    case Bold:
        return "Bold";
    case Italic:
        return "Italic";
    case BoldItalic:
        return "BoldItalic";
    case Regular:
        break;
    }
    return "Regular";
}

} // namespace Zr
