// The registry of statistic kinds, with the toolkit's own ones known from the start.
#include "statResourceRegistry.h"

#include "statTypes.h"

namespace Zr {

StatResourceRegistry::StatResourceRegistry() : _nextId(StatTypes::FIRST_FREE_ID) {
    add(StatTypes::WAITING_EVENTS_ID, "WaitingEvents", StatContainerFactory::of<StatScalar>());
    add(StatTypes::PROCESSED_EVENTS_ID, "ProcessedEvents", StatContainerFactory::of<StatScalar>());
}

void StatResourceRegistry::add(int id, std::string const& name,
                               StatContainerFactory const& factory) {
    _types.emplace(id, StatResourceType(id, name, factory));
}

int StatResourceRegistry::registerResourceType(std::string const& name,
                                               StatContainerFactory const& factory) {
    std::lock_guard<std::mutex> lock(_mutex);
    for (auto const& [id, type] : _types)
        if (type.getName() == name)
            return id;
    int id = _nextId++;
    add(id, name, factory);
    return id;
}

StatResourceType const* StatResourceRegistry::getType(int id) const {
    std::lock_guard<std::mutex> lock(_mutex);
    auto it = _types.find(id);
    return it == _types.end() ? nullptr : &it->second;
}

int StatResourceRegistry::findType(std::string const& name) const {
    std::lock_guard<std::mutex> lock(_mutex);
    for (auto const& [id, type] : _types)
        if (type.getName() == name)
            return id;
    return -1;
}

} // namespace Zr
