// PiGroup: the group object of a group node: its name and the time mapping of the nodes inside
// (local = (global - offset) * scale).
#pragma once

#include "rcBase.h"

#include <string>

namespace Zr {

class PiGroup : public RCObject {
public:
    explicit PiGroup(std::string name, double timeOffset = 0.0, double timeScale = 1.0)
        : _name(std::move(name)), _timeOffset(timeOffset), _timeScale(timeScale) {}

    std::string const& getName() const { return _name; }
    void setName(std::string name) { _name = std::move(name); }
    double getTimeOffset() const { return _timeOffset; }
    double getTimeScale() const { return _timeScale; }
    void setTimeMapping(double offset, double scale) {
        _timeOffset = offset;
        _timeScale = scale;
    }

private:
    std::string _name;
    double _timeOffset;
    double _timeScale;
};

} // namespace Zr
