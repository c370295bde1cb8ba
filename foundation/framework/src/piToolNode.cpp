// PiToolNode: a node built from its tool's declarations.
#include "piToolNode.h"

#include "piToolController.h"

namespace Zr {

PiToolNode::PiToolNode(std::string name, RCShdPtr<PiTool const> const& tool)
    : PiNode(std::move(name)), _tool(tool) {
    ZR_ASSERT(!tool.isNull());
    for (auto const& declaration : tool->getInputDeclarations())
        addInput(PiTool::createInput(declaration));
    for (auto const& declaration : tool->getStoredDeclarations())
        addStoredValue(PiTool::createStoredValue(declaration));
    addOutput(makeShared<PiOutput>("out"));
    setController(RCStrongPtr<PiNodeController>(new PiToolController(*this)));
}

PiToolNode::~PiToolNode() = default;

} // namespace Zr
