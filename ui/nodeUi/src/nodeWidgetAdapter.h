// NodeWidgetAdapter: the plug-in interface of a NodeWidget, the container that shows a node's
// first panel inside another interface.
#pragma once

#include "piNodeWidget.h"
#include "uiWidgetAdapter.h"

namespace Zr {

class PiNode;
class UiContainer;

class NodeWidgetAdapter : public PiNodeWidget, public UiWidgetAdapter {
public:
    explicit NodeWidgetAdapter(RCShdPtr<UiContainer> const& container);

    // Shows the node's first panel in the container (UiNodeWidget::setContent), editable or
    // read-only; the other panels are dropped.
    void setContent(RCShdPtr<PiNode> const& node,
                    RCShdPtr<PiTimePath const> const& timePath) override;
    void setContentRO(RCShdPtr<PiNode const> const& node,
                      RCShdPtr<PiTimePath const> const& timePath) override;
    // The node shown; getNode is null when it is shown read-only.
    RCShdPtr<PiNode> getNode() const override { return _node; }
    RCShdPtr<PiNode const> getNodeRO() const override { return _nodeRO; }

    // The container; null once the container is gone and this adapter outlived it.
    UiContainer* getContainer() const;
    // Records the node shown: writable, or read-only with `node` null.
    void storeNode(RCShdPtr<PiNode> const& node, RCShdPtr<PiNode const> const& nodeRO);

protected:
    ~NodeWidgetAdapter() override;

private:
    RCShdPtr<PiNode> _node;
    RCShdPtr<PiNode const> _nodeRO;
};

} // namespace Zr
