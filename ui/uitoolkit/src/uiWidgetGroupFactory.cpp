// UiWidgetGroupFactory's registry and the "Children" group factory, which creates one child
// widget per definition inside the group.
#include "uiWidgetGroupFactory.h"

#include "uiContainer.h"
#include "uiWidgetFactory.h"

#include "xmlElement.h"

#include <algorithm>

namespace Zr {

namespace {

// Every child element of the group is the definition of a child widget, created in document
// order so that a child's constraint can name the siblings defined before it.
class ChildrenFactory : public UiWidgetGroupFactory {
protected:
    void create(RCShdPtr<UiContainer> const& container, XmlElement const& element) override {
        for (XmlElement const& child : element.getChildren())
            UiWidgetFactory::createWidget(container, child);
    }
};

} // namespace

UiWidgetGroupFactory::~UiWidgetGroupFactory() = default;

UiWidgetGroupFactory::Registry& UiWidgetGroupFactory::registry() {
    // Lives to the end of the process, like the widget factories.
    static Registry uiWidgetGroupFactories;
    return uiWidgetGroupFactories;
}

void UiWidgetGroupFactory::registerFactory(LiString const& name,
                                           OPtr<UiWidgetGroupFactory> factory) {
    Registry& uiWidgetGroupFactories = registry();
    auto it = uiWidgetGroupFactories.find(name);
    ZR_ASSERT(it == uiWidgetGroupFactories.end());
    ZR_ASSERT(factory != nullptr);
    uiWidgetGroupFactories.emplace(name, std::move(factory));
}

void UiWidgetGroupFactory::unregisterFactory(LiString const& name) {
    Registry& uiWidgetGroupFactories = registry();
    auto it = uiWidgetGroupFactories.find(name);
    ZR_ASSERT(it != uiWidgetGroupFactories.end());
    uiWidgetGroupFactories.erase(it);
}

std::vector<std::string> UiWidgetGroupFactory::getRegisteredNames() {
    std::vector<std::string> names;
    for (auto const& entry : registry())
        names.push_back(entry.first.str());
    std::sort(names.begin(), names.end());
    return names;
}

bool UiWidgetGroupFactory::isRegistered(LiString const& name) {
    return registry().count(name) != 0;
}

void UiWidgetGroupFactory::createGroup(RCShdPtr<UiContainer> const& container,
                                       XmlElement const& element) {
    Registry& uiWidgetGroupFactories = registry();
    auto it = uiWidgetGroupFactories.find(LiString(element.getAttribute("Type")));
    ZR_ASSERT(it != uiWidgetGroupFactories.end());
    it->second->create(container, element);
}

void UiWidgetGroupFactory::registerChildrenFactory() {
    if (!isRegistered("Children"))
        registerFactory("Children", std::make_unique<ChildrenFactory>());
}

} // namespace Zr
