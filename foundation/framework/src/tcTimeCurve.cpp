// TcTimeCurve: key insertion with the default interpolation and curve-wide interpolation changes.
#include "tcTimeCurve.h"

#include <algorithm>

namespace Zr {

TcTimeCurve::~TcTimeCurve() = default;

RCShdPtr<TmTimeCurve> TcTimeCurve::clone() const {
    return RCShdPtr<TmTimeCurve>(new TcTimeCurve(*this));
}

int TcTimeCurve::addKey(double time, double value) {
    setKey(TmKeyframe(time, value, _defaultInterpolation));
    auto const& keys = getKeys();
    auto it = std::lower_bound(keys.begin(), keys.end(), time - TIME_TOLERANCE,
                               [](TmKeyframe const& k, double t) { return k.getTime() < t; });
    return static_cast<int>(it - keys.begin());
}

void TcTimeCurve::setInterpolation(Interpolation i) {
    // Rewriting a key at its own time keeps the order and the count of the keys.
    for (int k = 0; k < getNbKeys(); ++k) {
        TmKeyframe key = getKey(k);
        key.setInterpolation(i);
        setKey(key);
    }
}

} // namespace Zr
