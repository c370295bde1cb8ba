// StatTypes: the ids of the statistics that the toolkit records. The registry knows them from
// the start; other modules register more with StatResourceRegistry::registerResourceType.
#pragma once

namespace Zr {

struct StatTypes {
    // Events waiting in the queue when the loop takes its next slice.
    static constexpr int WAITING_EVENTS_ID = 1;
    // Events dispatched in one slice of the loop.
    static constexpr int PROCESSED_EVENTS_ID = 2;
    // Ids given by registerResourceType start here.
    static constexpr int FIRST_FREE_ID = 100;
};

} // namespace Zr
