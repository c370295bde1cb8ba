// UiContainerFactory: the factory of containers, which after making the container builds the
// groups of its definition; UiContainerFactorySimple, the factory of a plain container class.
#pragma once

#include "uiWidgetFactory.h"

namespace Zr {

class UiContainerFactory : public UiWidgetFactory {
protected:
    // Makes the container, then its groups.
    RCShdPtr<UiWidget> create(RCShdPtr<UiContainer> const& parent, char const* name,
                              UiResTable const* table, XmlElement const* element) override;
    // The base makes a plain UiContainer.
    virtual RCShdPtr<UiContainer> createContainer(RCShdPtr<UiContainer> const& parent,
                                                  char const* name, UiResTable const* table);
    // Hands each <Group> child of the definition, in document order, to the group factory its
    // Type attribute names; an unknown type fails an assertion.
    virtual void createGroups(RCShdPtr<UiContainer> const& container, XmlElement const* element);
};

// The factory of a container class: T::create(parent, name, table), then the groups.
template <class T>
class UiContainerFactorySimple : public UiContainerFactory {
protected:
    RCShdPtr<UiContainer> createContainer(RCShdPtr<UiContainer> const& parent, char const* name,
                                          UiResTable const* table) override {
        return RCShdPtr<UiContainer>(T::create(parent.get(), LiString(name), table));
    }
};

} // namespace Zr
