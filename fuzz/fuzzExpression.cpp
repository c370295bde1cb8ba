// Fuzz target: expression texts. Whatever compiles must evaluate without fault, with inputs that
// all read 1 and with inputs of which some fail as unknown names do; a text that doesn't compile
// must say why.
#include "piExpression.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>

using namespace Zr;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    PiExpression const e(text);
    if (e.getText() != text)
        std::abort();
    if (!e.isValid()) {
        if (e.getErrorMessage().empty() || !e.getVariables().empty())
            std::abort();
        try {
            e.evaluate(0.0, 25.0, [](int) { return 1.0; });
            std::abort();
        } catch (PiExpressionEx::ExEvaluation const&) {
        }
        return 0;
    }
    if (!e.getErrorMessage().empty())
        std::abort();

    // Each name once, never the built-in time and frame.
    auto const& names = e.getVariables();
    std::set<std::string> const unique(names.begin(), names.end());
    if (unique.size() != names.size() || unique.count("time") || unique.count("frame"))
        std::abort();

    int const count = static_cast<int>(names.size());
    auto ones = [count](int i) {
        if (i < 0 || i >= count)
            std::abort();
        return 1.0;
    };
    try {
        e.evaluate(1.5, 25.0, ones);
        e.evaluate(-3.0, 24.0, ones);
    } catch (PiExpressionEx::ExEvaluation const&) {
    }

    // Names with an odd length are unknown: the failure must reach the caller as it was.
    auto someUnknown = [&names](int i) {
        std::string const& name = names[static_cast<std::size_t>(i)];
        if (name.size() % 2 == 1)
            throw PiExpressionEx::ExEvaluation(__FILE__, __LINE__, "Unknown input: " + name);
        return 2.0;
    };
    try {
        e.evaluate(0.5, 30.0, someUnknown);
    } catch (PiExpressionEx::ExEvaluation const&) {
    }
    return 0;
}
