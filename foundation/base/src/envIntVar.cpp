// EnvIntVar: lazy, thread-safe read of an integer environment variable.
#include "envIntVar.h"

#include "exBase.h"
#include "osEnv.h"

#include <limits>

namespace Zr {

EnvIntVar::EnvIntVar(char const* file, char const* name, int defaultValue)
    : _file(file ? file : ""), _name(name ? name : ""), _default(defaultValue),
      _value(defaultValue) {}

int EnvIntVar::getValue() const {
    std::call_once(_once, [this] {
        auto text = OsEnv::get(_name);
        if (!text)
            return;
        auto parsed = OsEnv::parseInteger(*text);
        if (parsed && *parsed >= std::numeric_limits<int>::min() &&
            *parsed <= std::numeric_limits<int>::max()) {
            _value = static_cast<int>(*parsed);
            return;
        }
        ExStdout::printAtomically("Invalid value \"" + *text + "\" for " + _name +
                                  ": expected an integer; using " + std::to_string(_default));
    });
    return _value;
}

} // namespace Zr
