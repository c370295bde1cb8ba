// Fuzz target: constraint strings. Whatever parses must evaluate on any parent size without
// fault, and its text form must read back to an equal constraint.
#include "fuzzSupport.h"

#include "uiConstraint.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

using namespace Zr;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::initialize();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    // Four bytes of parent size and sibling offsets, then the constraint string.
    if (size < 4)
        return 0;
    int const w = data[0] * 4 - 100;
    int const h = data[1] * 4 - 100;
    int const dx = data[2] - 128;
    int const dy = data[3] - 128;
    std::string const text(reinterpret_cast<char const*>(data) + 4, size - 4);

    UiConstraint c;
    try {
        std::istringstream is(text);
        is >> c;
    } catch (UiResourceEx const&) {
        return 0;
    }
    GeRectangle<int> const sibling(dx, dx + 30, dy, dy + 20);
    GeRectangle<int> const r = c.calcRect(w, h, sibling, sibling, sibling, sibling);
    if (r.x2 < r.x1 || r.y2 < r.y1)
        std::abort();
    c.calcRect(w, h);

    // Values that are not finite have no text form that reads back.
    for (int i = 0; i < 4; ++i) {
        if (!std::isfinite(c.getValue(i)))
            return 0;
    }
    std::ostringstream os;
    os << c;
    UiConstraint back;
    try {
        std::istringstream is(os.str());
        is >> back;
    } catch (UiResourceEx const& ex) {
        // A sibling name is one word; anything else must read back.
        std::fprintf(stderr, "'%s' does not read back: %s\n", os.str().c_str(),
                     ex.getReason().c_str());
        for (int i = 0; i < 4; ++i) {
            if (c.getSibling(i).str().find_first_of(" \t\n\v\f\r") != std::string::npos ||
                (c.target[i] >= UiConstraint::TargetSibling && c.getSibling(i).empty()))
                return 0;
        }
        std::abort();
    }
    if (!(back == c))
        std::abort();

    UiConstraint edited = c;
    edited.calcRect(sibling, w, h, sibling, sibling, sibling, sibling);
    return 0;
}
