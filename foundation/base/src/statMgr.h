// StatMgr: where the toolkit records its statistics. Recording is off unless local statistics
// are enabled, so the event loop may record on every turn at the cost of one test.
#pragma once

#include "lkSingleton.h"
#include "statContainer.h"

#include <atomic>
#include <iosfwd>
#include <map>
#include <mutex>

namespace Zr {

class StatMgr {
public:
    static StatMgr& getInstance() { return LkSingleton<StatMgr>::getInstance(); }

    bool hasLocalStats() const { return _localStats.load(std::memory_order_relaxed); }
    void setLocalStats(bool on) { _localStats.store(on, std::memory_order_relaxed); }

    // Adds a sample to the statistic `id` (a StatTypes id or one from the registry). Ignored
    // while local statistics are off, and for an id no type was registered under.
    void record(int id, double value);
    // The latest sample; 0 when there is none.
    double getLast(int id) const;
    // The container of `id`, made on first use; null for an unknown id.
    RCShdPtr<StatContainerBase> getContainer(int id);

    // Writes one line per statistic with samples (StatContainerBase::toString) and empties
    // them. The form without a stream prints each line with ExStdout::printAtomically.
    void flushStatistics(std::ostream& os);
    void flushStatistics();

private:
    friend class LkSingleton<StatMgr>;
    StatMgr() = default;
    RCShdPtr<StatContainerBase> getContainerLocked(int id);

    std::atomic<bool> _localStats{false};
    mutable std::mutex _mutex;
    std::map<int, RCShdPtr<StatContainerBase>> _containers;
};

} // namespace Zr
