// TcTimeCurveUtils: greedy removal of the keys a curve can do without, checked against the
// curve as it was.
#include "tcTimeCurveUtils.h"

#include <algorithm>
#include <cmath>

namespace Zr {

namespace {

struct Checkpoint {
    double time;
    double value;
};

bool agrees(double a, double b, double tolerance) {
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b);
    return a == b || std::abs(a - b) <= tolerance;
}

// The index of the key nearest to `time` within `tolerance`, or -1.
int nearestKey(TmTimeCurve const& curve, double time, double tolerance) {
    auto const& keys = curve.getKeys();
    auto it = std::lower_bound(keys.begin(), keys.end(), time,
                               [](TmKeyframe const& k, double t) { return k.getTime() < t; });
    int best = -1;
    double bestDistance = tolerance;
    auto consider = [&](std::vector<TmKeyframe>::const_iterator k) {
        double const d = std::abs(k->getTime() - time);
        if (d <= bestDistance) {
            bestDistance = d;
            best = static_cast<int>(k - keys.begin());
        }
    };
    if (it != keys.end())
        consider(it);
    if (it != keys.begin())
        consider(std::prev(it));
    return best;
}

} // namespace

int TcTimeCurveUtils::simplify(TcTimeCurve& curve, std::vector<double> const& keyTimes,
                               double valueTolerance, double timeTolerance) {
    auto const& original = curve.getKeys();
    if (original.size() < 3)
        return 0;

    // The original curve's values at its keys and half way between them, in order of time.
    std::vector<Checkpoint> checkpoints;
    checkpoints.reserve(original.size() * 2);
    for (std::size_t i = 0; i < original.size(); ++i) {
        double const t = original[i].getTime();
        checkpoints.push_back({t, curve.evaluate(t)});
        if (i + 1 < original.size()) {
            double const mid = 0.5 * (t + original[i + 1].getTime());
            checkpoints.push_back({mid, curve.evaluate(mid)});
        }
    }

    std::vector<double> candidates(keyTimes);
    std::sort(candidates.begin(), candidates.end());

    int removed = 0;
    for (double const candidate : candidates) {
        int const c = nearestKey(curve, candidate, timeTolerance);
        int const n = curve.getNbKeys();
        if (c <= 0 || c >= n - 1)
            continue;
        double const from = curve.getKey(std::max(c - 2, 0)).getTime();
        double const to = curve.getKey(std::min(c + 2, n - 1)).getTime();
        TmKeyframe const key = curve.getKey(c);

        curve.removeKey(key.getTime());
        auto it = std::lower_bound(checkpoints.begin(), checkpoints.end(), from,
                                   [](Checkpoint const& p, double t) { return p.time < t; });
        bool keep = false;
        for (; it != checkpoints.end() && it->time <= to; ++it) {
            if (!agrees(curve.evaluate(it->time), it->value, valueTolerance)) {
                keep = true;
                break;
            }
        }
        if (keep)
            curve.setKey(key);
        else
            ++removed;
    }
    return removed;
}

} // namespace Zr
