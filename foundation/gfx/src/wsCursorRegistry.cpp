// The cursor registry, filled with a placeholder for each of the toolkit's cursor names.
#include "wsCursorRegistry.h"

#include <algorithm>

namespace Zr {

WsCursorRegistry& WsCursorRegistry::getInstance() {
    static WsCursorRegistry instance;
    return instance;
}

WsCursorRegistry::WsCursorRegistry() {
    for (char const* name : {Normal, Busy, Dance, Drag, Drop, Move, MoveXY, Pan, Pick, Zoom})
        _cursors.emplace(name, makeShared<WsCursor>(name));
}

RCShdPtr<WsCursor> WsCursorRegistry::getCursor(LiString const& name) const {
    std::lock_guard<std::mutex> lock(_mutex);
    auto it = _cursors.find(name);
    if (it == _cursors.end())
        throw ExUnknownCursor(__FILE__, __LINE__, "Unknown cursor \"" + name.str() + "\"");
    return it->second;
}

bool WsCursorRegistry::isRegistered(LiString const& name) const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _cursors.count(name) != 0;
}

void WsCursorRegistry::registerCursor(RCShdPtr<WsCursor> cursor) {
    ZR_ASSERT(cursor != nullptr);
    std::lock_guard<std::mutex> lock(_mutex);
    LiString name = cursor->getName();
    _cursors[name] = std::move(cursor);
}

std::vector<LiString> WsCursorRegistry::getNames() const {
    std::vector<LiString> names;
    {
        std::lock_guard<std::mutex> lock(_mutex);
        for (auto const& entry : _cursors)
            names.push_back(entry.first);
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace Zr
