// UiNodeWidget: shows a node's first panel inside a NodeWidget, the container a plug-in reaches
// through PiNodeWidget.
#pragma once

#include "uiNodeWidgetFactory.h"

namespace Zr {

class PiNodeWidget;

class UiNodeWidget {
public:
    UiNodeWidget() = delete;

    // Registers and unregisters the "NodeWidget" widget type (NodeWidgetFactory).
    static void initialize();
    static void finalize();

    // Records the node in the NodeWidget and shows its first panel in place of what the
    // container held; a null node empties it. All the node's panels are returned. A node
    // without a description of its own shows its generic panel (UiGenericNodeUi). Does
    // nothing and returns nothing when `widget` is no NodeWidget.
    static Iterator<UiNodeWidgetFactory::Item>
    setContent(RCShdPtr<PiNodeWidget> const& widget, RCShdPtr<PiNode> const& node,
               RCShdPtr<PiTimePath const> const& timePath);
    // The same with read-only inputs.
    static Iterator<UiNodeWidgetFactory::Item>
    setContentRO(RCShdPtr<PiNodeWidget> const& widget, RCShdPtr<PiNode const> const& node,
                 RCShdPtr<PiTimePath const> const& timePath);
    // Records the node and returns its panels without touching the container's children.
    static Iterator<UiNodeWidgetFactory::Item>
    getContent(RCShdPtr<PiNodeWidget> const& widget, RCShdPtr<PiNode> const& node,
               RCShdPtr<PiTimePath const> const& timePath);
};

} // namespace Zr
