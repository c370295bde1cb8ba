// PiOutputInterface: the controller kind that tells which output an input of the node is
// connected to.
#pragma once

#include "piInput.h"
#include "piOutput.h"

namespace Zr {

class PiOutputInterface {
public:
    virtual ~PiOutputInterface() = default;
    // Null when the input is not connected.
    virtual RCShdPtr<PiOutput> getConnectedOutput(RCShdPtr<PiInput const> const& input) const = 0;
};

} // namespace Zr
