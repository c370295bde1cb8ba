// The event queue: one mutex over a deque of events and a min-heap of requests held until
// their target time; the reader blocks on a condition variable with an absolute deadline.
#include "wsEventQ.h"

#include <algorithm>
#include <chrono>

namespace Zr {

namespace {

// Waits never sleep longer than this in one piece: far limits (DtTimeIndex::MAX) would
// overflow the clock's nanoseconds. The reader re-checks and sleeps again, so a long wait
// costs one wake-up a day.
constexpr std::int64_t MAX_SLEEP_UST = 24LL * 3600 * 1000000;

std::chrono::steady_clock::time_point toTimePoint(std::int64_t ust) {
    return std::chrono::steady_clock::time_point(std::chrono::microseconds(ust));
}

std::int64_t nowUst() {
    return DtRefTimeFactory::now().getTicks();
}

} // namespace

WsEventQ& WsEventQ::getInstance() {
    static WsEventQ instance;
    return instance;
}

WsEventQ::WsEventQ() = default;
WsEventQ::~WsEventQ() = default;

void WsEventQ::start() {
    std::lock_guard<std::mutex> lock(_mutex);
    _started = true;
}

bool WsEventQ::isStarted() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _started;
}

bool WsEventQ::comesLater(HeldRequest const& a, HeldRequest const& b) {
    if (a.target != b.target)
        return a.target > b.target;
    return a.sequence > b.sequence;
}

void WsEventQ::promoteDueRequests(std::int64_t now) {
    while (!_held.empty() && _held.front().target <= now) {
        std::pop_heap(_held.begin(), _held.end(), comesLater);
        _events.push_back(std::move(_held.back().request));
        _held.pop_back();
    }
}

std::int64_t WsEventQ::countDueRequests(std::int64_t now) const {
    return std::count_if(_held.begin(), _held.end(),
                         [now](HeldRequest const& h) { return h.target <= now; });
}

WsEventSource::~WsEventSource() = default;

void WsEventQ::setEventSource(WsEventSource* source) {
    _source.store(source);
}

namespace {

// The installed source if the calling thread may pump it, else null.
WsEventSource* pumpableSource(std::atomic<WsEventSource*> const& source) {
    WsEventSource* s = source.load();
    return s && s->isPumpThread() ? s : nullptr;
}

} // namespace

template <class Ready>
bool WsEventQ::waitFor(std::unique_lock<std::mutex>& lock, DtTimeIndex until, Ready ready) {
    std::int64_t const limit = until.getTicks();
    WsEventSource* source = pumpableSource(_source);
    if (source) {
        // What the window system has ready counts before the first check.
        lock.unlock();
        source->pump();
        lock.lock();
    }
    for (;;) {
        std::int64_t const now = nowUst();
        promoteDueRequests(now);
        if (ready())
            return true;
        if (_wakeUpPending) {
            _wakeUpPending = false;
            return false;
        }
        if (limit <= now)
            return false;
        // Sleep until the limit or the first held request, whichever comes first.
        std::int64_t deadline = std::min(limit, now + MAX_SLEEP_UST);
        if (!_held.empty())
            deadline = std::min(deadline, _held.front().target);
        if (source) {
            // Block in the window system; a post from another thread wakes it through the
            // source. The source posts what it reads, which takes the lock: release it.
            _readerWaiting = true;
            _sourceWaiting = true;
            lock.unlock();
            std::int64_t const waitUs = deadline - now;
            source->waitAndPump(static_cast<int>((waitUs + 999) / 1000));
            lock.lock();
            _readerWaiting = false;
            _sourceWaiting = false;
            continue;
        }
        _readerWaiting = true;
        _cond.wait_until(lock, toTimePoint(deadline));
        _readerWaiting = false;
    }
}

OPtr<EvEvent> WsEventQ::getNextEvent(DtTimeIndex until) {
    std::unique_lock<std::mutex> lock(_mutex);
    if (!waitFor(lock, until, [this] { return !_events.empty(); }))
        return nullptr;
    OPtr<EvEvent> e = std::move(_events.front());
    _events.pop_front();
    return e;
}

void WsEventQ::getAllEvents(std::deque<OPtr<EvEvent>>& out) {
    std::unique_lock<std::mutex> lock(_mutex);
    promoteDueRequests(nowUst());
    // The window system is read only when nothing is queued: a busy loop takes what is here
    // first and reads the connection once it has run dry.
    if (_events.empty()) {
        if (WsEventSource* source = pumpableSource(_source)) {
            lock.unlock();
            source->pump();
            lock.lock();
            promoteDueRequests(nowUst());
        }
    }
    for (auto& e : _events)
        out.push_back(std::move(e));
    _events.clear();
}

void WsEventQ::postRequest(OPtr<EvRequestEvent> r) {
    ZR_ASSERT(r != nullptr);
    std::int64_t const target = r->getTargetTime().getTicks();
    bool sourceWaiting = false;
    {
        std::lock_guard<std::mutex> lock(_mutex);
        // A request already due queues at once, behind what was posted before it.
        if (target <= 0 || target <= nowUst()) {
            _events.push_back(std::move(r));
        } else {
            _held.push_back(HeldRequest{target, _nextSequence++, std::move(r)});
            std::push_heap(_held.begin(), _held.end(), comesLater);
        }
        if (!_readerWaiting)
            return;
        sourceWaiting = _sourceWaiting;
    }
    // A new first request shortens the reader's sleep; a due one may satisfy it.
    notifyReader(sourceWaiting);
}

void WsEventQ::postEvent(OPtr<EvEvent> e) {
    ZR_ASSERT(e != nullptr);
    bool sourceWaiting = false;
    {
        std::lock_guard<std::mutex> lock(_mutex);
        _events.push_back(std::move(e));
        if (!_readerWaiting)
            return;
        sourceWaiting = _sourceWaiting;
    }
    notifyReader(sourceWaiting);
}

void WsEventQ::notifyReader(bool sourceWaiting) {
    if (!sourceWaiting) {
        _cond.notify_one();
        return;
    }
    // The reader is blocked in the window system. Its own thread posts only while pumping,
    // and the wait ends after the pump anyway: only other threads need to wake it.
    WsEventSource* source = _source.load();
    if (source && !source->isPumpThread())
        source->wakeUp();
}

bool WsEventQ::isEmptyBefore(DtTimeIndex until) {
    std::unique_lock<std::mutex> lock(_mutex);
    return !waitFor(lock, until, [this] { return !_events.empty(); });
}

int WsEventQ::wait(int count, DtTimeIndex until) {
    std::unique_lock<std::mutex> lock(_mutex);
    std::size_t const before = _events.size();
    std::size_t const wanted = count > 0 ? static_cast<std::size_t>(count) : 0;
    std::size_t heldBefore = _held.size();
    waitFor(lock, until, [&] {
        // A request coming due ends the wait as well: the loop has work to run.
        bool const requestCameDue = _held.size() < heldBefore && _events.size() > before;
        heldBefore = _held.size();
        return _events.size() >= wanted || requestCameDue;
    });
    return static_cast<int>(_events.size());
}

int WsEventQ::getNbWaitingEvents() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return static_cast<int>(_events.size() + countDueRequests(nowUst()));
}

int WsEventQ::getNbHeldRequests() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return static_cast<int>(_held.size() - countDueRequests(nowUst()));
}

void WsEventQ::wakeUp() {
    bool sourceWaiting = false;
    {
        std::lock_guard<std::mutex> lock(_mutex);
        _wakeUpPending = true;
        sourceWaiting = _sourceWaiting;
    }
    notifyReader(sourceWaiting);
}

void WsEventQ::clear() {
    std::deque<OPtr<EvEvent>> events;
    std::vector<HeldRequest> held;
    {
        std::lock_guard<std::mutex> lock(_mutex);
        events.swap(_events);
        held.swap(_held);
        _wakeUpPending = false;
    }
    // The events die outside the lock: a destructor may post.
}

} // namespace Zr
