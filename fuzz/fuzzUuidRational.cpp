// Fuzz target: the text forms of Uuids and frame rates (rationals). The first byte picks the
// reader (even: Uuid, odd: rational); the rest is the text. What parses must print a text that
// parses to the same value; what doesn't must raise the reader's own exception.
#include "rational.h"
#include "uuid.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace Zr;

namespace {
[[noreturn]] void fail(char const* what, std::string const& text) {
    std::fprintf(stderr, "%s: \"%s\"\n", what, text.c_str());
    std::abort();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0)
        return 0;
    std::string const text(reinterpret_cast<char const*>(data) + 1, size - 1);
    if (data[0] % 2 == 0) {
        try {
            Uuid const uuid = Uuid::fromString(text);
            if (Uuid::fromString(uuid.toString()) != uuid)
                fail("a Uuid does not read back", text);
        } catch (UuidEx::ExBadUuid const&) {
        }
        return 0;
    }
    try {
        Rational const rate = RationalUtil::fromFractionString(text);
        if (!(RationalUtil::fromFractionString(rate.toString()) == rate))
            fail("a rational does not read back", text);
    } catch (RationalEx::ExInvalidRational const&) {
    }
    return 0;
}
