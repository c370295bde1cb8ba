// TmKeyframe: one key of an animation curve, a value at a time (in seconds) with the
// interpolation that runs from it to the next key.
#pragma once

#include "rcBase.h"

namespace Zr {

class TmKeyframe : public RCObject {
public:
    enum class Interpolation { Constant, Linear, Smooth };

    TmKeyframe() = default;
    TmKeyframe(double time, double value, Interpolation interpolation = Interpolation::Smooth)
        : _time(time), _value(value), _interpolation(interpolation) {}

    double getTime() const { return _time; }
    double getValue() const { return _value; }
    Interpolation getInterpolation() const { return _interpolation; }
    void setTime(double time) { _time = time; }
    void setValue(double value) { _value = value; }
    void setInterpolation(Interpolation i) { _interpolation = i; }

    bool operator==(TmKeyframe const& o) const {
        return _time == o._time && _value == o._value && _interpolation == o._interpolation;
    }

private:
    double _time = 0.0;
    double _value = 0.0;
    Interpolation _interpolation = Interpolation::Smooth;
};

} // namespace Zr
