// TcTimeCurveUtils: operations on whole curves, such as thinning out the keys of a sampled
// expression.
#pragma once

#include "tcTimeCurve.h"

#include <vector>

namespace Zr {

struct TcTimeCurveUtils {
    // Removes the keys at `keyTimes` that the curve does not need, and returns how many went.
    //
    // A time of `keyTimes` names the curve key nearest to it within `timeTolerance`; times with
    // no key are ignored, and the first and last keys of the curve always stay. Keys that are
    // not candidates stay and are never changed; the keys that stay keep their values and
    // interpolations. The result agrees with the curve as it was before the call within
    // `valueTolerance` at every original key time and every midpoint between two original keys
    // (values that are not numbers agree only with values that are not numbers). Comparing with
    // the original curve, not with the curve of a previous step, keeps errors from adding up.
    //
    // The keys to keep are chosen in one walk in order of time. From the last kept key `a`, the
    // next kept key `b` is found by galloping (spans of 2, 3, 5, 9, 17, ... keys, up to the next
    // key that must stay) and then by binary search between the longest span that held and the
    // shortest that failed. A span is tried by evaluating, at the checkpoints it covers, the
    // curve the kept keys would give, segment by segment, with the same arithmetic as
    // TmTimeCurve::evaluate. A smooth segment depends on the kept keys either side of it, so a
    // try checks three segments against the original values:
    //  - the segment ending at `a`, whose end slope now runs to `b`;
    //  - the new segment `a`-`b`, with the original key after `b` as its right neighbour;
    //  - the original segment after `b`, whose start slope now comes from `a`.
    // Every segment of the result is thereby checked with its final neighbours (the first one
    // when the key after it is chosen), and the third check makes a span of one key always
    // acceptable from the new key, so the walk never has to back off. The curve is rebuilt once
    // from the kept keys at the end.
    //
    // Cost: O(k log n) to find the candidates, O(n log n) for the checkpoint values, and
    // O(log s) tries per step, each costing the checkpoints of the two spans it covers, so
    // O(n log n) in all for n keys and k times: a line of any length collapses to its two end
    // keys in O(n log n), and a curve that keeps its detail costs about O(n) plus the lookups.
    // Memory is O(n).
    static int simplify(TcTimeCurve& curve, std::vector<double> const& keyTimes,
                        double valueTolerance, double timeTolerance);
};

} // namespace Zr
