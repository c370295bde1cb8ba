// Containers of statistics: StatContainerBase keeps the samples of one statistic and the time
// of the latest; StatScalar keeps values, StatInterval measured spans in seconds, StatTimeStamp
// moments of the monotonic clock.
#pragma once

#include "rcBase.h"

#include <chrono>
#include <string>

namespace Zr {

class StatContainerBase : public RCObject {
public:
    explicit StatContainerBase(std::string name) : _name(std::move(name)) {}

    std::string const& getName() const { return _name; }
    bool isEmpty() const { return _count == 0; }
    int getCount() const { return _count; }
    double getLast() const { return _last; }
    double getMin() const { return _min; }
    double getMax() const { return _max; }
    double getMean() const { return _count ? _sum / _count : 0.0; }
    // When the latest sample came, in seconds of the monotonic clock; 0 when empty.
    double getTimeStamp() const { return _timeStamp; }

    virtual void record(double value);
    virtual void clear();
    // "<name>: last <v> min <v> max <v> mean <v> count <n>", or "<name>: empty".
    virtual std::string toString() const;

    static double now();

private:
    std::string _name;
    int _count = 0;
    double _last = 0.0, _min = 0.0, _max = 0.0, _sum = 0.0;
    double _timeStamp = 0.0;
};

class StatScalar : public StatContainerBase {
public:
    using StatContainerBase::StatContainerBase;
};

// Measures spans: start, then stop records the seconds between them.
class StatInterval : public StatContainerBase {
public:
    using StatContainerBase::StatContainerBase;
    void start();
    // Records and returns the span since start; 0 and nothing recorded when not started.
    double stop();
    bool isRunning() const { return _running; }

private:
    bool _running = false;
    double _startTime = 0.0;
};

// Records the moments something happened.
class StatTimeStamp : public StatContainerBase {
public:
    using StatContainerBase::StatContainerBase;
    void mark() { record(now()); }
};

} // namespace Zr
