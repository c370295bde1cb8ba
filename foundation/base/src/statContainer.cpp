// Statistics containers.
#include "statContainer.h"

#include "liStringUtil.h"

#include <algorithm>

namespace Zr {

double StatContainerBase::now() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

void StatContainerBase::record(double value) {
    _min = _count ? std::min(_min, value) : value;
    _max = _count ? std::max(_max, value) : value;
    _last = value;
    _sum += value;
    ++_count;
    _timeStamp = now();
}

void StatContainerBase::clear() {
    _count = 0;
    _last = _min = _max = _sum = 0.0;
    _timeStamp = 0.0;
}

std::string StatContainerBase::toString() const {
    if (isEmpty())
        return _name + ": empty";
    return _name + ": last " + LiStringUtil::convertNb(_last) + " min " +
           LiStringUtil::convertNb(_min) + " max " + LiStringUtil::convertNb(_max) + " mean " +
           LiStringUtil::convertNb(getMean()) + " count " + LiStringUtil::convertNb(_count);
}

void StatInterval::start() {
    _running = true;
    _startTime = now();
}

double StatInterval::stop() {
    if (!_running)
        return 0.0;
    _running = false;
    double span = now() - _startTime;
    record(span);
    return span;
}

} // namespace Zr
