// UiNodeWidget: the content of a NodeWidget.
#include "uiNodeWidget.h"

#include "nodeWidgetAdapter.h"
#include "nodeWidgetFactory.h"
#include "uiContainer.h"
#include "uiGenericNodeUi.h"

#include "piNode.h"

namespace Zr {

namespace {

using Items = Iterator<UiNodeWidgetFactory::Item>;

NodeWidgetAdapter* adapterOf(RCShdPtr<PiNodeWidget> const& widget) {
    auto* adapter = dynamic_cast<NodeWidgetAdapter*>(widget.get());
    return adapter && adapter->getContainer() ? adapter : nullptr;
}

// The node's panels; the generic panel when its controller gives no description.
template <class Node>
Items panelsOf(Node const& node, RCShdPtr<PiTimePath const> const& timePath) {
    Items items = UiNodeWidgetFactory::create(node, timePath);
    if (items.atEnd() && UiGenericNodeUi::hasNoDescription(RCShdPtr<PiNode const>(node)))
        items = UiGenericNodeUi::create(node, timePath);
    return items;
}

// Replaces the container's children with the first panel.
template <class Node>
Items show(NodeWidgetAdapter& adapter, Node const& node,
           RCShdPtr<PiTimePath const> const& timePath) {
    UiContainer& container = *adapter.getContainer();
    Items items;
    if (!node.isNull())
        items = panelsOf(node, timePath);
    container.removeChildren();
    if (!items.atEnd())
        container.addChild(items->getWidget());
    container.markForUpdate();
    return items;
}

} // namespace

void UiNodeWidget::initialize() {
    UiWidgetFactory::registerFactory("NodeWidget", std::make_unique<NodeWidgetFactory>());
}

void UiNodeWidget::finalize() {
    UiWidgetFactory::unregisterFactory("NodeWidget");
}

Items UiNodeWidget::setContent(RCShdPtr<PiNodeWidget> const& widget, RCShdPtr<PiNode> const& node,
                               RCShdPtr<PiTimePath const> const& timePath) {
    NodeWidgetAdapter* adapter = adapterOf(widget);
    if (!adapter)
        return Items();
    adapter->storeNode(node, RCShdPtr<PiNode const>(node));
    return show(*adapter, node, timePath);
}

Items UiNodeWidget::setContentRO(RCShdPtr<PiNodeWidget> const& widget,
                                 RCShdPtr<PiNode const> const& node,
                                 RCShdPtr<PiTimePath const> const& timePath) {
    NodeWidgetAdapter* adapter = adapterOf(widget);
    if (!adapter)
        return Items();
    adapter->storeNode(RCShdPtr<PiNode>(), node);
    return show(*adapter, node, timePath);
}

Items UiNodeWidget::getContent(RCShdPtr<PiNodeWidget> const& widget, RCShdPtr<PiNode> const& node,
                               RCShdPtr<PiTimePath const> const& timePath) {
    NodeWidgetAdapter* adapter = adapterOf(widget);
    if (!adapter)
        return Items();
    adapter->storeNode(node, RCShdPtr<PiNode const>(node));
    return node.isNull() ? Items() : panelsOf(node, timePath);
}

} // namespace Zr
