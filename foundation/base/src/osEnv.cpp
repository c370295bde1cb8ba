// Environment variables over the C library; the integer parser shared by log flags and EnvIntVar.
#include "osEnv.h"

#include <charconv>
#include <cstdlib>
#include <limits>

namespace Zr {

bool OsEnv::isSet(std::string const& name) {
    return std::getenv(name.c_str()) != nullptr;
}

std::optional<std::string> OsEnv::get(std::string const& name) {
    char const* value = std::getenv(name.c_str());
    if (!value)
        return std::nullopt;
    return std::string(value);
}

void OsEnv::set(std::string const& name, std::string const& value) {
    ::setenv(name.c_str(), value.c_str(), 1);
}

void OsEnv::unset(std::string const& name) {
    ::unsetenv(name.c_str());
}

std::optional<long long> OsEnv::parseInteger(std::string const& text) {
    auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    char const* first = text.data();
    char const* last = text.data() + text.size();
    while (first != last && isBlank(*first))
        ++first;
    while (last != first && isBlank(last[-1]))
        --last;
    bool negative = false;
    if (first != last && (*first == '-' || *first == '+')) {
        negative = *first == '-';
        ++first;
    }
    int base = 10;
    if (last - first > 2 && first[0] == '0' && (first[1] == 'x' || first[1] == 'X')) {
        base = 16;
        first += 2;
    }
    if (first == last)
        return std::nullopt;
    // Parsed as unsigned so that 0xFFFFFFFF style masks fit; the sign is applied afterwards.
    unsigned long long magnitude = 0;
    auto [end, ec] = std::from_chars(first, last, magnitude, base);
    if (ec != std::errc() || end != last)
        return std::nullopt;
    if (magnitude > static_cast<unsigned long long>(std::numeric_limits<long long>::max()) +
                        (negative ? 1u : 0u))
        return std::nullopt;
    return negative ? static_cast<long long>(0ull - magnitude) : static_cast<long long>(magnitude);
}

std::optional<long long> OsEnv::getInteger(std::string const& name) {
    auto text = get(name);
    if (!text)
        return std::nullopt;
    return parseInteger(*text);
}

} // namespace Zr
