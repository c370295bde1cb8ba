// Plain and high-resolution sleeping.
#include "sleeper.h"

#include <chrono>
#include <thread>

namespace Zr {

Sleeper& Sleeper::getInstance() {
    static Sleeper sleeper(false);
    return sleeper;
}

Sleeper& Sleeper::getHighResInstance() {
    static Sleeper sleeper(true);
    return sleeper;
}

void Sleeper::sleep(double seconds) const {
    if (!(seconds > 0.0))
        return;
    using Clock = std::chrono::steady_clock;
    auto span = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    if (!_highRes) {
        std::this_thread::sleep_for(span);
        return;
    }
    // The scheduler may oversleep by a millisecond or two: sleep short of the deadline, then
    // yield until it passes.
    Clock::time_point deadline = Clock::now() + span;
    auto const margin = std::chrono::milliseconds(2);
    if (span > margin)
        std::this_thread::sleep_until(deadline - margin);
    while (Clock::now() < deadline)
        std::this_thread::yield();
}

} // namespace Zr
