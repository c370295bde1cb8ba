// The monotonic clock.
#include "dtTime.h"

#include <chrono>

namespace Zr {

DtRefTimeFactory& DtRefTimeFactory::getInstance() {
    static DtRefTimeFactory instance;
    return instance;
}

DtRefTime DtRefTimeFactory::create() const {
    auto t = std::chrono::steady_clock::now().time_since_epoch();
    return DtRefTime(std::chrono::duration_cast<std::chrono::microseconds>(t).count());
}

} // namespace Zr
