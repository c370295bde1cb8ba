// UiGenericNodeUi: the panel of a node whose controller gives no description: one labelled row
// per input, built through UiNodeWidgetFactory like any other panel.
#pragma once

#include "uiNodeWidgetFactory.h"

#include <string>

namespace Zr {

class UiGenericNodeUi {
public:
    UiGenericNodeUi() = delete;

    // The description of the generic panel: a container with one row per input (one per part
    // of a structured input), a value editor for numbers, a menu for an integer with labels, a
    // toggle for a boolean and a text field for a string. The node-bound types are used when
    // they are registered; otherwise a label and the plain widget, unbound.
    static std::string createDescription(RCShdPtr<PiNode const> const& node);
    // The generic panel of the node: one item, titled like the node's first panel, with the
    // generic UI name "Default".
    static Iterator<UiNodeWidgetFactory::Item> create(RCShdPtr<PiNode> const& node,
                                                      RCShdPtr<PiTimePath const> const& timePath);
    static Iterator<UiNodeWidgetFactory::Item> create(RCShdPtr<PiNode const> const& node,
                                                      RCShdPtr<PiTimePath const> const& timePath);
    // True when the node's controller lives and gives no description.
    static bool hasNoDescription(RCShdPtr<PiNode const> const& node);

    // Height of a row and the gap above it, in pixels: three and one grid units.
    static constexpr int RowHeight = 21;
    static constexpr int RowGap = 7;
    static constexpr int PanelWidth = 420;
};

} // namespace Zr
