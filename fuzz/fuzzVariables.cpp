// Fuzz target: package variables given a command line and an environment. The input is split
// at NUL bytes: the first part is the value of the environment variables of the four
// variables below, the rest the command-line arguments. Every variable must then hold a value
// of its type whose text reads back to the same value, or its default.
#include "inVariable.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

using namespace Zr;

namespace {

InVariable<bool>& flag() {
    static InVariable<bool> v("fuzz::flag", false,
                              {InEnvAlias("ZR_FUZZ_FLAG", "a flag"), InArgAlias("flag", "a flag")});
    return v;
}
InVariable<int>& count() {
    static InVariable<int> v("fuzz::count", 3,
                             {InEnvAlias("ZR_FUZZ_COUNT", "a count"), InArgAlias("count", "")});
    return v;
}
InVariable<double>& delay() {
    static InVariable<double> v("fuzz::delay", 0.5,
                                {InEnvAlias("ZR_FUZZ_DELAY", "a delay"), InArgAlias("delay", "")});
    return v;
}
InVariable<std::string>& name() {
    static InVariable<std::string> v(
        "fuzz::name", "none", {InEnvAlias("ZR_FUZZ_NAME", "a name"), InArgAlias("name", "")});
    return v;
}

// Parsed as the program would, without setting it (a value set by the program would stay).
template <class T>
void checkReadsBack(InVariable<T>& variable) {
    std::string const text = variable.getValueText();
    T value{};
    if (!InValueText::parse(text, value) || InValueText::format(value) != text) {
        std::fprintf(stderr, "%s: \"%s\" does not read back\n", variable.getName().c_str(),
                     text.c_str());
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::vector<std::string> parts(1);
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == 0)
            parts.emplace_back();
        else
            parts.back() += static_cast<char>(data[i]);
    }
    for (char const* env : {"ZR_FUZZ_FLAG", "ZR_FUZZ_COUNT", "ZR_FUZZ_DELAY", "ZR_FUZZ_NAME"})
        ::setenv(env, parts[0].c_str(), 1);
    std::vector<std::string> arguments(parts.begin() + 1, parts.end());
    arguments.insert(arguments.begin(), "fuzz");
    flag(), count(), delay(), name(); // made before the command line is read
    InVariableBase::setCommandLine(arguments);
    checkReadsBack(flag());
    checkReadsBack(count());
    checkReadsBack(delay());
    checkReadsBack(name());
    return 0;
}
