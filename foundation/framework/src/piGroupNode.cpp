// PiGroupNode, PiLinkNode and PiValueNode: the node kinds that are not tools.
#include "piGroupNode.h"

#include "piDefaultNodeController.h"
#include "piGraph.h"
#include "piLinkNode.h"
#include "piValueNode.h"

namespace Zr {

PiGroupNode::PiGroupNode(std::string name, RCShdPtr<PiGroup> group)
    : PiNode(std::move(name)), _group(std::move(group)) {
    setController(RCStrongPtr<PiNodeController>(new PiDefaultNodeController(*this)));
}

PiGroupNode::~PiGroupNode() = default;

std::vector<RCShdPtr<PiNode>> PiGroupNode::getChildren() const {
    std::vector<RCShdPtr<PiNode>> children;
    if (PiGraph* graph = getGraph())
        for (auto const& node : graph->getNodes())
            if (node->getParentGroup() == this)
                children.push_back(node);
    return children;
}

PiLinkNode::PiLinkNode(std::string name) : PiNode(std::move(name)) {
    setController(RCStrongPtr<PiNodeController>(new PiDefaultNodeController(*this)));
}

PiLinkNode::~PiLinkNode() = default;

namespace {

// Gives the value of its node's "value" input.
class ValueOutput : public PiOutput {
public:
    ValueOutput() : PiOutput("out") {}
    double getValue(double time) const override {
        RCShdPtr<PiInput> input = source();
        return input ? input->evaluate(time) : 0.0;
    }
    std::vector<PiInput*> getSourceInputs() const override {
        RCShdPtr<PiInput> input = source();
        return input ? std::vector<PiInput*>{input.get()} : std::vector<PiInput*>{};
    }

private:
    RCShdPtr<PiInput> source() const { return getNode() ? getNode()->findInput("value") : nullptr; }
};

} // namespace

PiValueNode::PiValueNode(std::string name) : PiNode(std::move(name)) {
    addInput(makeShared<PiInput>("value", PiInput::Type::Double));
    addOutput(makeShared<ValueOutput>());
    setController(RCStrongPtr<PiNodeController>(new PiDefaultNodeController(*this)));
}

PiValueNode::~PiValueNode() = default;

} // namespace Zr
