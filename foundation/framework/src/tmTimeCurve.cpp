// TmTimeCurve: keys kept sorted by time, found by binary search; evaluation holds, blends or runs
// a Catmull-Rom spline between two keys.
#include "tmTimeCurve.h"

#include "exBase.h"

#include <algorithm>
#include <cmath>

namespace Zr {

namespace {

// The first key whose time is not below `time - TIME_TOLERANCE`.
std::vector<TmKeyframe>::const_iterator lowerKey(std::vector<TmKeyframe> const& keys, double time) {
    double const from = time - TmTimeCurve::TIME_TOLERANCE;
    return std::lower_bound(keys.begin(), keys.end(), from,
                            [](TmKeyframe const& k, double t) { return k.getTime() < t; });
}

bool isAt(TmKeyframe const& key, double time) {
    return std::abs(key.getTime() - time) <= TmTimeCurve::TIME_TOLERANCE;
}

// The slope of a Catmull-Rom spline at key i: the chord through its neighbours, or the chord
// to the one neighbour at either end of the curve.
double tangentAt(std::vector<TmKeyframe> const& keys, std::size_t i) {
    std::size_t const lo = i == 0 ? 0 : i - 1;
    std::size_t const hi = i + 1 == keys.size() ? i : i + 1;
    double const dt = keys[hi].getTime() - keys[lo].getTime();
    if (!(dt > 0.0))
        return 0.0;
    return (keys[hi].getValue() - keys[lo].getValue()) / dt;
}

} // namespace

TmTimeCurve::TmTimeCurve(TmTimeCurve const& o) : RCObject(o), _keys(o._keys) {}

TmTimeCurve& TmTimeCurve::operator=(TmTimeCurve const& o) {
    RCObject::operator=(o);
    _keys = o._keys;
    return *this;
}

TmTimeCurve::~TmTimeCurve() = default;

RCShdPtr<TmTimeCurve> TmTimeCurve::clone() const {
    return RCShdPtr<TmTimeCurve>(new TmTimeCurve(*this));
}

void TmTimeCurve::setKey(TmKeyframe const& key) {
    // A key at a time that is not a number would have no place in the order.
    ZR_ASSERT(std::isfinite(key.getTime()));
    auto it = lowerKey(_keys, key.getTime());
    if (it != _keys.end() && isAt(*it, key.getTime())) {
        // Same key: keep its time so that the order of the keys cannot change.
        auto& k = _keys[static_cast<std::size_t>(it - _keys.begin())];
        k.setValue(key.getValue());
        k.setInterpolation(key.getInterpolation());
        return;
    }
    _keys.insert(it, key);
}

void TmTimeCurve::setKey(double time, double value) {
    ZR_ASSERT(std::isfinite(time));
    auto it = lowerKey(_keys, time);
    if (it != _keys.end() && isAt(*it, time)) {
        _keys[static_cast<std::size_t>(it - _keys.begin())].setValue(value);
        return;
    }
    _keys.insert(it, TmKeyframe(time, value));
}

bool TmTimeCurve::removeKey(double time) {
    auto it = lowerKey(_keys, time);
    if (it == _keys.end() || !isAt(*it, time))
        return false;
    _keys.erase(it);
    return true;
}

void TmTimeCurve::clear() {
    _keys.clear();
}

TmKeyframe const* TmTimeCurve::findKey(double time) const {
    auto it = lowerKey(_keys, time);
    if (it == _keys.end() || !isAt(*it, time))
        return nullptr;
    return &*it;
}

std::optional<double> TmTimeCurve::getFirstKeyTime() const {
    if (_keys.empty())
        return std::nullopt;
    return _keys.front().getTime();
}

std::optional<double> TmTimeCurve::getLastKeyTime() const {
    if (_keys.empty())
        return std::nullopt;
    return _keys.back().getTime();
}

std::optional<double> TmTimeCurve::getNextKeyTime(double time) const {
    // A key within the tolerance of `time` is the key at `time`, not the next one.
    double const after = time + TIME_TOLERANCE;
    auto it = std::upper_bound(_keys.begin(), _keys.end(), after,
                               [](double t, TmKeyframe const& k) { return t < k.getTime(); });
    if (it == _keys.end())
        return std::nullopt;
    return it->getTime();
}

std::optional<double> TmTimeCurve::getPreviousKeyTime(double time) const {
    auto it = lowerKey(_keys, time);
    if (it == _keys.begin())
        return std::nullopt;
    return std::prev(it)->getTime();
}

double TmTimeCurve::evaluate(double time) const {
    if (_keys.empty())
        return 0.0;
    // Not-a-number times read as before the first key.
    if (!(time > _keys.front().getTime()))
        return _keys.front().getValue();
    if (time >= _keys.back().getTime())
        return _keys.back().getValue();

    // The segment [i, i + 1] that holds `time`: keys[i].time < time < keys.back().time.
    auto it = std::upper_bound(_keys.begin(), _keys.end(), time,
                               [](double t, TmKeyframe const& k) { return t < k.getTime(); });
    std::size_t const i = static_cast<std::size_t>(it - _keys.begin()) - 1;
    TmKeyframe const& k0 = _keys[i];
    TmKeyframe const& k1 = _keys[i + 1];
    double const h = k1.getTime() - k0.getTime();
    double const s = (time - k0.getTime()) / h;
    double const p0 = k0.getValue();
    double const p1 = k1.getValue();

    switch (k0.getInterpolation()) {
    case TmKeyframe::Interpolation::Constant:
        return p0;
    case TmKeyframe::Interpolation::Linear:
        return p0 + (p1 - p0) * s;
    case TmKeyframe::Interpolation::Smooth:
        break;
    }
    // Cubic Hermite between the two keys with the Catmull-Rom slopes.
    double const m0 = tangentAt(_keys, i) * h;
    double const m1 = tangentAt(_keys, i + 1) * h;
    double const s2 = s * s;
    double const s3 = s2 * s;
    double const h00 = 2.0 * s3 - 3.0 * s2 + 1.0;
    double const h10 = s3 - 2.0 * s2 + s;
    double const h01 = -2.0 * s3 + 3.0 * s2;
    double const h11 = s3 - s2;
    return h00 * p0 + h10 * m0 + h01 * p1 + h11 * m1;
}

} // namespace Zr
