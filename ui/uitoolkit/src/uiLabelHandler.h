// UiLabelHandler: turns a number into the text a value editor shows, in place of the editor's
// own printf formatting (a time code, a unit, a name for each value).
#pragma once

#include "rcBase.h"

#include <string>

namespace Zr {

class UiLabelHandler : public RCObject {
public:
    ~UiLabelHandler() override = default;
    virtual std::string toString(double value) const = 0;
};

} // namespace Zr
