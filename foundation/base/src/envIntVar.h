// EnvIntVar: an integer tuning value read once from an environment variable.
#pragma once

#include <mutex>
#include <string>

namespace Zr {

class EnvIntVar {
public:
    // `file` is the source file that declares the variable (for diagnostics).
    EnvIntVar(char const* file, char const* name, int defaultValue);
    EnvIntVar(EnvIntVar const&) = delete;
    EnvIntVar& operator=(EnvIntVar const&) = delete;

    // The variable's value (decimal or 0x hexadecimal), read on the first call from any
    // thread. Unset gives the default; an unparseable or out-of-range value is reported once
    // and gives the default.
    int getValue() const;

    std::string const& getName() const { return _name; }
    std::string const& getFile() const { return _file; }
    int getDefault() const { return _default; }

private:
    std::string _file;
    std::string _name;
    int _default;
    mutable std::once_flag _once;
    mutable int _value;
};

} // namespace Zr
