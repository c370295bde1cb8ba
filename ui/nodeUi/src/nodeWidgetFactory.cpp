// NodeWidgetFactory: a container with a NodeWidgetAdapter as its interface.
#include "nodeWidgetFactory.h"

#include "nodeWidgetAdapter.h"
#include "uiContainer.h"

#include "piNode.h"

namespace Zr {

RCShdPtr<UiWidget> NodeWidgetFactory::create(RCShdPtr<UiContainer> const& parent, char const* name,
                                             UiResTable const* table, XmlElement const*) {
    RCShdPtr<UiContainer> container = UiContainer::create(parent.get(), LiString(name), table);
    container->setInterface(RCShdPtr<PiWidget>(new NodeWidgetAdapter(container)));
    return container;
}

} // namespace Zr
