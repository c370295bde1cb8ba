// PiGroupNode: a node that holds other nodes (their getParentGroup() is this node) and may have
// a group object.
#pragma once

#include "piGroup.h"
#include "piNode.h"

namespace Zr {

class PiGroupNode : public PiNode {
public:
    explicit PiGroupNode(std::string name, RCShdPtr<PiGroup> group = {});
    ~PiGroupNode() override;

    // The group object; may be null.
    RCShdPtr<PiGroup> getGroup() const { return _group; }
    void setGroup(RCShdPtr<PiGroup> const& group) { _group = group; }

    // The nodes of the graph that sit directly in this group, in the graph's order.
    std::vector<RCShdPtr<PiNode>> getChildren() const;

private:
    RCShdPtr<PiGroup> _group;
};

} // namespace Zr
