// The reason of an expected exception, so a test checks a thrown text in one line.
#pragma once

#include <string>

namespace Zr::TestSupport {

// Runs `f` and gives the reason of the `Ex` it throws, or "no exception" when it throws none.
// Any other exception passes through and fails the test.
template <class Ex, class F>
std::string reasonOf(F&& f) {
    try {
        f();
    } catch (Ex const& e) {
        return e.getReason();
    }
    return "no exception";
}

} // namespace Zr::TestSupport
