// TmTimeClient: the application's current time (seconds) and frame rate, with observers of the
// time.
#pragma once

#include "cbDispatcher.h"
#include "rational.h"
#include "rcBase.h"

namespace Zr {

class TmTimeClient : public RCObject {
public:
    explicit TmTimeClient(double time = 0.0, Rational rate = Rational(25));
    ~TmTimeClient() override;

    double getTime() const { return _time; }
    // Tells the time observers once if the time changed.
    void setTime(double seconds);

    void addTimeChangeCb(CbHandler<CbEmptyType>* handler) { _timeDispatcher.addHandler(handler); }
    void removeTimeChangeCb(CbHandler<CbEmptyType>* handler) {
        _timeDispatcher.removeHandler(handler);
    }

    // Frames per second; a rate that is not positive is an assertion failure.
    Rational const& getRate() const { return _rate; }
    void setRate(Rational const& rate);

private:
    double _time;
    Rational _rate;
    CbDispatcher<CbEmptyType> _timeDispatcher;
};

} // namespace Zr
