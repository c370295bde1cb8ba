// The application's current time.
#include "tmTimeClient.h"

namespace Zr {

TmTimeClient::TmTimeClient(double time, Rational rate) : _time(time), _rate(rate) {
    ZR_ASSERT(rate > Rational(0));
}

TmTimeClient::~TmTimeClient() = default;

void TmTimeClient::setTime(double seconds) {
    if (seconds == _time)
        return;
    _time = seconds;
    _timeDispatcher.call();
}

void TmTimeClient::setRate(Rational const& rate) {
    ZR_ASSERT(rate > Rational(0));
    _rate = rate;
}

} // namespace Zr
