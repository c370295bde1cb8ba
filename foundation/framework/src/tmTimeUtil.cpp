// Seconds to frames and back.
#include "tmTimeUtil.h"

#include "exBase.h"

#include <cmath>

namespace Zr {

DtTimeIndex TmTimeUtil::getDtTimeFromSeconds(Rational const& rate, double seconds) {
    ZR_ASSERT(rate > Rational(0));
    double const frames = seconds * static_cast<double>(rate.getNumerator()) /
                          static_cast<double>(rate.getDenominator());
    return DtTimeIndex(std::llround(frames));
}

double TmTimeUtil::getSecondsFromDtTime(Rational const& rate, DtTimeIndex index) {
    ZR_ASSERT(rate > Rational(0));
    return static_cast<double>(index.getTicks()) * static_cast<double>(rate.getDenominator()) /
           static_cast<double>(rate.getNumerator());
}

} // namespace Zr
