// Fuzz target: the text form of stored values (PiValue), as tool files and saved nodes give it.
// The first byte picks the type (its value modulo 6: double, int32, int64, bool, string, array
// of doubles); the rest is the text. A text either sets the value, and the value's own text
// then reads back to the same text, or raises PiValueEx::ExBadText and leaves it unchanged.
#include "piValue.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace Zr;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0)
        return 0;
    auto const type = static_cast<PiValue::Type>(data[0] % 6);
    std::string const text(reinterpret_cast<char const*>(data) + 1, size - 1);
    PiValue value("fuzz", type);
    std::string const before = value.toString();
    try {
        value.setFromString(text);
    } catch (PiValueEx::ExBadText const&) {
        if (value.toString() != before) {
            std::fprintf(stderr, "bad text \"%s\" changed the value\n", text.c_str());
            std::abort();
        }
        return 0;
    }
    std::string const written = value.toString();
    PiValue back("back", type);
    back.setFromString(written);
    if (back.toString() != written) {
        std::fprintf(stderr, "\"%s\" wrote \"%s\", which reads back as \"%s\"\n", text.c_str(),
                     written.c_str(), back.toString().c_str());
        std::abort();
    }
    return 0;
}
