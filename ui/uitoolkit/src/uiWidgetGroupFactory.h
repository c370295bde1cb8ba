// UiWidgetGroupFactory: builds what a <Group Type="..."> element of a container's definition
// holds; "Children" creates the child widgets, other group factories make UiGroup objects.
#pragma once

#include "zrBase.h"

#include "containers.h"

#include <string>
#include <vector>

namespace Zr {

class UiContainer;
class XmlElement;

class UiWidgetGroupFactory {
public:
    using Registry = HashMap<LiString, OPtr<UiWidgetGroupFactory>>;

    virtual ~UiWidgetGroupFactory();

    // Each name once: a second registration of a name fails an assertion, as does the removal
    // of a name that isn't registered.
    static void registerFactory(LiString const& name, OPtr<UiWidgetGroupFactory> factory);
    static void unregisterFactory(LiString const& name);
    static bool isRegistered(LiString const& name);
    // The registered names, sorted: the types a definition may use.
    static std::vector<std::string> getRegisteredNames();
    // Builds the group `element` in `container` by the factory its Type attribute names; an
    // unknown or missing type fails an assertion.
    static void createGroup(RCShdPtr<UiContainer> const& container, XmlElement const& element);
    // Registers the "Children" factory unless it is registered already.
    static void registerChildrenFactory();

protected:
    virtual void create(RCShdPtr<UiContainer> const& container, XmlElement const& element) = 0;

private:
    static Registry& registry();
};

} // namespace Zr
