// The alarm thread: waits for the earliest due alarm, fires it outside the lock, re-arms the
// repeating ones.
#include "mtAlarmManager.h"

#include <algorithm>

namespace Zr {

MtAlarmHandle::MtAlarmHandle(std::string name) : _name(std::move(name)) {}

void MtAlarmHandle::setDuration(double seconds) {
    _duration.store(std::max(0.0, seconds));
}

double MtAlarmHandle::getDuration() const {
    return _duration.load();
}

void MtAlarmHandle::setRequestedRepeats(int repeats) {
    _requestedRepeats.store(repeats);
}

int MtAlarmHandle::getRequestedRepeats() const {
    return _requestedRepeats.load();
}

void MtAlarmHandle::setCallback(Callback* callback) {
    _callback = callback;
    _function = nullptr;
}

void MtAlarmHandle::setCallback(Function function) {
    _function = std::move(function);
    _callback = nullptr;
}

void MtAlarmHandle::fire() {
    if (_callback)
        _callback->alarm(*this);
    else if (_function)
        _function(*this);
}

MtAlarmManager::MtAlarmManager() = default;

MtAlarmManager::~MtAlarmManager() {
    shutdown();
}

void MtAlarmManager::registerAlarm(RCShdPtr<MtAlarmHandle> const& handle) {
    if (!handle)
        return;
    std::thread finished;
    std::unique_lock<std::mutex> lock(_mutex);
    auto span = std::chrono::duration_cast<Clock::duration>(
        std::chrono::duration<double>(handle->getDuration()));
    handle->_due = Clock::now() + span;
    handle->_occurrences = 0;
    handle->_registered = true;
    if (std::find(_alarms.begin(), _alarms.end(), handle) == _alarms.end())
        _alarms.push_back(handle);
    if (_threadActive) {
        // A shutdown asked from a callback has not taken effect yet: the loop goes on.
        _stop = false;
    } else {
        finished = std::move(_thread); // a loop that ended after such a shutdown
        _stop = false;
        _threadActive = true;
        _thread = std::thread([this] { run(); });
        _threadId = _thread.get_id();
    }
    _wakeUp.notify_all();
    lock.unlock();
    if (finished.joinable())
        finished.join();
}

void MtAlarmManager::deregisterAlarm(RCShdPtr<MtAlarmHandle> const& handle) {
    if (handle)
        deregisterAlarm(*handle);
}

void MtAlarmManager::deregisterAlarm(MtAlarmHandle& handle) {
    std::unique_lock<std::mutex> lock(_mutex);
    removeLocked(&handle);
    _wakeUp.notify_all();
    waitForCallbackLocked(lock, &handle);
}

void MtAlarmManager::removeLocked(MtAlarmHandle* handle) {
    handle->_registered = false;
    auto it =
        std::find_if(_alarms.begin(), _alarms.end(),
                     [handle](RCShdPtr<MtAlarmHandle> const& h) { return h.get() == handle; });
    if (it != _alarms.end())
        _alarms.erase(it);
}

void MtAlarmManager::waitForCallbackLocked(std::unique_lock<std::mutex>& lock,
                                           MtAlarmHandle* handle) {
    if (std::this_thread::get_id() == _threadId)
        return; // called from a callback: waiting would wait for ourselves
    _callbackDone.wait(lock, [&] { return _running == nullptr || (handle && _running != handle); });
}

void MtAlarmManager::shutdown() {
    std::thread thread;
    {
        std::unique_lock<std::mutex> lock(_mutex);
        for (auto& h : _alarms)
            h->_registered = false;
        _alarms.clear();
        _stop = true;
        _wakeUp.notify_all();
        if (std::this_thread::get_id() == _threadId)
            return; // the loop ends after this callback; the next registration joins it
        thread = std::move(_thread);
        _threadId = std::thread::id();
    }
    if (thread.joinable())
        thread.join();
}

int MtAlarmManager::getNbRegisteredAlarms() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return static_cast<int>(_alarms.size());
}

bool MtAlarmManager::isRunning() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _threadActive && !_stop;
}

void MtAlarmManager::run() {
    std::unique_lock<std::mutex> lock(_mutex);
    while (!_stop) {
        if (_alarms.empty()) {
            _wakeUp.wait(lock);
            continue;
        }
        auto next =
            std::min_element(_alarms.begin(), _alarms.end(),
                             [](RCShdPtr<MtAlarmHandle> const& a,
                                RCShdPtr<MtAlarmHandle> const& b) { return a->_due < b->_due; });
        Clock::time_point now = Clock::now();
        if ((*next)->_due > now) {
            // A copy: wait_until reads the time again after waking, when a deregistration may
            // have deleted the alarm.
            Clock::time_point const due = (*next)->_due;
            _wakeUp.wait_until(lock, due);
            continue; // the list may have changed meanwhile
        }
        RCShdPtr<MtAlarmHandle> handle = *next;
        int fired = ++handle->_occurrences;
        int repeats = handle->getRequestedRepeats();
        if (repeats < 0 || fired <= repeats) {
            auto span = std::chrono::duration_cast<Clock::duration>(
                std::chrono::duration<double>(handle->getDuration()));
            // Keep the rhythm, but after a long callback do not fire a burst to catch up.
            handle->_due = std::max(handle->_due + span, now);
        } else {
            removeLocked(handle.get());
        }
        _running = handle.get();
        lock.unlock();
        try {
            handle->fire();
        } catch (ExBase const& ex) {
            ExStdout::printAtomically("Alarm \"" + handle->getName() +
                                      "\" callback failed: " + ex.getReason());
        } catch (std::exception const& ex) {
            ExStdout::printAtomically("Alarm \"" + handle->getName() +
                                      "\" callback failed: " + ex.what());
        }
        lock.lock();
        _running = nullptr;
        _callbackDone.notify_all();
    }
    _threadActive = false;
}

} // namespace Zr
