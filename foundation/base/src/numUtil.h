// The numeric helpers that ranges, value editors and scroll bars share: whether a number really
// changed, and a divisor kept off zero.
#pragma once

namespace Zr {

// True when `a` and `b` differ by no more than one unit of double precision scaled to the larger
// magnitude of the two; a change of value or limit counts only when this is false. Infinities
// compare with no tolerance at all.
bool almostEqual(double a, double b);

// `x` pushed away from zero to the smallest normal double of its sign, so that dividing by it
// stays finite.
double guard(double x);

} // namespace Zr
