// Fuzz target: font descriptions ("Family:Style:Size") given as text. A text either parses, and
// its canonical form parses to the same description and prints the same again, or raises
// WsFontEx::ExBadDescription.
#include "wsFontDescription.h"
#include "wsFontEx.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace Zr;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    WsFontDescription description;
    try {
        description = WsFontDescription::parse(text);
    } catch (WsFontEx::ExBadDescription const&) {
        return 0;
    }
    std::string const canonical = description.toString();
    WsFontDescription const back = WsFontDescription::parse(canonical);
    if (back.toString() != canonical || back.family != description.family ||
        back.style != description.style) {
        std::fprintf(stderr, "\"%s\" does not read back from \"%s\"\n", text.c_str(),
                     canonical.c_str());
        std::abort();
    }
    return 0;
}
