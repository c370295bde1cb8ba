// NodeWidgetFactory: the factory of the "NodeWidget" type, a container whose plug-in interface
// is a NodeWidgetAdapter, so that a node's panel can be shown inside another interface.
#pragma once

#include "uiWidgetFactory.h"

namespace Zr {

class NodeWidgetFactory : public UiWidgetFactory {
protected:
    RCShdPtr<UiWidget> create(RCShdPtr<UiContainer> const& parent, char const* name,
                              UiResTable const* table, XmlElement const* element) override;
};

} // namespace Zr
