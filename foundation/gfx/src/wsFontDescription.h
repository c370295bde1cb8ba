// WsFontDescription: the text that names a font, "Family:Style:Size" such as
// "DejaVu Sans:Bold:12", parsed strictly and written back in one canonical form.
#pragma once

#include <string>
#include <string_view>

namespace Zr {

struct WsFontDescription {
    enum Style { Regular, Bold, Italic, BoldItalic };

    std::string family;
    Style style = Regular;
    double pointSize = 12.0;

    // "Family:Style:Size" or "Family:Size" (Regular). The family is any non-empty text
    // without ':' that neither starts nor ends with a blank; the style is one of "Regular",
    // "Bold", "Italic", "BoldItalic"; the size is a decimal number of points (digits with at
    // most one '.') from 1 to 1000. Anything else raises WsFontEx::ExBadDescription naming
    // the text.
    static WsFontDescription parse(std::string_view text);
    // The canonical form: "DejaVu Sans:Regular:12", "DejaVu Sans:Bold:10.5". Sizes are kept
    // to a tenth of a point.
    std::string toString() const;

    static char const* getStyleName(Style style);
    bool isBold() const { return style == Bold || style == BoldItalic; }
    bool isItalic() const { return style == Italic || style == BoldItalic; }
};

} // namespace Zr
