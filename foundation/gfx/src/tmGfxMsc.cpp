// Display timing. Without a display the counter is derived from the monotonic clock at the
// rate the window layer set, 60 Hz until it sets one.
#include "tmGfxMsc.h"

#include "dtTime.h"
#include "exBase.h"

#include <atomic>
#include <cmath>

namespace Zr {

namespace {

struct MscState {
    std::atomic<double> rate{TmGfxMsc::DEFAULT_RATE};
    std::atomic<std::int64_t> ustPerMsc{
        static_cast<std::int64_t>(std::llround(DtRefTime::UST_RATE / TmGfxMsc::DEFAULT_RATE))};
    std::atomic<std::int64_t> currentMsc{0};
    std::atomic<bool> synced{false};
};

MscState& state() {
    static MscState s;
    return s;
}

} // namespace

double TmGfxMsc::getRate() {
    return state().rate.load(std::memory_order_relaxed);
}

void TmGfxMsc::setRate(double hz) {
    ZR_ASSERT(hz > 0.0 && std::isfinite(hz));
    state().rate.store(hz, std::memory_order_relaxed);
    computeUstPerMsc();
}

std::int64_t TmGfxMsc::getUstPerMsc() {
    return state().ustPerMsc.load(std::memory_order_relaxed);
}

std::int64_t TmGfxMsc::computeUstPerMsc() {
    std::int64_t ust = std::llround(DtRefTime::UST_RATE / getRate());
    if (ust < 1)
        ust = 1;
    state().ustPerMsc.store(ust, std::memory_order_relaxed);
    return ust;
}

std::int64_t TmGfxMsc::getCurrentMsc() {
    if (!state().synced.load(std::memory_order_acquire))
        return syncCurrentMsc();
    return state().currentMsc.load(std::memory_order_relaxed);
}

std::int64_t TmGfxMsc::syncCurrentMsc() {
    std::int64_t msc = ustToMsc(DtRefTimeFactory::now().getTicks());
    state().currentMsc.store(msc, std::memory_order_relaxed);
    state().synced.store(true, std::memory_order_release);
    return msc;
}

std::int64_t TmGfxMsc::mscToUst(std::int64_t msc) {
    return msc * getUstPerMsc();
}

std::int64_t TmGfxMsc::ustToMsc(std::int64_t ust) {
    return ust / getUstPerMsc();
}

} // namespace Zr
