// TmTimeUtil: conversions between seconds and frame indices at a frame rate.
#pragma once

#include "dtTime.h"
#include "rational.h"

namespace Zr {

class TmTimeUtil {
public:
    // The index of the frame nearest to `seconds` at `rate` frames per second (halves round
    // away from zero). A rate that is not positive is an assertion failure.
    static DtTimeIndex getDtTimeFromSeconds(Rational const& rate, double seconds);
    // The time in seconds at which frame `index` starts.
    static double getSecondsFromDtTime(Rational const& rate, DtTimeIndex index);
};

} // namespace Zr
