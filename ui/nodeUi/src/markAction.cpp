// The marking actions of the input context menu.
#include "markAction.h"

#include "piSocketUtil.h"
#include "piToolNode.h"

namespace Zr {

namespace {

// An animatable input without expression, in a graph with a keyframing utility.
PiKeyframingUtil* markable(InputPtr const& input) {
    if (input.isNull() || !PiSocketUtil::isAnimatable(input) || PiSocketUtil::hasExpression(input))
        return nullptr;
    return NodeUiActionUtil::keyframingUtil(*input);
}

// The input belongs to a tool node not made from a super tool.
bool onPlainTool(PiInput const& input) {
    auto const* node = dynamic_cast<PiToolNode const*>(input.getNode());
    return node && (node->getTool().isNull() || !node->getTool()->isSuperTool());
}

} // namespace

bool Mark::test(InputPtr const& input, TimePathPtr const&) {
    PiKeyframingUtil const* util = markable(input);
    return util && !util->isAttributeMarked(input);
}

void Mark::perform(InputPtr const& input, TimePathPtr const& timePath) {
    if (PiKeyframingUtil* util = markable(input))
        util->markAttribute(input, timePath);
}

bool UnMark::test(InputPtr const& input, TimePathPtr const&) {
    PiKeyframingUtil const* util = markable(input);
    return util && util->isAttributeMarked(input);
}

void UnMark::perform(InputPtr const& input, TimePathPtr const&) {
    if (PiKeyframingUtil* util = markable(input))
        util->unmarkAttribute(input);
}

bool UnMarkAll::test(InputPtr const& input, TimePathPtr const&) {
    PiKeyframingUtil const* util = markable(input);
    return util && util->isAttributeMarked(input);
}

void UnMarkAll::perform(InputPtr const& input, TimePathPtr const&) {
    if (PiKeyframingUtil* util = markable(input))
        util->unmarkAll();
}

bool MarkTool::test(InputPtr const& input, TimePathPtr const&) {
    PiKeyframingUtil const* util = markable(input);
    return util && onPlainTool(*input) && !util->hasMarkedAttributes(input->getNodePtr());
}

void MarkTool::perform(InputPtr const& input, TimePathPtr const& timePath) {
    if (PiKeyframingUtil* util = markable(input))
        util->markToolForInput(input, timePath);
}

bool UnMarkTool::test(InputPtr const& input, TimePathPtr const&) {
    PiKeyframingUtil const* util = markable(input);
    return util && onPlainTool(*input) && util->isAttributeMarked(input);
}

void UnMarkTool::perform(InputPtr const& input, TimePathPtr const&) {
    if (PiKeyframingUtil* util = markable(input))
        util->unmarkToolForInput(input);
}

} // namespace Zr
