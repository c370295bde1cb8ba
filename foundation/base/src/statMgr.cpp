// Recording and flushing statistics.
#include "statMgr.h"

#include "statResourceRegistry.h"

#include <ostream>
#include <sstream>

namespace Zr {

RCShdPtr<StatContainerBase> StatMgr::getContainerLocked(int id) {
    auto it = _containers.find(id);
    if (it != _containers.end())
        return it->second;
    StatResourceType const* type = StatResourceRegistry::getInstance().getType(id);
    if (!type)
        return nullptr;
    RCShdPtr<StatContainerBase> container = type->createContainer();
    _containers.emplace(id, container);
    return container;
}

RCShdPtr<StatContainerBase> StatMgr::getContainer(int id) {
    std::lock_guard<std::mutex> lock(_mutex);
    return getContainerLocked(id);
}

void StatMgr::record(int id, double value) {
    if (!hasLocalStats())
        return;
    std::lock_guard<std::mutex> lock(_mutex);
    if (RCShdPtr<StatContainerBase> container = getContainerLocked(id))
        container->record(value);
}

double StatMgr::getLast(int id) const {
    std::lock_guard<std::mutex> lock(_mutex);
    auto it = _containers.find(id);
    return it == _containers.end() ? 0.0 : it->second->getLast();
}

void StatMgr::flushStatistics(std::ostream& os) {
    std::lock_guard<std::mutex> lock(_mutex);
    for (auto& [id, container] : _containers) {
        if (container->isEmpty())
            continue;
        os << container->toString() << '\n';
        container->clear();
    }
}

void StatMgr::flushStatistics() {
    std::ostringstream text;
    flushStatistics(text);
    std::istringstream lines(text.str());
    for (std::string line; std::getline(lines, line);)
        ExStdout::printAtomically(line);
}

} // namespace Zr
