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
    // no key are ignored, and the first and last keys of the curve always stay. The candidates
    // are tried one by one in order of time (greedily): a key goes if, without it, the curve
    // still agrees with the curve as it was before the call within `valueTolerance` at every
    // original key time and every midpoint between two original keys in the stretch the removal
    // changes (two keys either side, since a smooth key's slope depends on its neighbours).
    // Comparing with the original curve, not the curve of the previous step, keeps errors from
    // adding up over many removals. Keys that are not candidates are never changed.
    //
    // A straight line sampled at many times ends with its two end keys; a sine keeps enough
    // keys to stay within the tolerance. The cost is one check per original key and midpoint
    // in the changed stretch, which grows with the removed run: quadratic in the number of
    // keys for a curve that collapses entirely, linear for one that keeps its detail.
    static int simplify(TcTimeCurve& curve, std::vector<double> const& keyTimes,
                        double valueTolerance, double timeTolerance);
};

} // namespace Zr
