// UiContainerFactory: makes a container, then builds the groups of its definition.
#include "uiContainerFactory.h"

#include "uiContainer.h"
#include "uiWidgetGroupFactory.h"

#include "xmlElement.h"

namespace Zr {

RCShdPtr<UiWidget> UiContainerFactory::create(RCShdPtr<UiContainer> const& parent, char const* name,
                                              UiResTable const* table, XmlElement const* element) {
    RCShdPtr<UiContainer> container = createContainer(parent, name, table);
    if (!container)
        return nullptr;
    createGroups(container, element);
    return RCShdPtr<UiWidget>(container);
}

RCShdPtr<UiContainer> UiContainerFactory::createContainer(RCShdPtr<UiContainer> const& parent,
                                                          char const* name,
                                                          UiResTable const* table) {
    return UiContainer::create(parent.get(), LiString(name), table);
}

void UiContainerFactory::createGroups(RCShdPtr<UiContainer> const& container,
                                      XmlElement const* element) {
    if (!element)
        return;
    for (XmlElement const& group : element->getElementsByTagName("Group"))
        UiWidgetGroupFactory::createGroup(container, group);
}

} // namespace Zr
