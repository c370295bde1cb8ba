// CbNamedCallbacks: process-wide callbacks found by name, so that a part of the application can
// call into another without linking to it ("reloadColors", "openHelp" and the like).
#pragma once

#include "cbDispatcher.h"
#include "lkSingleton.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Zr {

class CbNamedCallbacks {
public:
    static CbNamedCallbacks& getInstance() { return LkSingleton<CbNamedCallbacks>::getInstance(); }

    // Appends a handler under a name (not owned; a destroyed handler leaves by itself). A
    // null handler, or one already under that name, is ignored.
    void add(std::string const& name, CbHandler<std::string>* handler);
    // Returns false when the handler was not under that name.
    bool remove(std::string const& name, CbHandler<std::string>* handler);

    // Calls the handlers under `name` in order with the argument; returns false when there
    // are none. Handlers added or removed meanwhile follow the dispatcher's snapshot rules.
    bool call(std::string const& name, std::string argument = std::string());

    bool hasCallback(std::string const& name) const;
    int getNbHandlers(std::string const& name) const;
    // The names that have at least one handler, sorted.
    std::vector<std::string> getNames() const;

private:
    friend class LkSingleton<CbNamedCallbacks>;
    CbNamedCallbacks() = default;

    // Dispatchers stay once made: a handler may be calling through one while it is emptied.
    std::map<std::string, std::unique_ptr<CbDispatcher<std::string>>> _dispatchers;
};

} // namespace Zr
