// The tool node predicates of selection items: they look at the object an item points to, so
// that items of nodes and of inputs made with any pointer type are recognised.
#include "piSnItem.h"

#include "piInput.h"
#include "piToolNode.h"

namespace Zr {

namespace {

// The tool node of an item: the item's object itself, or the node of an input item.
PiToolNode const* toolNodeOf(RCShdPtr<SnItem const> const& item) {
    if (item.isNull())
        return nullptr;
    RCObject const* object = item->getObject();
    if (auto const* node = dynamic_cast<PiToolNode const*>(object))
        return node;
    if (auto const* input = dynamic_cast<PiInput const*>(object))
        return dynamic_cast<PiToolNode const*>(input->getNode());
    return nullptr;
}

} // namespace

bool PiIsToolNode::test(RCShdPtr<SnItem const> const& item) {
    return toolNodeOf(item) != nullptr;
}

bool PiIsSuperToolNode::test(RCShdPtr<SnItem const> const& item) {
    PiToolNode const* node = toolNodeOf(item);
    return node && !node->getTool().isNull() && node->getTool()->isSuperTool();
}

} // namespace Zr
