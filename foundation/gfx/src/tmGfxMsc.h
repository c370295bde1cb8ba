// TmGfxMsc: the display's frame counter (MSC) and its period in microseconds of the
// monotonic clock (UST), from which the event loop takes its time slice.
#pragma once

#include <cstdint>

namespace Zr {

class TmGfxMsc {
public:
    // The rate assumed until the window layer knows the display's.
    static constexpr double DEFAULT_RATE = 60.0;

    // Display refresh in Hz.
    static double getRate();
    // Set by the window layer once it knows the display; recomputes the period.
    static void setRate(double hz);
    // Microseconds per frame, as last computed.
    static std::int64_t getUstPerMsc();
    // Recomputes the period from the rate and returns it.
    static std::int64_t computeUstPerMsc();
    // The frame counter as last synced: UST then divided by the period.
    static std::int64_t getCurrentMsc();
    // Reads the clock again, updates the counter and returns it.
    static std::int64_t syncCurrentMsc();
    // The UST at which frame `msc` begins, and the frame that `ust` falls into.
    static std::int64_t mscToUst(std::int64_t msc);
    static std::int64_t ustToMsc(std::int64_t ust);
};

} // namespace Zr
