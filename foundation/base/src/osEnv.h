// OsEnv: reading and setting environment variables, and the integer form that switches such as
// log flags and tuning values use.
#pragma once

#include <optional>
#include <string>

namespace Zr {

struct OsEnv {
    static bool isSet(std::string const& name);
    // The variable's text, or nothing when it is not set.
    static std::optional<std::string> get(std::string const& name);
    static void set(std::string const& name, std::string const& value);
    static void unset(std::string const& name);

    // Parses an integer written in decimal, or in hexadecimal with a 0x prefix, with an optional
    // sign and surrounding blanks. Anything else in the text gives nothing.
    static std::optional<long long> parseInteger(std::string const& text);
    // The variable read as an integer; nothing when unset or unparseable.
    static std::optional<long long> getInteger(std::string const& name);
};

} // namespace Zr
