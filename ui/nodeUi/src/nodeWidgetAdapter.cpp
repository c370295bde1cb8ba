// NodeWidgetAdapter: the node a NodeWidget shows, and its PiNodeWidget operations.
#include "nodeWidgetAdapter.h"

#include "uiContainer.h"
#include "uiNodeWidget.h"

#include "piNode.h"

namespace Zr {

NodeWidgetAdapter::NodeWidgetAdapter(RCShdPtr<UiContainer> const& container)
    : UiWidgetAdapter(RCShdPtr<UiWidget>(container)) {}

NodeWidgetAdapter::~NodeWidgetAdapter() = default;

UiContainer* NodeWidgetAdapter::getContainer() const {
    // The container is the widget adapted: the detached adapter of a dead container has none.
    return static_cast<UiContainer*>(widget());
}

void NodeWidgetAdapter::storeNode(RCShdPtr<PiNode> const& node,
                                  RCShdPtr<PiNode const> const& nodeRO) {
    _node = node;
    _nodeRO = nodeRO;
}

void NodeWidgetAdapter::setContent(RCShdPtr<PiNode> const& node,
                                   RCShdPtr<PiTimePath const> const& timePath) {
    UiNodeWidget::setContent(RCShdPtr<PiNodeWidget>(this), node, timePath);
}

void NodeWidgetAdapter::setContentRO(RCShdPtr<PiNode const> const& node,
                                     RCShdPtr<PiTimePath const> const& timePath) {
    UiNodeWidget::setContentRO(RCShdPtr<PiNodeWidget>(this), node, timePath);
}

} // namespace Zr
