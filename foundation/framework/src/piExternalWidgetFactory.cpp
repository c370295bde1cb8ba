// PiExternalWidgetFactory: the registry of the widget factories that plug-ins supply.
#include "piExternalWidgetFactory.h"

#include "exBase.h"

#include <map>

namespace Zr {

namespace {

using Registry = std::map<std::string, OPtr<PiExternalWidgetFactory>>;

Registry& factories() {
    // Lives to the end of the process: plug-ins may unregister as late as their own unloading.
    static Registry registry;
    return registry;
}

} // namespace

PiExternalWidgetFactory::~PiExternalWidgetFactory() = default;

void PiExternalWidgetFactory::registerFactory(std::string const& name,
                                              OPtr<PiExternalWidgetFactory> factory) {
    ZR_ASSERT(factories().find(name) == factories().end());
    ZR_ASSERT(factory != nullptr);
    factories().emplace(name, std::move(factory));
}

void PiExternalWidgetFactory::unregisterFactory(std::string const& name) {
    auto it = factories().find(name);
    ZR_ASSERT(it != factories().end());
    factories().erase(it);
}

PiExternalWidgetFactory* PiExternalWidgetFactory::getFactory(std::string const& name) {
    auto it = factories().find(name);
    return it == factories().end() ? nullptr : it->second.get();
}

RCShdPtr<RCObject> PiExternalWidgetFactory::createClientData(RCShdPtr<PiWidget> const&,
                                                             XmlElement const&) {
    return nullptr;
}

} // namespace Zr
