// The change test and the divisor guard shared by the range widgets.
#include "numUtil.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Zr {

bool almostEqual(double a, double b) {
    double scale = std::max(std::fabs(a), std::fabs(b));
    // An infinite scale would make every finite number "equal" to infinity.
    if (std::isinf(scale))
        scale = 0.0;
    double const eps = scale * std::numeric_limits<double>::epsilon();
    return a > b ? b + eps >= a : a + eps >= b;
}

double guard(double x) {
    double const tiny = std::numeric_limits<double>::min();
    return x < 0.0 ? std::min(x, -tiny) : std::max(x, tiny);
}

} // namespace Zr
