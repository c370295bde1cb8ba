// TcTimeCurveUtils: removal of the keys a curve can do without, in one walk that checks each
// stretch of kept keys against the curve as it was.
#include "tcTimeCurveUtils.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Zr {

namespace {

using Keys = std::vector<TmKeyframe>;

bool agrees(double a, double b, double tolerance) {
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b);
    return a == b || std::abs(a - b) <= tolerance;
}

// Marks the keys that `times` name: for each time, the key nearest to it within `tolerance`
// (the earlier one of two at the same distance). The times are walked in order alongside the
// keys, so that naming every key costs a sort of the times, not a search per time.
std::vector<bool> namedKeys(Keys const& keys, std::vector<double> const& times, double tolerance) {
    std::vector<double> sorted;
    sorted.reserve(times.size());
    // A time that is not a number names no key (and could not be sorted).
    std::copy_if(times.begin(), times.end(), std::back_inserter(sorted),
                 [](double t) { return !std::isnan(t); });
    if (!std::is_sorted(sorted.begin(), sorted.end()))
        std::sort(sorted.begin(), sorted.end());

    std::vector<bool> named(keys.size(), false);
    std::size_t k = 0; // the first key not before the current time
    for (double const time : sorted) {
        while (k < keys.size() && keys[k].getTime() < time)
            ++k;
        std::size_t best = keys.size();
        double bestDistance = tolerance;
        auto consider = [&](std::size_t i) {
            double const d = std::abs(keys[i].getTime() - time);
            if (d <= bestDistance) {
                bestDistance = d;
                best = i;
            }
        };
        if (k < keys.size())
            consider(k);
        if (k > 0)
            consider(k - 1);
        if (best < keys.size())
            named[best] = true;
    }
    return named;
}

// One stretch of a curve between two keys, ready to evaluate: the same arithmetic as the
// curve's own evaluation, so that what holds here holds for the rebuilt curve.
struct Segment {
    TmKeyframe::Interpolation interpolation;
    double t0, h, p0, p1, m0, m1;

    double at(double time) const {
        double const s = (time - t0) / h;
        switch (interpolation) {
        case TmKeyframe::Interpolation::Constant:
            return p0;
        case TmKeyframe::Interpolation::Linear:
            return p0 + (p1 - p0) * s;
        case TmKeyframe::Interpolation::Smooth:
            break;
        }
        // Cubic Hermite between the two keys with the Catmull-Rom slopes.
        double const s2 = s * s;
        double const s3 = s2 * s;
        double const h00 = 2.0 * s3 - 3.0 * s2 + 1.0;
        double const h10 = s3 - 2.0 * s2 + s;
        double const h01 = -2.0 * s3 + 3.0 * s2;
        double const h11 = s3 - s2;
        return h00 * p0 + h10 * m0 + h01 * p1 + h11 * m1;
    }
};

// The original keys, the original curve's values at them and half way between them, and the
// segments that a choice of kept keys would give.
class Simplifier {
public:
    Simplifier(Keys const& keys, double tolerance) : _tolerance(tolerance) {
        std::size_t const n = keys.size();
        _times.reserve(n);
        _values.reserve(n);
        _interpolations.reserve(n);
        for (TmKeyframe const& key : keys) {
            _times.push_back(key.getTime());
            _values.push_back(key.getValue());
            _interpolations.push_back(key.getInterpolation());
        }
        // Segment by segment with the original neighbours: the same values as evaluating the
        // curve at those times, without searching for the segment. The ends read as their own
        // values, as before and after the curve.
        _keyValues.resize(n);
        _midTimes.resize(n - 1);
        _midValues.resize(n - 1);
        _keyValues[0] = _values[0];
        _keyValues[n - 1] = _values[n - 1];
        for (std::size_t i = 0; i + 1 < n; ++i) {
            Segment const original = segment(i == 0 ? 0 : i - 1, i, i + 1, std::min(i + 2, n - 1));
            if (i > 0)
                _keyValues[i] = original.at(_times[i]);
            _midTimes[i] = 0.5 * (_times[i] + _times[i + 1]);
            _midValues[i] = original.at(_midTimes[i]);
        }
    }

    // Whether the segment from key `a` to key `b`, with `before` and `after` as the kept keys
    // either side of it (a key is its own neighbour at an end of the curve), agrees with the
    // original curve at the original keys from `a` (the first key reads as its own value
    // anyway) up to `b`, and at the midpoints between them. The value at `a` is checked too:
    // with infinite values around, a kept key need not evaluate to its own value.
    bool segmentHolds(std::size_t before, std::size_t a, std::size_t b, std::size_t after) const {
        Segment const kept = segment(before, a, b, after);
        for (std::size_t i = a; i < b; ++i) {
            if (i > 0 && !agrees(kept.at(_times[i]), _keyValues[i], _tolerance))
                return false;
            if (!agrees(kept.at(_midTimes[i]), _midValues[i], _tolerance))
                return false;
        }
        return true;
    }

    bool isSmooth(std::size_t i) const {
        return _interpolations[i] == TmKeyframe::Interpolation::Smooth;
    }

private:
    // The chord slope from key `lo` to key `hi`, as a Catmull-Rom tangent takes it.
    double slope(std::size_t lo, std::size_t hi) const {
        double const dt = _times[hi] - _times[lo];
        if (!(dt > 0.0))
            return 0.0;
        return (_values[hi] - _values[lo]) / dt;
    }

    // The segment from key `a` to key `b` of a curve whose keys around it are `before`, `a`,
    // `b` and `after`.
    Segment segment(std::size_t before, std::size_t a, std::size_t b, std::size_t after) const {
        double const h = _times[b] - _times[a];
        Segment result{_interpolations[a], _times[a], h, _values[a], _values[b], 0.0, 0.0};
        if (isSmooth(a)) {
            result.m0 = slope(before, b) * h;
            result.m1 = slope(a, after) * h;
        }
        return result;
    }

    double _tolerance;
    std::vector<double> _times;
    std::vector<double> _values;
    std::vector<TmKeyframe::Interpolation> _interpolations;
    std::vector<double> _keyValues;
    std::vector<double> _midTimes;
    std::vector<double> _midValues;
};

} // namespace

int TcTimeCurveUtils::simplify(TcTimeCurve& curve, std::vector<double> const& keyTimes,
                               double valueTolerance, double timeTolerance) {
    Keys const& keys = curve.getKeys();
    std::size_t const n = keys.size();
    if (n < 3)
        return 0;

    // The first and last keys always stay.
    std::vector<bool> candidate = namedKeys(keys, keyTimes, timeTolerance);
    candidate.front() = false;
    candidate.back() = false;

    Simplifier const simplifier(keys, valueTolerance);
    std::size_t const last = n - 1;
    // The original key after `i`, or `i` itself at the end.
    auto next = [last](std::size_t i) { return std::min(i + 1, last); };

    std::vector<std::size_t> kept;
    kept.push_back(0);
    std::size_t before = 0; // the kept key before `a` (`a` itself at the start)
    std::size_t a = 0;
    std::size_t limit = 0; // the first key after `a` that must stay
    while (a < last) {
        if (limit <= a) {
            limit = a + 1;
            while (limit < last && candidate[limit])
                ++limit;
        }
        // Whether the next kept key can be `b`: the three segments whose shape that choice
        // decides (see the header). A span of one always holds: the previous step checked it.
        auto holds = [&](std::size_t b) {
            if (simplifier.isSmooth(b) && b < last &&
                !simplifier.segmentHolds(a, b, b + 1, next(b + 1)))
                return false;
            if (!simplifier.segmentHolds(before, a, b, next(b)))
                return false;
            return a == 0 || !simplifier.isSmooth(before) ||
                   simplifier.segmentHolds(kept.size() >= 3 ? kept[kept.size() - 3] : before,
                                           before, a, b);
        };

        std::size_t const maxSpan = limit - a;
        std::size_t good = 1;
        std::size_t bad = maxSpan + 1;
        // Galloping: spans of 2, 3, 5, 9, 17, ... until one fails or the limit is reached.
        for (std::size_t span = 2; good < maxSpan; span = 2 * span - 1) {
            std::size_t const tried = std::min(span, maxSpan);
            if (!holds(a + tried)) {
                bad = tried;
                break;
            }
            good = tried;
        }
        // Binary search between the longest span that held and the shortest that failed.
        while (bad - good > 1) {
            std::size_t const mid = good + (bad - good) / 2;
            if (holds(a + mid))
                good = mid;
            else
                bad = mid;
        }
        before = a;
        a += good;
        kept.push_back(a);
    }

    int const removed = static_cast<int>(n - kept.size());
    if (removed == 0)
        return 0;
    Keys rebuilt;
    rebuilt.reserve(kept.size());
    for (std::size_t const i : kept)
        rebuilt.push_back(keys[i]);
    curve.clear();
    for (TmKeyframe const& key : rebuilt)
        curve.setKey(key);
    return removed;
}

} // namespace Zr
