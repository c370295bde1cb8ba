// TcTimeCurve: the editable animation curve that nodes create; keys added to it take the curve's
// default interpolation.
#pragma once

#include "tmTimeCurve.h"

namespace Zr {

class TcTimeCurve : public TmTimeCurve {
public:
    using Interpolation = TmKeyframe::Interpolation;

    TcTimeCurve() = default;
    explicit TcTimeCurve(Interpolation defaultInterpolation)
        : _defaultInterpolation(defaultInterpolation) {}
    TcTimeCurve(TcTimeCurve const& o) = default;
    TcTimeCurve& operator=(TcTimeCurve const& o) = default;
    ~TcTimeCurve() override;

    // A new TcTimeCurve with the same keys and default interpolation.
    RCShdPtr<TmTimeCurve> clone() const override;

    // Sets the key at `time` (replacing the key there, if any) with the default interpolation;
    // returns its index in getKeys().
    int addKey(double time, double value);
    // Gives every key the interpolation `i`.
    void setInterpolation(Interpolation i);

    Interpolation getDefaultInterpolation() const { return _defaultInterpolation; }
    void setDefaultInterpolation(Interpolation i) { _defaultInterpolation = i; }

private:
    Interpolation _defaultInterpolation = Interpolation::Smooth;
};

} // namespace Zr
