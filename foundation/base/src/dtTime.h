// Time: DtTimeIndex is a count of ticks at some rate, DtRefTime a reading of the monotonic
// clock in microseconds (UST), DtRefTimeFactory the clock itself.
#pragma once

#include <compare>
#include <cstdint>
#include <limits>

namespace Zr {

class DtTimeIndex {
public:
    static DtTimeIndex const MAX;
    constexpr DtTimeIndex() = default;
    constexpr explicit DtTimeIndex(std::int64_t ticks) : _ticks(ticks) {}
    constexpr std::int64_t getTicks() const { return _ticks; }
    // Seconds at `rate` ticks per second.
    double getSeconds(double rate) const { return static_cast<double>(_ticks) / rate; }
    constexpr auto operator<=>(DtTimeIndex const&) const = default;
    DtTimeIndex operator+(std::int64_t d) const { return DtTimeIndex(_ticks + d); }
    DtTimeIndex operator-(std::int64_t d) const { return DtTimeIndex(_ticks - d); }

private:
    std::int64_t _ticks = 0;
};

inline constexpr DtTimeIndex DtTimeIndex::MAX{std::numeric_limits<std::int64_t>::max()};

// A reading of the monotonic clock in microseconds: the unit of the event queue's time limits.
class DtRefTime {
public:
    static constexpr double UST_RATE = 1e6;
    DtRefTime() = default;
    explicit DtRefTime(std::int64_t ust) : _ust(ust) {}
    std::int64_t getUst() const { return _ust; }
    double getSeconds() const { return static_cast<double>(_ust) / UST_RATE; }
    DtTimeIndex toTimeIndex() const { return DtTimeIndex(_ust); }

private:
    std::int64_t _ust = 0;
};

class DtRefTimeFactory {
public:
    static DtRefTimeFactory& getInstance();
    DtRefTime create() const;
    // The present time as a time index in microseconds.
    static DtTimeIndex now() { return getInstance().create().toTimeIndex(); }
};

} // namespace Zr
