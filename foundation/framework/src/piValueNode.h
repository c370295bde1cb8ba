// PiValueNode: a node with one Double input "value" and one output "out" that gives that
// input's value, so that inputs of other nodes can share one animated or computed value.
#pragma once

#include "piNode.h"

namespace Zr {

class PiValueNode : public PiNode {
public:
    explicit PiValueNode(std::string name);
    ~PiValueNode() override;

    RCShdPtr<PiInput> getValueInput() const { return getInput(0); }
    RCShdPtr<PiOutput> getOutput() const { return getOutputs().front(); }
};

} // namespace Zr
