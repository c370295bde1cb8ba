// The installed event manager and the relation dictionary.
#include "evEventManager.h"

#include <atomic>

namespace Zr {

namespace {
std::atomic<EvEventManager*> installedManager{nullptr};
} // namespace

void EvEventManager::initialize(EvEventManager* manager) {
    installedManager.store(manager, std::memory_order_release);
}

EvEventManager* EvEventManager::getInstance() {
    return installedManager.load(std::memory_order_acquire);
}

int EvDictionary::defineRelation(std::string const& name) {
    std::lock_guard<std::mutex> lock(_mutex);
    auto [it, added] = _ids.emplace(name, static_cast<int>(_names.size()));
    if (added)
        _names.push_back(name);
    return it->second;
}

int EvDictionary::getRelation(std::string const& name) const {
    std::lock_guard<std::mutex> lock(_mutex);
    auto it = _ids.find(name);
    if (it == _ids.end())
        throw EvUndefinedRelation(__FILE__, __LINE__, "Undefined event relation: " + name);
    return it->second;
}

std::string EvDictionary::getRelationName(int id) const {
    std::lock_guard<std::mutex> lock(_mutex);
    if (id < 0 || id >= static_cast<int>(_names.size()))
        throw EvUndefinedRelation(__FILE__, __LINE__,
                                  "Undefined event relation: " + std::to_string(id));
    return _names[static_cast<std::size_t>(id)];
}

bool EvDictionary::hasRelation(std::string const& name) const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _ids.count(name) != 0;
}

int EvDictionary::getNbRelations() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return static_cast<int>(_names.size());
}

} // namespace Zr
