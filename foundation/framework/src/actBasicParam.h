// ActBasicParam: a small parameter block of an action: a name and a number. It names one option
// of an action with a submenu, and is the numerator that a menu hands to the registry.
#pragma once

#include <string>
#include <utility>

namespace Zr {

class ActBasicParam {
public:
    ActBasicParam() = default;
    ActBasicParam(std::string name, int value) : _name(std::move(name)), _value(value) {}

    std::string const& getName() const { return _name; }
    int getValue() const { return _value; }
    void setName(std::string name) { _name = std::move(name); }
    void setValue(int value) { _value = value; }

    bool operator==(ActBasicParam const&) const = default;

private:
    std::string _name;
    int _value = 0;
};

} // namespace Zr
