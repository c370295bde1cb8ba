// PiToolInterface: the controller kind of tool nodes: the tool and its inputs' policies.
#pragma once

#include "piInput.h"
#include "piInputPolicy.h"
#include "piTool.h"

namespace Zr {

class PiToolInterface {
public:
    virtual ~PiToolInterface() = default;
    // The policy of an input of the node; null when it has none.
    virtual RCShdPtr<PiInputPolicy const>
    getInputPolicy(RCShdPtr<PiInput const> const& input) const = 0;
    virtual RCShdPtr<PiTool const> getTool() const = 0;
};

} // namespace Zr
