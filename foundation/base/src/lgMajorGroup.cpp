// Log groups: the registry of major groups and the registration of minor groups.
#include "lgMajorGroup.h"

#include "lgMinorGroup.h"
#include "osEnv.h"

#include <algorithm>
#include <map>
#include <memory>

namespace Zr {

LgMajorGroup& LgMajorGroup::getInstanceForName(std::string const& name) {
    static std::mutex mutex;
    // Never destroyed: minor groups that are statics of other libraries deregister during
    // exit, possibly after this library's statics are gone.
    static auto* groups = new std::map<std::string, std::unique_ptr<LgMajorGroup>>();
    std::lock_guard<std::mutex> lock(mutex);
    auto& slot = (*groups)[name];
    if (!slot)
        slot.reset(new LgMajorGroup(name));
    return *slot;
}

LgMinorGroup* LgMajorGroup::findMinor(std::string const& name) const {
    std::lock_guard<std::mutex> lock(_mutex);
    for (LgMinorGroup* m : _minors)
        if (m->getName() == name)
            return m;
    return nullptr;
}

std::vector<LgMinorGroup*> LgMajorGroup::getMinors() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _minors;
}

void LgMajorGroup::addMinor(LgMinorGroup* minor) {
    std::lock_guard<std::mutex> lock(_mutex);
    _minors.push_back(minor);
}

void LgMajorGroup::removeMinor(LgMinorGroup* minor) {
    std::lock_guard<std::mutex> lock(_mutex);
    _minors.erase(std::remove(_minors.begin(), _minors.end(), minor), _minors.end());
}

LgMinorGroup::LgMinorGroup(LgMajorGroup& major, std::string name)
    : _major(major), _name(std::move(name)) {
    if (auto flags = OsEnv::getInteger("ZR_LOG_" + _name))
        _flags.store(static_cast<unsigned>(*flags), std::memory_order_relaxed);
    _major.addMinor(this);
}

LgMinorGroup::~LgMinorGroup() {
    _major.removeMinor(this);
}

std::string LgMinorGroup::getFormattedName(int width) const {
    if (width <= 0)
        return std::string();
    std::string result = _name.substr(0, static_cast<std::size_t>(width));
    result.resize(static_cast<std::size_t>(width), ' ');
    return result;
}

} // namespace Zr
