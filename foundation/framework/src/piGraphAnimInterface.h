// PiGraphAnimInterface: the controller kind that says whether keys may be set on the node's
// inputs at all (a graph may lock its animation).
#pragma once

namespace Zr {

class PiGraphAnimInterface {
public:
    virtual ~PiGraphAnimInterface() = default;
    virtual bool isKeySettingAllowed() const { return _keySettingAllowed; }
    virtual void setKeySettingAllowed(bool allowed) { _keySettingAllowed = allowed; }

private:
    bool _keySettingAllowed = true;
};

} // namespace Zr
