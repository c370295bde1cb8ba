// PiToolNode: a node made from a registered tool, with the tool's inputs, stored values, one
// output "out" and a PiToolController.
#pragma once

#include "piNode.h"
#include "piTool.h"

namespace Zr {

class PiToolNode : public PiNode {
public:
    PiToolNode(std::string name, RCShdPtr<PiTool const> const& tool);
    ~PiToolNode() override;

    RCShdPtr<PiTool const> getTool() const { return _tool; }

private:
    RCShdPtr<PiTool const> _tool;
};

} // namespace Zr
