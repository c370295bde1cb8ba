// PiNodeWidget: what a plug-in sees of a widget that shows a node: the node it shows and the time
// path through which it reads the node's values.
#pragma once

#include "piWidget.h"

namespace Zr {

class PiNode;
class PiTimePath;

class PiNodeWidget : public virtual PiWidget {
public:
    // Shows `node`, editable, read at the times of `timePath`.
    virtual void setContent(RCShdPtr<PiNode> const& node,
                            RCShdPtr<PiTimePath const> const& timePath) = 0;
    // Shows `node` without editing it.
    virtual void setContentRO(RCShdPtr<PiNode const> const& node,
                              RCShdPtr<PiTimePath const> const& timePath) = 0;
    // The node shown; null when none is, or when it is shown read-only (getNode).
    virtual RCShdPtr<PiNode> getNode() const = 0;
    virtual RCShdPtr<PiNode const> getNodeRO() const = 0;

protected:
    PiNodeWidget() = default;
    ~PiNodeWidget() override;
};

} // namespace Zr
