// WsEventQ: the queue between the windowing layer (and any thread that posts) and the
// application's loop. Requests wait aside until their target time, then queue like events.
#pragma once

#include "dtTime.h"
#include "evEvent.h"
#include "rcBase.h"
#include "wsEventSource.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <vector>

namespace Zr {

// Times are DtTimeIndex in microseconds of the monotonic clock (DtRefTimeFactory::now()).
// A limit of DtTimeIndex(0), or any time already past, means "don't wait"; DtTimeIndex::MAX
// waits without limit. Any thread may post; one thread, the loop's, reads.
class WsEventQ {
public:
    static WsEventQ& getInstance();

    WsEventQ();
    WsEventQ(WsEventQ const&) = delete;
    WsEventQ& operator=(WsEventQ const&) = delete;
    ~WsEventQ();

    // Called by the loop when it starts taking events; harmless to call again.
    void start();
    bool isStarted() const;

    // The next event, waiting for one until `until`; null when the limit passed first or a
    // wakeUp ended the wait.
    OPtr<EvEvent> getNextEvent(DtTimeIndex until);
    // Moves every waiting event, and every request that has come due, to the back of `out`
    // in posting order. Never blocks.
    void getAllEvents(std::deque<OPtr<EvEvent>>& out);
    // Delivered like an event once its target time has come (0: at once). Until then it is
    // held aside, ordered by target time and then by posting, and does not count as waiting.
    void postRequest(OPtr<EvRequestEvent> r);
    // From any thread; wakes the reader if it is blocked.
    void postEvent(OPtr<EvEvent> e);
    // Waits until an event is available or `until` passes; true if none came.
    bool isEmptyBefore(DtTimeIndex until);
    // Waits until at least `count` events are waiting, `until` passes, a held request comes
    // due or wakeUp is called; returns the number waiting.
    int wait(int count, DtTimeIndex until);
    int getNbWaitingEvents() const;
    // Requests held for a later target time.
    int getNbHeldRequests() const;

    // Ends the reader's present or next wait early, once. The loop uses it when a window
    // needs a redraw while the loop may be blocked.
    void wakeUp();
    // Drops every event and request, and a pending wakeUp.
    void clear();

    // Installs a window system's input (not owned; null removes it). While one is installed,
    // the waits on its pump thread block in the source, which posts what it reads; waits on
    // other threads, and reads that don't wait, pump it first when they are on that thread.
    void setEventSource(WsEventSource* source);
    WsEventSource* getEventSource() const { return _source.load(); }

private:
    struct HeldRequest {
        std::int64_t target;
        std::uint64_t sequence;
        OPtr<EvRequestEvent> request;
    };
    // True if `a` comes due after `b`: the ordering of the held requests' min-heap.
    static bool comesLater(HeldRequest const& a, HeldRequest const& b);

    // Moves the requests due at `now` to the events; the lock is held.
    void promoteDueRequests(std::int64_t now);
    std::int64_t countDueRequests(std::int64_t now) const;
    // Wakes a blocked reader, on the condition variable or through the event source.
    void notifyReader(bool sourceWaiting);
    // Blocks until `ready()` holds, the limit passes, a held request comes due, or a wakeUp;
    // the lock is held. Returns whether `ready()` held at the end.
    template <class Ready>
    bool waitFor(std::unique_lock<std::mutex>& lock, DtTimeIndex until, Ready ready);

    mutable std::mutex _mutex;
    std::condition_variable _cond;
    std::deque<OPtr<EvEvent>> _events;
    std::vector<HeldRequest> _held;
    std::uint64_t _nextSequence = 0;
    bool _readerWaiting = false;
    bool _wakeUpPending = false;
    bool _started = false;
    // The reader is blocked in the event source rather than on the condition variable.
    bool _sourceWaiting = false;
    std::atomic<WsEventSource*> _source{nullptr};
};

} // namespace Zr
