// TmTimeCurve: the animation of one input, keys sorted by time. A curve is a plain value holder:
// the input that owns it records undo states and tells observers; a curve on the clipboard or in
// an undo entry is a copy. TcTimeCurve (tcTimeCurve.h) is the editable kind that nodes create.
#pragma once

#include "tmKeyframe.h"

#include <optional>
#include <vector>

namespace Zr {

class TmTimeCurve : public RCObject {
public:
    // Keys closer than this in time are the same key.
    static constexpr double TIME_TOLERANCE = 1e-9;

    TmTimeCurve() = default;
    TmTimeCurve(TmTimeCurve const& o);
    TmTimeCurve& operator=(TmTimeCurve const& o);
    ~TmTimeCurve() override;

    // A new curve with the same keys.
    virtual RCShdPtr<TmTimeCurve> clone() const;

    // Adds a key, or replaces the value and interpolation of the key at that time.
    void setKey(TmKeyframe const& key);
    void setKey(double time, double value);
    // Removes the key at `time`; false if there is none.
    bool removeKey(double time);
    void clear();

    int getNbKeys() const { return static_cast<int>(_keys.size()); }
    TmKeyframe const& getKey(int index) const { return _keys.at(static_cast<std::size_t>(index)); }
    std::vector<TmKeyframe> const& getKeys() const { return _keys; }
    // The key at `time`, within TIME_TOLERANCE.
    TmKeyframe const* findKey(double time) const;

    std::optional<double> getFirstKeyTime() const;
    std::optional<double> getLastKeyTime() const;
    // The first key strictly after, or the last strictly before, `time`.
    std::optional<double> getNextKeyTime(double time) const;
    std::optional<double> getPreviousKeyTime(double time) const;

    // The value at `time`: the first key's value before it, the last key's after it, and between
    // two keys the interpolation of the earlier key (Constant holds, Linear blends, Smooth is a
    // Catmull-Rom spline through the neighbouring keys). No allocation; O(log n).
    double evaluate(double time) const;

    bool operator==(TmTimeCurve const& o) const { return _keys == o._keys; }

private:
    std::vector<TmKeyframe> _keys;
};

} // namespace Zr
