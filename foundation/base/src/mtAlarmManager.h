// Alarms: MtAlarmHandle describes one alarm (a span, repeats, a callback); MtAlarmManager fires
// registered alarms at their due time on one alarm thread of its own.
#pragma once

#include "lkSingleton.h"
#include "rcBase.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace Zr {

class MtAlarmManager;

class MtAlarmHandle : public RCObject {
public:
    // Called on the alarm thread each time the alarm fires.
    class Callback {
    public:
        virtual ~Callback() = default;
        virtual void alarm(MtAlarmHandle& handle) = 0;
    };
    using Function = std::function<void(MtAlarmHandle&)>;

    explicit MtAlarmHandle(std::string name = std::string());

    std::string const& getName() const { return _name; }

    // The span from registration to the first firing, and between repeated firings.
    void setDuration(double seconds);
    double getDuration() const;
    // How many times the alarm fires again after the first: 0 fires once, a negative number
    // repeats until the alarm is deregistered.
    void setRequestedRepeats(int repeats);
    int getRequestedRepeats() const;

    // The callback is not owned and must outlive the registration. Set it while the alarm is
    // not registered.
    void setCallback(Callback* callback);
    void setCallback(Function function);

    bool isRegistered() const { return _registered.load(); }
    // Whether the alarm fired since it was last registered.
    bool hasOccurred() const { return _occurrences.load() > 0; }
    // How many times it fired since it was last registered.
    int getNbOccurrences() const { return _occurrences.load(); }

private:
    friend class MtAlarmManager;
    using Clock = std::chrono::steady_clock;

    void fire();

    std::string _name;
    std::atomic<double> _duration{0.0};
    std::atomic<int> _requestedRepeats{0};
    Callback* _callback = nullptr;
    Function _function;
    // Owned by the manager, under its mutex.
    std::atomic<bool> _registered{false};
    std::atomic<int> _occurrences{0};
    Clock::time_point _due;
};

// The process-wide alarm thread. The thread starts with the first registration; shutdown
// stops it (it starts again on the next registration), and the singleton destroyer shuts it
// down at exit. Every method may be called from any thread.
class MtAlarmManager {
public:
    static MtAlarmManager& getInstance() { return LkSingleton<MtAlarmManager>::getInstance(); }

    // Arms the alarm to fire its duration from now; re-registering re-arms it and clears
    // hasOccurred. A null handle is ignored.
    void registerAlarm(RCShdPtr<MtAlarmHandle> const& handle);
    // Disarms the alarm. When this returns the callback is not running and will not run,
    // unless this is called from that very callback, which then simply finishes.
    void deregisterAlarm(RCShdPtr<MtAlarmHandle> const& handle);
    void deregisterAlarm(MtAlarmHandle& handle);

    // Disarms every alarm and joins the alarm thread. Called from an alarm callback it only
    // asks the thread to stop.
    void shutdown();

    int getNbRegisteredAlarms() const;
    bool isRunning() const;

private:
    friend class LkSingleton<MtAlarmManager>;
    using Clock = MtAlarmHandle::Clock;

    MtAlarmManager();
    ~MtAlarmManager();
    void run();
    void removeLocked(MtAlarmHandle* handle);
    void waitForCallbackLocked(std::unique_lock<std::mutex>& lock, MtAlarmHandle* handle);

    mutable std::mutex _mutex;
    std::condition_variable _wakeUp;
    std::condition_variable _callbackDone;
    std::vector<RCShdPtr<MtAlarmHandle>> _alarms;
    MtAlarmHandle* _running = nullptr; // whose callback runs now on the alarm thread
    std::thread _thread;
    std::thread::id _threadId;
    bool _stop = false;
    bool _threadActive = false; // the loop of _thread has not ended
};

} // namespace Zr
